#include <zrscrollbar>

#include <algorithm>
#include <zrfontmetrics>

namespace
{

// The smallest handle that a shaky hand still hits, as a multiple of the thickness.
constexpr int ShortestHandle = 2;

} // namespace

int ZrScrollBar::defaultThickness(const ZrWidget &widget)
{
    return std::max(6, ZrFontMetrics::lineHeight(widget.font(0)) / 2);
}

ZrScrollBar::ZrScrollBar(Zr::Orientation orientation, ZrWidget *parent)
    : ZrAbstractSlider(orientation, parent)
{
    // The widget that scrolls has the keys; the bar has the pointer alone.
    setFocusPolicy(NoFocus);
}

ZrSize ZrScrollBar::sizeHint() const
{
    const int across = defaultThickness(*this);
    const int length = across * 6;
    return orientation() == Zr::Vertical ? ZrSize(across, length) : ZrSize(length, across);
}

ZrSize ZrScrollBar::minimumSizeHint() const
{
    const int across = defaultThickness(*this);
    const int length = across * (ShortestHandle + 1);
    return orientation() == Zr::Vertical ? ZrSize(across, length) : ZrSize(length, across);
}

int ZrScrollBar::handleLength() const
{
    const ZrRect groove = grooveRect();
    const bool vertical = orientation() == Zr::Vertical;
    const int room = vertical ? groove.height() : groove.width();
    const int across = vertical ? groove.width() : groove.height();
    const long long all = (long long)maximum() - minimum() + pageStep();
    const long long share = all > 0 ? (long long)room * pageStep() / all : room;
    return std::min(room, std::max(int(share), across * ShortestHandle));
}

void ZrScrollBar::paintEvent(ZrPaintEvent *)
{
    style().drawScrollBar(this);
}
