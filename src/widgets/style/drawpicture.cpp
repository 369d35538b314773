#include "widgets/style/drawpicture.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <tuple>
#include <zrpainter>

namespace
{

// Larger ones are scaled at each painting.
constexpr int MostPixels = 1 << 16;
// All together; beyond, they are scaled anew as they are needed. 2 MiB.
constexpr int MostPixelsKept = 1 << 19;

enum class Shade { Full, Faded };

ZrPixmap fadedPicture(const ZrPixmap &picture)
{
    ZrPixmap faded = picture;
    std::uint8_t *alpha = faded.bits() + 3;
    const std::size_t bytes = std::size_t(faded.width()) * std::size_t(faded.height()) * 4;
    for (std::size_t i = 0; i < bytes; i += 4)
        alpha[i] = std::uint8_t(alpha[i] / 2);
    return faded;
}

ZrPixmap shaded(const ZrPixmap &picture, Shade shade)
{
    return shade == Shade::Faded ? fadedPicture(picture) : picture;
}

struct Kept {
    ZrPixmap original; // keeps the pixels that the key points at
    ZrPixmap drawn;
};

class KeptPictures
{
public:
    const ZrPixmap &find(const ZrPixmap &picture, const ZrSize &size, Shade shade)
    {
        const Key key(picture.bits(), size.width(), size.height(), shade);
        const auto known = kept_.find(key);
        if (known != kept_.end())
            return known->second.drawn;
        const int added = pixelsOf(picture) + size.width() * size.height();
        if (pixels_ + added > MostPixelsKept)
            clear();
        pixels_ += added;
        const ZrPixmap shown = shaded(picture, shade);
        const bool fits = shown.width() == size.width() && shown.height() == size.height();
        const Kept kept{picture,
                        fits ? shown : ZrPixmap(shown.scaled(size.width(), size.height()))};
        return kept_.emplace(key, kept).first->second.drawn;
    }
    static int pixelsOf(const ZrPixmap &picture) { return picture.width() * picture.height(); }

private:
    using Key = std::tuple<const std::uint8_t *, int, int, Shade>;

    void clear()
    {
        kept_.clear();
        pixels_ = 0;
    }

    std::map<Key, Kept> kept_;
    int pixels_ = 0;
};

void draw(ZrPainter &painter, const ZrRect &place, const ZrPixmap &picture, Shade shade)
{
    static KeptPictures kept;
    if (picture.isNull() || place.isEmpty())
        return;
    const bool isKept = std::int64_t(place.width()) * place.height() <= MostPixels &&
                        KeptPictures::pixelsOf(picture) <= MostPixels;
    if (isKept)
        painter.drawPixmap(place.left(), place.top(), place.width(), place.height(),
                           kept.find(picture, place.size(), shade));
    else
        painter.drawScaledPixmap(place, shaded(picture, shade));
}

} // namespace

void drawPicture(ZrPainter &painter, const ZrRect &place, const ZrPixmap &picture)
{
    draw(painter, place, picture, Shade::Full);
}

void drawPictureInMiddle(ZrPainter &painter, const ZrRect &room, const ZrSize &size,
                         const ZrPixmap &picture)
{
    drawPicture(painter,
                ZrRect(room.left() + (room.width() - size.width()) / 2,
                       room.top() + (room.height() - size.height()) / 2, size.width(),
                       size.height()),
                picture);
}

void drawFadedPicture(ZrPainter &painter, const ZrRect &place, const ZrPixmap &picture)
{
    draw(painter, place, picture, Shade::Faded);
}
