// Menus of one choice and of several.
#include "support/recorderscreen.h"
#include "ui/controls/checklist.h"
#include "ui/controls/menu.h"
#include "ui/controls/multiselectmenu.h"
#include "ui/text_ids.h"

#include <zrcheckbox>
#include <zrguard>
#include <zrpushbutton>
#include <zrtimer>

namespace
{

class Menus : public zrtest::RecorderScreen
{
protected:
    // Actions 0 to 4; 1 is disabled, 3 does not show.
    Menu *makeMenu()
    {
        auto *made = new Menu; // deletes itself once it is closed
        for (int action = 0; action < 5; ++action)
            made->addItem(action, ZrString("Item %1").arg(action));
        made->itemByAction(1)->enabled = false;
        made->itemByAction(3)->visible = false;
        made->addSeparator();
        log.watch<'t'>(made, &made->triggered);
        ZrObject::connect(made, &made->triggered, window.get(), noteAction);
        return made;
    }
    static void noteAction(ZrObject *sender, ZrObject *, ZrSlotList *)
    {
        chosen = static_cast<Menu *>(sender)->triggeredItem()->action;
    }
    void SetUp() override { chosen = -1; }
    ZrPoint onScreen(const Menu &menu, int index)
    {
        return menu.mapToGlobal(menu.itemRect(index).center());
    }

    zrtest::SignalLog log;
    static int chosen;
};

int Menus::chosen = -1;

} // namespace

TEST_F(Menus, KeysWalkRoundAndChoose)
{
    const ZrGuard<Menu> menu(makeMenu());
    menu->popup(ZrPoint(100, 100));
    screen->settle();
    EXPECT_TRUE(menu->hasFocus());
    EXPECT_TRUE(key(Zr::Key_Enter)) << "nothing is current yet";
    EXPECT_EQ(log.take(), "");
    const struct {
        int key;
        int current;
    } rows[] = {{Zr::Key_Down, 0}, {Zr::Key_Down, 2}, {Zr::Key_Down, 4},
                {Zr::Key_Down, 0}, {Zr::Key_Up, 4},   {Zr::Key_Up, 2}};
    for (const auto &row : rows) {
        key(row.key);
        EXPECT_EQ(menu->currentRow(), row.current);
    }
    key(Zr::Key_Enter);
    EXPECT_EQ(log.take(), "t");
    EXPECT_EQ(chosen, 2);
    EXPECT_FALSE(menu) << "closed and gone";
}

TEST_F(Menus, PointerChoosesWhatCanBeChosen)
{
    const ZrGuard<Menu> menu(makeMenu());
    menu->popup(ZrPoint(100, 100));
    for (const int dead : {1}) {
        const ZrPoint at = onScreen(*menu, dead);
        screen->click(at.x(), at.y());
        EXPECT_TRUE(menu->isVisible());
        EXPECT_EQ(menu->currentRow(), -1);
    }
    EXPECT_TRUE(menu->itemRect(3).isEmpty());
    const ZrPoint at = onScreen(*menu, 4);
    screen->pointer(at.x(), at.y());
    EXPECT_EQ(menu->currentRow(), 4);
    screen->click(at.x(), at.y());
    EXPECT_EQ(chosen, 4);
    EXPECT_FALSE(menu);

    for (const bool byKey : {false, true}) {
        const ZrGuard<Menu> other(makeMenu());
        other->popup(ZrPoint(100, 100));
        screen->settle();
        if (byKey)
            key(Zr::Key_Escape);
        else
            screen->click(900, 600);
        EXPECT_FALSE(other);
    }
    EXPECT_EQ(log.take(), "t") << "the others ended without a choice";
}

TEST_F(Menus, StayOnTheScreen)
{
    const Menu::Corner corners[] = {Menu::Corner::TopLeft, Menu::Corner::TopRight,
                                    Menu::Corner::BottomLeft, Menu::Corner::BottomRight};
    for (const Menu::Corner corner : corners) {
        for (const ZrPoint at : {ZrPoint(0, 0), ZrPoint(Width - 1, Height - 1)}) {
            const ZrGuard<Menu> menu(makeMenu());
            menu->popup(at, corner);
            EXPECT_TRUE(ZrRect(0, 0, Width, Height).contains(menu->geometry()));
            menu->close();
            screen->settle();
        }
    }
    const ZrGuard<Menu> menu(makeMenu());
    menu->popup(ZrPoint(500, 400), Menu::Corner::BottomRight);
    EXPECT_EQ(menu->geometry().right(), 500);
    EXPECT_EQ(menu->geometry().bottom(), 400);
}

TEST_F(Menus, SlotsMayDeleteTheMenu)
{
    auto *menu = new Menu;
    menu->addItem(1, ZrString("Only"));
    const ZrGuard<Menu> alive(menu);
    ZrObject::connect(menu, &menu->triggered, &log, zrtest::deleteSender);
    menu->popup(ZrPoint(100, 100));
    menu->downKey();
    menu->clickKey();
    EXPECT_FALSE(alive);
    screen->settle();
}

TEST_F(Menus, SeveralChoicesAtOnce)
{
    ZrStringList texts;
    for (const char *text : {"a", "b", "c"})
        texts.append(ZrString(text));
    ZrBitArray before(3);
    before.setBit(1);
    MultiSelectMenu menu(texts, before);
    menu.setGeometry(ZrRect(ZrPoint(100, 100), menu.sizeHint()));
    menu.show();
    screen->settle();
    const auto clickRow = [&](int row) {
        const CheckList &list = *menu.list();
        const ZrPoint at = list.viewport()->mapToGlobal(list.rowRect(row).center());
        screen->click(at.x(), at.y());
    };
    EXPECT_FALSE(menu.allBox()->isChecked());
    clickRow(0);
    clickRow(2);
    EXPECT_TRUE(menu.allBox()->isChecked()) << "all rows are on";
    clickRow(1);
    EXPECT_FALSE(menu.allBox()->isChecked());
    EXPECT_EQ(menu.checkedRows().countSet(), 2);
    menu.allBox()->click();
    EXPECT_TRUE(menu.checkedRows().allSet());
    menu.allBox()->click();
    EXPECT_TRUE(menu.checkedRows().allCleared());
}

TEST_F(Menus, SeveralChoicesAreAnswered)
{
    ZrStringList texts;
    texts.append(ZrString("a"));
    for (const bool ok : {true, false}) {
        MultiSelectMenu menu(texts, ZrBitArray(1));
        ZrSingleShotTimer::singleShot(
            0, &menu, ok ? zrSlot<&MultiSelectMenu::accept> : zrSlot<&MultiSelectMenu::reject>);
        zrtest::fakeTime() += 1000000;
        screen->application().timerCore()->activate();
        EXPECT_EQ(menu.execAt(ZrPoint(Width, Height)), ok ? 1 : 0);
        EXPECT_TRUE(ZrRect(0, 0, Width, Height).contains(menu.geometry()));
    }
}
