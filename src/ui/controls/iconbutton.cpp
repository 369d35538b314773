#include "ui/controls/iconbutton.h"

#include "ui/controls/flatbutton.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "widgets/style/boxmodel.h"
#include "widgets/style/drawpicture.h"

#include <algorithm>

namespace
{

ZrPixmap pictureOrNone(const char *path)
{
    return path ? picture(path) : ZrPixmap();
}

} // namespace

IconButton::IconButton(ZrWidget *parent) : IconButton(StatePictures(), parent) {}

IconButton::IconButton(const StatePictures &pictures, ZrWidget *parent) : TipButton(parent)
{
    makeFlat(this);
    setPictures(pictures);
}

void IconButton::setPictures(const StatePictures &pictures)
{
    normal_ = pictureOrNone(pictures.normal);
    hover_ = pictureOrNone(pictures.hover);
    disabled_ = pictureOrNone(pictures.disabled);
    on_ = pictureOrNone(pictures.on);
    update();
}

const ZrPixmap &IconButton::shownPicture() const
{
    if (!isEnabled() && !disabled_.isNull())
        return disabled_;
    if (isEnabled() && isOn() && !on_.isNull())
        return on_;
    if (isEnabled() && (isHovered() || hasFocus()) && !hover_.isNull())
        return hover_;
    return normal_;
}

ZrSize IconButton::sizeHint() const
{
    const ZrSize picture = pictureSize(normal_);
    return ZrSize(std::max(unitsX(SideUnits), picture.width()),
                  std::max(unitsY(SideUnits), picture.height()));
}

void IconButton::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    const BoxModel box(*this, style().pushButton(), isOn());
    const ZrRect room = box.draw(painter, rect());
    const ZrPixmap &shown = shownPicture();
    drawPictureInMiddle(painter, room, pictureSize(shown), shown);
}
