// The recorder's own controls: buttons with pictures, tips, switches, tabs, selectors.
#include "support/recorderscreen.h"
#include "ui/controls/boolbutton.h"
#include "ui/controls/combobox.h"
#include "ui/controls/daysselector.h"
#include "ui/controls/formattypeselector.h"
#include "ui/controls/iconbutton.h"
#include "ui/controls/pressedbutton.h"
#include "ui/controls/scrollarea.h"
#include "ui/controls/tabbar.h"
#include "ui/controls/wndtitlebar.h"
#include "ui/text_ids.h"

#include <zrbuttongroup>
#include <zrguard>
#include <zrradiobutton>

namespace
{

class RecorderControls : public zrtest::RecorderScreen
{
protected:
    zrtest::SignalLog log;
};

} // namespace

TEST_F(RecorderControls, APictureForEachState)
{
    auto *button = show(new IconButton({"images/crop.png", "images/crop-hover.png",
                                        "images/crop-disabled.png", "images/crop-on.png"},
                                       window.get()),
                        ZrRect(20, 20, 40, 40));
    const auto shows = [&](const char *path) {
        return button->shownPicture().isSharedWith(picture(path));
    };
    EXPECT_FALSE(picture("images/crop.png").isNull());
    EXPECT_TRUE(shows("images/crop.png"));
    screen->pointer(30, 30);
    EXPECT_TRUE(shows("images/crop-hover.png"));
    screen->pointer(30, 30, 1);
    EXPECT_TRUE(shows("images/crop-on.png"));
    button->setEnabled(false);
    EXPECT_TRUE(shows("images/crop-disabled.png"));
    button->setPictures({"images/crop.png"});
    EXPECT_TRUE(shows("images/crop.png")) << "a state without a picture";
}

TEST_F(RecorderControls, SwitchesAndPressedButtonsStay)
{
    auto *toggle = show(new BoolButton(window.get()), ZrRect(20, 20, 60, 40));
    log.watch<'c'>(toggle, &toggle->clicked);
    screen->click(30, 30);
    EXPECT_TRUE(toggle->isChecked());
    toggle->setFocus(Zr::KeyManagerFocus);
    key(Zr::Key_Enter);
    screen->pass(ZrAbstractButton::KeyPressMs);
    EXPECT_FALSE(toggle->isChecked());
    EXPECT_EQ(log.take(), "cc");

    ZrButtonGroup group;
    auto *hour = show(new PressedButton(ZrString("1h"), window.get()), ZrRect(20, 80, 60, 40));
    auto *day = show(new PressedButton(ZrString("24h"), window.get()), ZrRect(90, 80, 60, 40));
    group.addButton(hour);
    group.addButton(day);
    screen->click(100, 90);
    screen->click(30, 90);
    EXPECT_TRUE(hour->isChecked());
    EXPECT_FALSE(day->isChecked());
}

TEST_F(RecorderControls, TabsByPointerAndKeys)
{
    auto *bar = show(new TabBar(window.get()), ZrRect(0, 0, 900, 50));
    log.watch<'t'>(bar, &bar->currentChanged);
    for (const char *text : {"One", "Two", "Three", "Four"})
        bar->addTab(ZrString(text));
    bar->setTabEnabled(1, false);
    log.take();
    const ZrPoint last = bar->tabRect(3).center();
    screen->click(last.x(), last.y());
    EXPECT_EQ(bar->currentIndex(), 3);
    EXPECT_EQ(log.take(), "t");
    screen->click(last.x(), last.y());
    const ZrPoint disabled = bar->tabRect(1).center();
    screen->click(disabled.x(), disabled.y());
    EXPECT_EQ(log.take(), "") << "the current one again, and a disabled one";

    bar->focusIn(bar->tabRect(2).center());
    EXPECT_TRUE(bar->leftKey());
    EXPECT_EQ(bar->focusedTab(), 0) << "past the disabled one";
    EXPECT_FALSE(bar->leftKey()) << "the end: the focus moves on";
    EXPECT_EQ(bar->currentIndex(), 3) << "walking chooses nothing";
    bar->clickKey();
    EXPECT_EQ(bar->currentIndex(), 0);
    EXPECT_EQ(log.take(), "t");

    bar->resize(ZrSize(101, 50));
    for (int i = 1; i < bar->count(); ++i)
        EXPECT_EQ(bar->tabRect(i).left(), bar->tabRect(i - 1).right() + 1);
    EXPECT_EQ(bar->tabRect(3).right(), 100) << "tabs that do not fit become narrower";
    const ZrGuard<TabBar> alive(bar);
    ZrObject::connect(bar, &bar->currentChanged, &log, zrtest::deleteSender);
    bar->focusIn(bar->tabRect(2).center());
    bar->clickKey();
    EXPECT_FALSE(alive);
}

