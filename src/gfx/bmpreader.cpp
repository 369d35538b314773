#include "gfx/imagereader.h"

#include <cstdio>
#include <cstring>
#include <zrbitmap>
#include <zrcanvas>

std::unique_ptr<ZrCanvas> readBmp(EncodedBytes bytes)
{
    std::FILE *file = fmemopen(const_cast<uint8_t *>(bytes.data), bytes.length, "rb");
    if (!file)
        return nullptr;
    const ZrBitmap bitmap(file);
    ZrVector<std::uint8_t> pixels;
    const bool isRead = bitmap.isValid() && bitmap.decode(pixels);
    std::fclose(file);
    if (!isRead) {
        std::fputs("ZrImage(): BMP cannot be decoded\n", stderr);
        return nullptr;
    }
    DecodedCanvas canvas;
    if (!canvas.make(uint32_t(bitmap.width()), uint32_t(bitmap.height())))
        return nullptr;
    std::memcpy(canvas->data(), pixels.constData(), size_t(pixels.size()));
    canvas.setRowsWritten(bitmap.height());
    canvas->isOpaque();
    return canvas.take();
}
