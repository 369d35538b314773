#include "gfx/imagereader.h"

#include <zrcanvas>
#if __has_include(<zrbitmap>)
#include <cstdio>
#include <cstring>
#include <zrbitmap>

std::unique_ptr<ZrCanvas> readBmp(EncodedBytes bytes)
{
    std::FILE *file = fmemopen(const_cast<uint8_t *>(bytes.data), bytes.length, "rb");
    if (!file)
        return nullptr;
    const ZrBitmap bitmap(file);
    ZrVector<std::uint8_t> pixels;
    const bool isRead = bitmap.isValid() && bitmap.decode(pixels);
    std::fclose(file);
    if (!isRead)
        return nullptr;
    std::unique_ptr<ZrCanvas> canvas =
        makeCanvas(unsigned(bitmap.width()), unsigned(bitmap.height()));
    if (canvas)
        std::memcpy(canvas->data(), pixels.constData(), size_t(pixels.size()));
    return canvas;
}
#else
std::unique_ptr<ZrCanvas> readBmp(EncodedBytes)
{
    return nullptr;
}
#endif