TEST_F(RecorderControls, ScrollAreasFollowTheFocusOfKeys)
{
    auto *area = show(new ScrollArea(window.get()), ZrRect(0, 0, 200, 100));
    auto *inner = new ZrWidget;
    inner->resize(ZrSize(180, 600));
    auto *far = new ZrPushButton(inner);
    far->setGeometry(ZrRect(0, 500, 100, 40));
    area->setWidget(inner);
    far->setFocus(Zr::KeyManagerFocus);
    EXPECT_EQ(inner->pos().y(), -440);
    auto *button = show(new ZrPushButton(window.get()), ZrRect(400, 0, 50, 40));
    button->setFocus(Zr::KeyManagerFocus);
    EXPECT_EQ(inner->pos().y(), -440) << "focus elsewhere";
    delete area;
    far = nullptr;
    button->setFocus(Zr::KeyManagerFocus);
}

TEST_F(RecorderControls, SelectorsTellTheChoice)
{
    auto *days = show(new DaysSelector(window.get()), ZrRect(0, 0, 420, 34));
    log.watch<'d'>(days, &days->daysChanged);
    EXPECT_EQ(utf8(days->dayButton(0)->text()), "Mon");
    days->setDays(0x60);
    EXPECT_EQ(log.take(), "") << "set by the program";
    screen->click(10, 10);
    EXPECT_EQ(days->days(), 0x61);
    EXPECT_EQ(log.take(), "d");

    FormatTypeSelector selector;
    EXPECT_EQ(selector.type(), FormatTypeSelector::Everything);
    selector.choice(FormatTypeSelector::AiData)->click();
    EXPECT_EQ(selector.type(), FormatTypeSelector::AiData);
    selector.setValue(7);
    EXPECT_EQ(selector.type(), FormatTypeSelector::AiData) << "no such choice";
    EXPECT_FALSE(selector.choice(FormatTypeSelector::Recordings)->isChecked());
}

TEST_F(RecorderControls, TextsFollowTheLanguage)
{
    auto *combo = show(new ComboBox(window.get()), ZrRect(0, 0, 200, 34));
    combo->addItem(ZrString("fixed"), 5);
    combo->addText(Text::Yes, 1);
    combo->addText(Text::No, 0);
    combo->removeItem(0);
    EXPECT_EQ(utf8(combo->itemText(0)), "Yes");
    ZrTranslation::instance()->setLanguage(ZrTranslation::English + 1); // any other
    EXPECT_EQ(utf8(combo->itemText(0)), utf8(tr(Text::Yes)));
    EXPECT_EQ(utf8(combo->itemText(1)), utf8(tr(Text::No)));
    ZrTranslation::instance()->setLanguage(ZrTranslation::English);
}

TEST_F(RecorderControls, AWindowsHeaderLeavesRoomForTabs)
{
    auto *bar = show(new WndTitleBar(window.get()), ZrRect(0, 0, Width, 52));
    const int before = bar->freeRect().left();
    bar->setTitle(ZrString("Settings"));
    bar->setHint(ZrString("3 changes"));
    EXPECT_GT(bar->freeRect().left(), before);
    EXPECT_LT(bar->freeRect().right(), bar->closeButton()->geometry().left());
    log.watch<'c'>(bar, &bar->closeClicked);
    const ZrPoint close = bar->closeButton()->geometry().center();
    screen->click(close.x(), close.y());
    EXPECT_EQ(log.take(), "c");
    ZrObject::connect(bar, &bar->closeClicked, &log, zrtest::deleteSender);
    screen->click(close.x(), close.y());
}
