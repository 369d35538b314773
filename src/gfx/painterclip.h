// How a painter hands a shape to its canvas.
#pragma once

#include <zrpainter>

// Calls draw for each rectangle of what may be painted within the bounds, with the canvas ready.
template <class Draw>
void ZrPainter::forEachClip(const ZrRect &bounds, Draw draw)
{
    if (!canvas_ || bounds.isEmpty())
        return;
    state_.antialias = antialias_;
    state_.brushColor = brush_.color().argb();
    canvas_->setState(&state_);
    auto visit = [&](const ZrRect &rect) {
        setClip(rect);
        draw(rect);
    };
    if (effective_.rectCount() == 1) {
        const ZrRect cut = *effective_.begin() & bounds;
        if (!cut.isEmpty())
            visit(cut);
        return;
    }
    const ZrRegion cut = effective_ & ZrRegion(bounds);
    for (const ZrRect &rect : cut)
        visit(rect);
}
