#include "live/layoutmenus.h"

#include "link/deviceparams.h"
#include "live/splitmodes.h"
#include "live/zrvideoscreenlayoutmanager.h"
#include "ui/controls/iconbutton.h"
#include "ui/maincommands.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"

#include <string>
#include <zrpainter>
#include <zrtranslation>

namespace
{

constexpr float ButtonUnits = 50;
constexpr float MarginUnits = 8;

// data: images/mainview-layout*-hover.png
IconButton *modeButton(int id, ZrWidget *menu)
{
    const std::string file = std::string("images/mainview-layout") + live::SplitModes[id].name;
    const std::string normal = file + ".png";
    const std::string hover = file + "-hover.png";
    auto *button = new IconButton({normal.c_str(), hover.c_str()}, menu); // owned by the menu
    button->setAction(id);
    return button;
}

void nameModes(const ZrVector<IconButton *> &buttons)
{
    for (IconButton *button : buttons)
        button->setToolTip(ZrVideoScreenLayoutManager::instance()->nameOfMode(button->action()));
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

ScreanLayoutMenu::ScreanLayoutMenu(ZrWidget *parent)
    : ZrWidget(parent),
      more_(new IconButton({"images/more-layout.png", "images/more-layout-hover.png"}, this))
{
    for (int i = 0; i < live::offeredRegularModes(channelCount()); ++i) {
        IconButton *button = modeButton(live::RegularModes[i], this);
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
    postMainViewCommand(MainViewCommand::SetLayout, static_cast<IconButton *>(button)->action());
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
    const ZrIniFile &file = styleFile("style/mainview.ini");
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
        IconButton *button = modeButton(live::UnevenModes[i], this);
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
    lastMode_ = static_cast<IconButton *>(button)->action();
    postMainViewCommand(MainViewCommand::SetLayout, lastMode_);
    close();
}
