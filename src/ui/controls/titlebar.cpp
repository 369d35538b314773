#include "ui/controls/titlebar.h"

#include "ui/scale.h"
#include "ui/stylefiles.h"

#include <algorithm>
#include <zrpainter>

namespace
{

constexpr float InsetUnits = 12;
constexpr float FontUnits = 18;

} // namespace

TitleBar::TitleBar(const ZrString &title, ZrWidget *parent) : ZrLabel(title, parent)
{
    const ZrIniFile &file = commonStyleFile();
    line_ = file.colorValue(ZrString("ShortcutTitle/BottomLine/Color"));
    lineUnits_ = file.intValue(ZrString("ShortcutTitle/BottomLine/Width"));
    ZrLabelOption &look = style().labelOption();
    look.foreground.set(0, file.colorValue(ZrString("ShortcutTitle/Foreground/Normal")));
    look.background.set(0, file.colorValue(ZrString("ShortcutTitle/Background/Normal")));
    look.padding.set(0, ZrSides(0, unitsX(InsetUnits), 0, unitsX(InsetUnits)));
    setFont(ZrFont(fontUnits(FontUnits)), 0);
    setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    setElided(true);
}

ZrSize TitleBar::sizeHint() const
{
    return ZrSize(ZrLabel::sizeHint().width(), unitsY(HeightUnits));
}

void TitleBar::paintEvent(ZrPaintEvent *event)
{
    ZrLabel::paintEvent(event);
    const int thickness = std::max(1, unitsY(float(lineUnits_)));
    ZrPainter(this).fillRect(ZrRect(0, height() - thickness, width(), thickness), line_);
}
