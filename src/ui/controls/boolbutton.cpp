#include "ui/controls/boolbutton.h"

#include "ui/controls/flatbutton.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "widgets/style/boxmodel.h"
#include "widgets/style/drawpicture.h"

namespace
{

// By checked or not, and then by look.
enum Look { Plain, Lit, Dim };
const char *const Pictures[2][3] = {
    {"images/switch-off.png", "images/switch-off-hover.png", "images/switch-off-disabled.png"},
    {"images/switch-on.png", "images/switch-on-hover.png", "images/switch-on-disabled.png"},
};
constexpr float AroundUnits = 6; // room for the focus ring

} // namespace

BoolButton::BoolButton(ZrWidget *parent) : ZrPushButton(parent)
{
    setCheckable(true);
    makeFlat(this);
}

const ZrPixmap &BoolButton::shownPicture() const
{
    const Look look = !isEnabled() ? Dim : isHovered() || hasFocus() ? Lit : Plain;
    return picture(Pictures[isChecked() ? 1 : 0][look]);
}

ZrSize BoolButton::sizeHint() const
{
    const ZrSize size = pictureSize(shownPicture());
    return ZrSize(size.width() + 2 * unitsX(AroundUnits), size.height() + 2 * unitsY(AroundUnits));
}

void BoolButton::paintEvent(ZrPaintEvent *)
{
    const ZrPixmap &shown = shownPicture();
    const ZrSize size = pictureSize(shown);
    const ZrPoint middle = rect().center();
    const ZrRect place(
        ZrPoint(middle.x() - (size.width() - 1) / 2, middle.y() - (size.height() - 1) / 2), size);
    ZrPainter painter(this);
    if (!shown.isNull())
        drawPicture(painter, place, shown);
    if (!hasFocus())
        return;
    const int across = unitsX(AroundUnits);
    const int along = unitsY(AroundUnits);
    BoxModel(*this, style().pushButton())
        .drawRing(painter, place.adjusted(-across, -along, across, along) & rect());
}
