// What every picture fuzzer does with its bytes.
#pragma once

#include <zrcanvas>
#include <zrimage>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

inline int decodeAnything(const std::uint8_t *bytes, std::size_t size)
{
    if (size == 0)
        return 0;
    const ZrImage image(bytes, int(size));
    if (image.isNull() != (image.width() == 0) || image.width() > ZrImage::maxSide ||
        image.height() > ZrImage::maxSide)
        std::abort();
    // The ends of the pixels are there.
    if (!image.isNull() &&
        image.bits()[0] + image.bits()[4 * std::size_t(image.width()) * std::size_t(image.height()) - 1] > 510)
        std::abort();
    return 0;
}
