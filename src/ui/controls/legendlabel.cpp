#include "ui/controls/legendlabel.h"

#include "ui/scale.h"

#include <zrpainter>

namespace
{

constexpr float SquareUnits = 12;
constexpr float GapUnits = 8;

} // namespace

LegendLabel::LegendLabel(const ZrColor &color, const ZrString &text, ZrWidget *parent)
    : ZrLabel(text, parent), color_(color)
{
    setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    style().labelOption().padding.set(0,
                                      ZrSides(0, 0, 0, fontUnits(SquareUnits) + unitsX(GapUnits)));
}

void LegendLabel::setColor(const ZrColor &color)
{
    if (color == color_)
        return;
    color_ = color;
    update();
}

void LegendLabel::paintEvent(ZrPaintEvent *event)
{
    ZrLabel::paintEvent(event);
    const int side = fontUnits(SquareUnits);
    ZrPainter(this).fillRect(ZrRect(0, (height() - side) / 2, side, side), color_);
}
