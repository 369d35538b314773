// Any bytes behind the signature of a PNG file. Checksums are made right, so that the search gets
// behind them.
#include "image_formats.h"

#include <cstring>
#include <vector>
#include <zlib.h>

namespace
{

constexpr std::uint8_t kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
constexpr std::size_t kChunkFrame = 12;

std::uint32_t wordAt(const std::uint8_t *p)
{
    return std::uint32_t(p[0]) << 24 | std::uint32_t(p[1]) << 16 | std::uint32_t(p[2]) << 8 | p[3];
}

void mendChecksums(std::vector<std::uint8_t> &file)
{
    for (std::size_t at = sizeof kSignature; file.size() - at >= kChunkFrame;) {
        const std::size_t length = wordAt(&file[at]);
        if (length > file.size() - at - kChunkFrame)
            return;
        const std::uint32_t sum = std::uint32_t(crc32(0, &file[at + 4], uInt(length + 4)));
        for (int i = 0; i < 4; ++i)
            file[at + 8 + length + std::size_t(i)] = std::uint8_t(sum >> (24 - 8 * i));
        at += kChunkFrame + length;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    std::vector<std::uint8_t> file(bytes, bytes + size);
    if (size >= sizeof kSignature) {
        std::memcpy(file.data(), kSignature, sizeof kSignature);
        mendChecksums(file);
    }
    return decodeAnything(file.data(), file.size());
}
