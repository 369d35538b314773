// Any bytes as UTF-8: what comes out is well-formed, and stays as it is from then on.
#include <zrstring>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const ZrString text(reinterpret_cast<const char *>(bytes), int(size));
    const ZrByteArray again = text.toUtf8();
    if (!(ZrString(again) == text) || text.size() > int(size))
        std::abort();
    for (int i = 0; i < text.size(); i++) {
        const bool high = (text.at(i) & 0xFC00) == 0xD800;
        const bool low = (text.at(i) & 0xFC00) == 0xDC00;
        if (low || (high && (i + 1 == text.size() || (text.at(i + 1) & 0xFC00) != 0xDC00)))
            std::abort();
        i += high;
    }
    return 0;
}
