#include "support/entryscreen.h"

#include <zrdateedit>
#include <zrscreen>
#include <zrtiplabel>

using zrtest::EntryScreen;
using zrtest::utf8;

namespace
{

class Day : public ZrDateEdit
{
public:
    explicit Day(ZrWidget *parent) : ZrDateEdit(parent)
    {
        connect(this, &dateChanged, this, zrSlot<&Day::count>);
    }
    int changes = 0;
    int opened = 0;

protected:
    void openPopup() override { opened++; }

private:
    void count() { changes++; }
};

ZrDate day(int year, int month, int dayOfMonth)
{
    return ZrDate(year, month, dayOfMonth, Zr::Gregorian);
}

using DateEdit = EntryScreen;
using TipLabel = EntryScreen;

} // namespace

TEST_F(DateEdit, ShowsAndKeepsADayWithinItsRange)
{
    Day edit(window.get());
    edit.setDate(day(2026, 2, 1));
    EXPECT_EQ(utf8(edit.shownText()), "01/02/2026");
    edit.setDisplayFormat(ZrString("yyyy-MM-dd"));
    EXPECT_EQ(utf8(edit.shownText()), "2026-02-01");
    const int before = edit.changes;
    edit.setDate(ZrDate());
    edit.setDate(day(2026, 2, 1));
    EXPECT_EQ(edit.changes, before);
    edit.setDateRange(day(2026, 3, 1), ZrDate());
    EXPECT_EQ(utf8(edit.shownText()), "2026-03-01") << "moved into the range";
    edit.setDateRange(day(2026, 3, 1), day(2026, 3, 31));
    edit.setDate(day(2027, 1, 1));
    EXPECT_EQ(utf8(edit.shownText()), "2026-03-31");
    EXPECT_EQ(edit.changes, before + 2);
}

TEST_F(DateEdit, EnterAndAClickOpenThePopup)
{
    auto *edit = show(new Day(window.get()), ZrRect(20, 20, 200, 36));
    EXPECT_TRUE(key(Zr::Key_Enter));
    EXPECT_FALSE(key(Zr::Key_Down));
    EXPECT_FALSE(type("1"));
    EXPECT_EQ(edit->opened, 1);
    screen->click(100, 30);
    EXPECT_EQ(edit->opened, 2);
    screen->pointer(100, 30, 1);
    screen->pointer(400, 300, 1);
    screen->pointer(400, 300, 0);
    EXPECT_EQ(edit->opened, 2) << "the pointer left before it let go";
    screen->pointer(100, 30, 2);
    screen->pointer(100, 30, 0);
    EXPECT_EQ(edit->opened, 2) << "another button";
}

TEST_F(TipLabel, StaysOnTheScreenAndTakesNothing)
{
    ZrTipLabel tip;
    tip.setAttribute(ZrWidget::DeleteOnClose, false);
    tip.setText(ZrString("A tip of more words than a third of the screen has room for"));
    EXPECT_LE(tip.sizeHint().width(), Width / 3);
    auto *edit = show(new Day(window.get()), ZrRect(20, 20, 200, 36));
    for (const ZrPoint &at :
         {ZrPoint(5, 5), ZrPoint(630, 10), ZrPoint(630, 395), ZrPoint(0, 395)}) {
        tip.showAt(at);
        screen->settle();
        EXPECT_TRUE(ZrRect(0, 0, Width, Height).contains(tip.geometry()))
            << at.x() << "," << at.y();
        EXPECT_FALSE(tip.geometry().contains(at)) << "not under the pointer";
        EXPECT_TRUE(edit->hasFocus());
    }
    tip.showAt(ZrPoint(20, 10));
    screen->click(60, 40);
    EXPECT_EQ(edit->opened, 1) << "the pointer goes through it";
}
