#include "ui/controls/toolbutton.h"

#include "ui/scale.h"
#include "ui/stylefiles.h"

#include <zrpainter>

namespace
{

constexpr float BarUnits = 4;

} // namespace

ToolButton::ToolButton(const StatePictures &pictures, ZrWidget *parent)
    : IconButton(pictures, parent),
      bar_(commonStyleFile().colorValue(ZrString("Common/Accent/Color")))
{
}

ZrSize ToolButton::sizeHint() const
{
    return ZrSize(unitsX(SideUnits), unitsY(SideUnits));
}

void ToolButton::paintEvent(ZrPaintEvent *event)
{
    IconButton::paintEvent(event);
    if (!isChecked())
        return;
    const int thickness = unitsY(BarUnits);
    ZrPainter(this).fillRect(ZrRect(0, height() - thickness, width(), thickness), bar_);
}
