#include "gfx/imagereader.h"

#include <cstring>
#include <zrcanvas>
#include <zrimage>

namespace
{

constexpr size_t kMagicLength = 8;
constexpr uint64_t kSmallEnough = 16u << 20;
constexpr uint8_t kPngSignature[kMagicLength] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};

bool beginsWithEither(EncodedBytes bytes, uint8_t a, uint8_t b)
{
    return (bytes.data[0] == a && bytes.data[1] == b) || (bytes.data[0] == b && bytes.data[1] == a);
}

} // namespace

bool isAllowedSize(uint64_t width, uint64_t height)
{
    return width > 0 && height > 0 && width <= ZrImage::maxSide && height <= ZrImage::maxSide &&
           width * height <= ZrImage::maxPixels;
}

bool DecodedCanvas::make(uint32_t width, uint32_t height)
{
    // The system gives large blocks clear, and only once they are touched.
    isClear_ = uint64_t(width) * height * 4 > kSmallEnough;
    if (isClear_)
        canvas_ =
            std::make_unique<ZrCanvas>(int(width), int(height), ZrColor(0, 0, 0, 0), ZrRegion());
    else
        canvas_ = std::make_unique<ZrCanvas>(int(width), int(height), ZrCanvas::Pixels::Undefined);
    if (!canvas_->data())
        canvas_.reset();
    return canvas_ != nullptr;
}

uint8_t *DecodedCanvas::row(int y) const
{
    return canvas_->data() + size_t(y) * size_t(canvas_->width()) * 4;
}

void DecodedCanvas::clear()
{
    if (!isClear_)
        canvas_->clearRows(0);
    isClear_ = true;
}

std::unique_ptr<ZrCanvas> DecodedCanvas::take()
{
    if (canvas_ && !isClear_ && rowsWritten_ < canvas_->height())
        canvas_->clearRows(rowsWritten_);
    return std::move(canvas_);
}

std::unique_ptr<ZrCanvas> readImage(EncodedBytes bytes)
{
    if (bytes.length < kMagicLength)
        return nullptr;
    if (beginsWithEither(bytes, 'B', 'M'))
        return readBmp(bytes);
    if (std::memcmp(bytes.data, kPngSignature, kMagicLength) == 0)
        return readPng(bytes);
    if (beginsWithEither(bytes, 0xff, 0xd8))
        return readJpeg(bytes);
    return nullptr;
}
