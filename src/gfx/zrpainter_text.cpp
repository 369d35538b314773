#include "gfx/painterclip.h"

#include <zrfontmetrics>
#include <zrstring>

void ZrPainter::drawText(int x, int y, const ZrString &text)
{
    if (text.isEmpty())
        return;
    forEachClip(rect_,
                [&](const ZrRect &) { canvas_->drawText(x + originX_, y + originY_, text); });
}

void ZrPainter::drawText(const ZrRect &rect, int align, const ZrString &text)
{
    if (!canvas_ || text.isEmpty() || !effective_.intersects(rect))
        return;
    ZrFontMetrics metrics(text, font_, rect.width(), state_.letterSpacing);
    metrics.setWorpWrap(align & Zr::TextWordWrap);
    metrics.setAlignment(align & ~Zr::TextWordWrap);
    // Laid out wherever it stands, so that what is scrolled or moved is found among what was laid
    // out before.
    metrics.setTextMinRect(0, 0, rect.width(), rect.height());
    const int x = rect.left() + originX_;
    const int y = rect.top() + originY_;
    for (const ZrPaintInfo &line : metrics.paintInfoList()) {
        forEachClip(rect, [&](const ZrRect &) {
            canvas_->drawGlyphs(line.x + x, line.y + y, line.glyphs);
        });
    }
}

void ZrPainter::drawGlyphs(int x, int y, const ZrVector<const GlyphBitmap *> &glyphs)
{
    forEachClip(rect_,
                [&](const ZrRect &) { canvas_->drawGlyphs(x + originX_, y + originY_, glyphs); });
}
