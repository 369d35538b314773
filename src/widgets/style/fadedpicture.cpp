#include "widgets/style/fadedpicture.h"

#include <cstddef>
#include <cstdint>

ZrPixmap fadedPicture(const ZrPixmap &picture)
{
    ZrPixmap faded = picture;
    std::uint8_t *alpha = faded.bits() + 3;
    const std::size_t bytes = std::size_t(faded.width()) * std::size_t(faded.height()) * 4;
    for (std::size_t i = 0; i < bytes; i += 4)
        alpha[i] = std::uint8_t(alpha[i] / 2);
    return faded;
}
