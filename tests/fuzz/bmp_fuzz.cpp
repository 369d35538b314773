// Any bytes as a bitmap file.
#include <zrbitmap>

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    if (size == 0)
        return 0;
    std::FILE *file = fmemopen(const_cast<std::uint8_t *>(bytes), size, "rb");
    const ZrBitmap bitmap(file);
    ZrVector<std::uint8_t> picture;
    // Larger ones are within the limits and only slow down the search.
    constexpr int small = 1 << 20;
    const bool whole =
        bitmap.isValid() && bitmap.width() * bitmap.height() <= small && bitmap.decode(picture);
    if (picture.size() != (whole ? bitmap.width() * bitmap.height() * 4 : 0))
        std::abort();
    std::fclose(file);
    return 0;
}
