// Sliders and scroll bars.
#include <zrstyle>

#include "widgets/style/boxmodel.h"
#include "widgets/style/drawpicture.h"
#include "widgets/style/stylepainter.h"

#include <algorithm>
#include <zrabstractslider>
#include <zrpainter>

namespace
{

// `rect` made thinner across its direction, with the same middle.
ZrRect thinned(const ZrRect &rect, Zr::Orientation orientation, int thickness)
{
    if (orientation == Zr::Horizontal) {
        const int across = std::min(thickness, rect.height());
        return ZrRect(rect.left(), rect.top() + (rect.height() - across) / 2, rect.width(), across);
    }
    const int across = std::min(thickness, rect.width());
    return ZrRect(rect.left() + (rect.width() - across) / 2, rect.top(), across, rect.height());
}

// The part of the groove from the minimum's end to the middle of the handle.
ZrRect subPageOf(const ZrAbstractSlider &slider, const ZrRect &groove, const ZrRect &handle)
{
    const ZrPoint middle = handle.center();
    if (slider.orientation() == Zr::Horizontal)
        return slider.isInverted()
                   ? ZrRect::fromEdges(middle.x(), groove.top(), groove.right(), groove.bottom())
                   : ZrRect::fromEdges(groove.left(), groove.top(), middle.x(), groove.bottom());
    return slider.isInverted()
               ? ZrRect::fromEdges(groove.left(), middle.y(), groove.right(), groove.bottom())
               : ZrRect::fromEdges(groove.left(), groove.top(), groove.right(), middle.y());
}

} // namespace

void ZrStyle::drawSlider(ZrWidget *widget, const ZrSliderOption *option) const
{
    const auto *control = zrPaintableAs<ZrAbstractSlider>(widget);
    if (!control)
        return;
    const ZrSliderOption &group = option ? *option : slider();
    const BoxModel box(*widget, group, control->isSliderDown());
    ZrPainter painter(widget);
    box.draw(painter, widget->rect());
    const int *height = group.grooveHeight.get(0);
    const ZrRect handle = control->handleRect();
    const ZrRect groove =
        thinned(control->grooveRect(), control->orientation(), height ? *height : 4);
    if (const ZrColor *color = box.chain().pick(group.groove))
        painter.fillRect(groove, *color);
    // A slider that cannot be moved shows how far it stands by its handle alone.
    if (const ZrColor *color = widget->isEnabled() ? box.chain().pick(group.subPage) : nullptr)
        painter.fillRect(subPageOf(*control, groove, handle), *color);
    if (const ZrPixmap *picture = box.chain().pick(group.handle))
        drawPicture(painter, handle, *picture);
    else if (const ZrColor *color = box.chain().pick(group.subPage))
        painter.fillRect(handle, *color);
}

void ZrStyle::drawScrollBar(ZrWidget *widget, const ZrScrollBarOption *option) const
{
    const auto *control = zrPaintableAs<ZrAbstractSlider>(widget);
    if (!control)
        return;
    const ZrScrollBarOption &group = option ? *option : scrollBar();
    const BoxModel box(*widget, group, control->isSliderDown());
    ZrPainter painter(widget);
    box.draw(painter, widget->rect());
    const ZrRect rect = control->grooveRect();
    const int across = control->orientation() == Zr::Vertical ? rect.width() : rect.height();
    if (const ZrColor *color = box.chain().pick(group.groove))
        painter.fillRect(thinned(rect, control->orientation(), std::max(2, across / 4)), *color);
    if (const ZrColor *color = box.chain().pick(group.slider))
        painter.fillRect(thinned(control->handleRect(), control->orientation(), across * 3 / 4),
                         *color);
}
