#include "ui/controls/wndtitlebar.h"

#include "ui/controls/iconbutton.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "widgets/style/buttonlayout.h"
#include "widgets/style/drawpicture.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrpainter>

namespace
{

constexpr float InsetUnits = 20;
constexpr float GapUnits = 12;
constexpr float CloseUnits = 40;
constexpr float PictureUnits = 24;

} // namespace

WndTitleBar::WndTitleBar(ZrWidget *parent)
    : UiWidget(parent),
      closeButton_(new IconButton({"images/window-close.png", "images/window-close-hover.png"},
                                  this)) // a child
{
    const ZrIniFile &file = styleFile("style/wndtitlebar.ini");
    setGround(file.colorValue(ZrString("WndTitleBar/Background")));
    titleColor_ = file.colorValue(ZrString("WndTitleBar/Foreground"));
    hintColor_ = file.colorValue(ZrString("WndTitleBar/Hint/Foreground"));
    lineColor_ = file.colorValue(ZrString("WndTitleBar/BottomLine/Color"));
    titleUnits_ = file.intValue(ZrString("WndTitleBar/FontSize"));
    hintUnits_ = file.intValue(ZrString("WndTitleBar/Hint/FontSize"));
    lineUnits_ = file.intValue(ZrString("WndTitleBar/BottomLine/Width"));
    ZrPushButtonOption &look = closeButton_->style().pushButtonOption();
    look.background.set(zrIndex(ZrVisualState::Hover),
                        file.colorValue(ZrString("WndTitleBar/Button/Background/Hover")));
    look.background.set(zrIndex(ZrVisualState::Focus),
                        file.colorValue(ZrString("WndTitleBar/Button/Background/Focus")));
    look.borderColor.set(
        zrIndex(ZrVisualState::Focus),
        ZrSideColors(file.colorValue(ZrString("WndTitleBar/Button/Border/Focus"))));
    connect(closeButton_, &closeButton_->clicked, this, zrSlot<&WndTitleBar::closeWasClicked>);
}

void WndTitleBar::closeWasClicked()
{
    emit(this, &closeClicked);
}

void WndTitleBar::setTitle(const ZrString &title)
{
    if (title == title_)
        return;
    title_ = title;
    update();
}

void WndTitleBar::setHint(const ZrString &hint)
{
    if (hint == hint_)
        return;
    hint_ = hint;
    update();
}

void WndTitleBar::setPicture(const char *path)
{
    picture_ = picture(path);
    update();
}

// --- geometry ---

ZrRect WndTitleBar::pictureRect() const
{
    const int side = picture_.isNull() ? 0 : fontUnits(PictureUnits);
    return ZrRect(unitsX(InsetUnits), (height() - side) / 2, side, side);
}

ZrRect WndTitleBar::titleRect() const
{
    const ZrRect before = pictureRect();
    const int left = before.right() + 1 + (before.isEmpty() ? 0 : unitsX(GapUnits));
    const int room = closeButton_->geometry().left() - unitsX(GapUnits) - left;
    const int wanted = textWidth(title_, ZrFont(fontUnits(float(titleUnits_))));
    return ZrRect(left, 0, std::clamp(wanted, 0, std::max(0, room)), height());
}

ZrRect WndTitleBar::hintRect() const
{
    const int left = titleRect().right() + 1 + unitsX(GapUnits);
    const int room = closeButton_->geometry().left() - unitsX(GapUnits) - left;
    const int wanted = textWidth(hint_, ZrFont(fontUnits(float(hintUnits_))));
    return ZrRect(left, 0, std::clamp(wanted, 0, std::max(0, room)), height());
}

ZrRect WndTitleBar::freeRect() const
{
    const ZrRect last = hint_.isEmpty() ? titleRect() : hintRect();
    const int line = std::max(1, unitsY(float(lineUnits_)));
    return ZrRect::fromEdges(last.right() + 1 + unitsX(GapUnits), 0,
                             closeButton_->geometry().left() - 1 - unitsX(GapUnits),
                             height() - 1 - line);
}

ZrSize WndTitleBar::sizeHint() const
{
    return ZrSize(unitsX(DesignWidth), unitsY(HeightUnits));
}

void WndTitleBar::layOut()
{
    const int side = fontUnits(CloseUnits);
    closeButton_->setGeometry(
        ZrRect(width() - side - unitsX(GapUnits) / 2, (height() - side) / 2, side, side));
}

// --- painting ---

void WndTitleBar::paintEvent(ZrPaintEvent *event)
{
    UiWidget::paintEvent(event);
    ZrPainter painter(this);
    const int line = std::max(1, unitsY(float(lineUnits_)));
    painter.fillRect(ZrRect(0, height() - line, width(), line), lineColor_);
    if (!picture_.isNull())
        drawPicture(painter, pictureRect(), picture_);
    const struct {
        const ZrString &text;
        ZrRect place;
        int units;
        const ZrColor &color;
    } parts[] = {
        {title_, titleRect(), titleUnits_, titleColor_},
        {hint_, hintRect(), hintUnits_, hintColor_},
    };
    for (const auto &part : parts) {
        const ZrFont font(fontUnits(float(part.units)));
        painter.setFont(font);
        painter.setPen(part.color);
        painter.drawText(part.place, Zr::AlignLeft | Zr::AlignVCenter,
                         ZrFontMetrics::elided(part.text, font, part.place.width()));
    }
}
