// The hash of bytes: eight at a time, mixed by a wide multiplication.
#include <zrbytearray>
#include <zrstring>

#include <cstring>

namespace
{

std::uint64_t mix(std::uint64_t a, std::uint64_t b)
{
    __extension__ typedef unsigned __int128 Wide;
    const Wide product = Wide(a) * b;
    return std::uint64_t(product) ^ std::uint64_t(product >> 64);
}

std::size_t hashBytes(const void *data, std::size_t length)
{
    const auto *at = static_cast<const char *>(data);
    std::uint64_t hash = 0x9E3779B97F4A7C15u ^ length, word;
    for (; length >= sizeof word; at += sizeof word, length -= sizeof word) {
        std::memcpy(&word, at, sizeof word);
        hash = mix(hash ^ word, 0xA0761D6478BD642Fu);
    }
    if (length > 0) {
        word = 0;
        std::memcpy(&word, at, length);
        hash = mix(hash ^ word, 0xE7037ED1A0B428DBu);
    }
    return std::size_t(hash);
}

} // namespace

std::size_t zrHash(const ZrByteArray &bytes)
{
    return hashBytes(bytes.constData(), std::size_t(bytes.size()));
}

std::size_t zrHash(const ZrString &text)
{
    return hashBytes(text.constData(), std::size_t(text.size()) * sizeof(ZrUcs2));
}
