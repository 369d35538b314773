#include "live/layoutmenus.h"

#include "link/deviceparams.h"
#include "link/startup.h"
#include "live/splitmodes.h"
#include "live/zrvideoscreenlayoutmanager.h"
#include "ui/maincommands.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrinifile>
#include <zrpainter>
#include <zrtranslation>

namespace
{

constexpr float ButtonUnits = 50;
constexpr float MarginUnits = 8;
constexpr int NoMode = -1;

// data: images/mainview-layout*-hover.png images/more-layout{,-hover}.png
ZrImage loadImage(const ZrString &name)
{
    return ZrImage(resolveResourcePath(ZrString("images/") + name + ZrString(".png")));
}

LayoutButton *modeButton(int id, ZrWidget *menu)
{
    const ZrString file = ZrString("mainview-layout") + ZrString(live::SplitModes[id].name);
    return new LayoutButton(file, id, menu); // owned by the menu
}

void nameModes(const ZrVector<LayoutButton *> &buttons)
{
    for (LayoutButton *button : buttons)
        button->setToolTip(ZrVideoScreenLayoutManager::instance()->nameOfMode(button->modeId()));
}

// Where the nth button of a grid stands.
ZrRect gridPlace(int index, int columns)
{
    const int button = fontUnits(ButtonUnits);
    const int margin = fontUnits(MarginUnits);
    return ZrRect(margin + index % columns * (button + margin),
                  margin + index / columns * (button + margin), button, button);
}

ZrSize gridSize(int columns, int rows)
{
    const int step = fontUnits(ButtonUnits) + fontUnits(MarginUnits);
    return ZrSize(columns * step + fontUnits(MarginUnits), rows * step + fontUnits(MarginUnits));
}

} // namespace

LayoutButton::LayoutButton(const ZrString &file, int modeId, ZrWidget *parent)
    : ZrWidget(parent),
      image_(loadImage(file)),
      hoverImage_(loadImage(file + ZrString("-hover"))),
      modeId_(modeId)
{
    setAttribute(Hover);
    setFocusPolicy(AnyFocus);
}

void LayoutButton::paintEvent(ZrPaintEvent *)
{
    const ZrImage &image = isHovered() || hasFocus() ? hoverImage_ : image_;
    if (!image.isNull())
        ZrPainter(this).drawScaledPixmap(rect(), image);
}

void LayoutButton::mousePressEvent(ZrMouseEvent *event)
{
    event->accept();
}

void LayoutButton::mouseReleaseEvent(ZrMouseEvent *event)
{
    event->accept();
    if (event->button() == Zr::LeftButton && rect().contains(event->position()))
        emit(this, &clicked);
}

void LayoutButton::keyPressEvent(ZrKeyEvent *event)
{
    if (event->key() != Zr::Key_Enter) {
        ZrWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    emit(this, &clicked);
}

void LayoutButton::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrWidget::hoverEnterEvent(event);
    update();
}

void LayoutButton::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrWidget::hoverLeaveEvent(event);
    update();
}

void LayoutButton::focusInEvent(ZrFocusEvent *event)
{
    ZrWidget::focusInEvent(event);
    update();
}

void LayoutButton::focusOutEvent(ZrFocusEvent *event)
{
    ZrWidget::focusOutEvent(event);
    update();
}

ScreanLayoutMenu::ScreanLayoutMenu(ZrWidget *parent)
    : ZrWidget(parent), more_(new LayoutButton(ZrString("more-layout"), NoMode, this))
{
    for (int i = 0; i < live::offeredRegularModes(channelCount()); ++i) {
        LayoutButton *button = modeButton(live::RegularModes[i], this);
        button->setGeometry(gridPlace(i, int(std::size(live::RegularModes)) + 1));
        connect(button, &button->clicked, this, zrSlot<&ScreanLayoutMenu::pick>);
        buttons_.append(button);
    }
    more_->setGeometry(gridPlace(buttons_.size(), int(std::size(live::RegularModes)) + 1));
    connect(more_, &more_->clicked, this, zrSlot<&ScreanLayoutMenu::showMore>);
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&ScreanLayoutMenu::retranslate>);
    retranslate();
}

void ScreanLayoutMenu::retranslate()
{
    setToolTip(tr(Text::SplitModes));
    nameModes(buttons_);
}

ZrSize ScreanLayoutMenu::sizeHint() const
{
    return gridSize(buttons_.size() + 1, 1);
}

void ScreanLayoutMenu::pick(ZrObject *button)
{
    postMainViewCommand(MainViewCommand::SetLayout, static_cast<LayoutButton *>(button)->modeId());
}

void ScreanLayoutMenu::showMore()
{
    MoreLayoutMenu *menu = MoreLayoutMenu::instance();
    const ZrPoint corner = more_->mapToGlobal(ZrPoint(0, 0));
    menu->adjustSize();
    menu->move(ZrPoint(corner.x(), corner.y() - menu->height()));
    menu->show();
}

MoreLayoutMenu *MoreLayoutMenu::instance_ = nullptr;

MoreLayoutMenu *MoreLayoutMenu::instance()
{
    if (!instance_)
        instance_ = new MoreLayoutMenu; // its own: it lives as long as the process
    return instance_;
}

MoreLayoutMenu::MoreLayoutMenu()
{
    const ZrIniFile file(resolveResourcePath(ZrString("style/mainview.ini")));
    border_ = file.colorValue(ZrString("ManulWidget/Border"));
    background_ = file.colorValue(ZrString("ManulWidget/Background"));
    line_ = file.colorValue(ZrString("ManulWidget/Line/Color"));
    lineWidth_ = file.intValue(ZrString("ManulWidget/Line/Width"));
    setWindowFlags(Popup);
    setAttribute(DeleteOnClose, false);
    const int count = live::offeredUnevenModes(channelCount());
    while (side_ * side_ < count)
        ++side_;
    for (int i = 0; i < count; ++i) {
        LayoutButton *button = modeButton(live::UnevenModes[i], this);
        button->setGeometry(gridPlace(i, side_));
        connect(button, &button->clicked, this, zrSlot<&MoreLayoutMenu::pick>);
        buttons_.append(button);
    }
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&MoreLayoutMenu::retranslate>);
    retranslate();
}

void MoreLayoutMenu::retranslate()
{
    nameModes(buttons_);
}

MoreLayoutMenu::~MoreLayoutMenu()
{
    instance_ = nullptr;
}

ZrSize MoreLayoutMenu::sizeHint() const
{
    return gridSize(side_, side_);
}

void MoreLayoutMenu::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    painter.fillRect(rect(), background_);
    painter.setPen(ZrPen(border_, 1));
    painter.drawRect(rect());
    painter.setPen(ZrPen(line_, lineWidth_));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void MoreLayoutMenu::pick(ZrObject *button)
{
    lastMode_ = static_cast<LayoutButton *>(button)->modeId();
    postMainViewCommand(MainViewCommand::SetLayout, lastMode_);
    close();
}
