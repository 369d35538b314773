// The edge of a rectangle as four filled strips, which keep within it at any width.
#pragma once

#include <zrcolor>
#include <zrpainter>
#include <zrrect>

inline void fillRing(ZrPainter &painter, const ZrRect &rect, const ZrColor &color, int thickness)
{
    const int inner = rect.height() - 2 * thickness;
    painter.fillRect(ZrRect(rect.left(), rect.top(), rect.width(), thickness), color);
    painter.fillRect(ZrRect(rect.left(), rect.bottom() - thickness + 1, rect.width(), thickness),
                     color);
    painter.fillRect(ZrRect(rect.left(), rect.top() + thickness, thickness, inner), color);
    painter.fillRect(ZrRect(rect.right() - thickness + 1, rect.top() + thickness, thickness, inner),
                     color);
}
