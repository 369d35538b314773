#include "entryfixture.h"

#include "ui/controls/calendar.h"
#include "ui/controls/channelnameedit.h"
#include "ui/controls/dateedit.h"
#include "ui/controls/folderedit.h"
#include "ui/controls/linetextdisplayer.h"
#include "ui/controls/numedits.h"
#include "ui/controls/passwordedit.h"
#include "ui/controls/zripv6edit.h"

#include <functional>

using zrtest::EntryFixture;
using zrtest::utf8;

namespace
{

const ZrRect Where(20, 20, 220, 36);

class NumEdits : public EntryFixture
{
};
class Fields : public EntryFixture
{
};
class Calendars : public EntryFixture
{
};

// '<' is Backspace, '(' Left, ')' Right.
void typeKeys(EntryFixture &test, const char *keys)
{
    for (; *keys; ++keys) {
        const char text[] = {*keys, 0};
        switch (*keys) {
        case '<':
            test.key(Zr::Key_Backspace);
            break;
        case '(':
            test.key(Zr::Key_Left);
            break;
        case ')':
            test.key(Zr::Key_Right);
            break;
        default:
            test.type(text);
        }
    }
}

ZrDate day(int month, int dayOfMonth)
{
    return ZrDate(2026, month, dayOfMonth, Zr::Gregorian);
}

} // namespace

TEST_F(NumEdits, TypeIntoOneNumberAfterTheOther)
{
    using Make = ZrLineEdit *(*)(ZrWidget *);
    const Make ip = [](ZrWidget *parent) -> ZrLineEdit * { return new ZrIpEdit(parent); };
    const Make time = [](ZrWidget *parent) -> ZrLineEdit * {
        return new ZrTimeEdit(ZrTimeEdit::WithSeconds, parent);
    };
    const Make number = [](ZrWidget *parent) -> ZrLineEdit * {
        auto *edit = new ZrNumEdit(parent);
        edit->setRange(-50, 180);
        return edit;
    };
    const Make fixed = [](ZrWidget *parent) -> ZrLineEdit * { return new NumFixedEdit(4, parent); };
    const struct {
        const char *what;
        Make make;
        const char *keys, *text;
    } rows[] = {
        {"full numbers pass the turn", ip, "19216810.100", "192.168.10.100"},
        {"the separator passes it", ip, "10.0.0.1", "10.0.0.1"},
        {"a digit too much is the next number's", ip, "2561", "25.61.0.0"},
        {"a separator before any digit is none", ip, ".10.2", "10.2.0.0"},
        {"the first digit replaces", ip, "10.20(7", "7.20.0.0"},
        {"arrows change the number", ip, "))9(8", "0.8.9.0"},
        {"back through the numbers", ip, "10.20<<<5", "5.0.0.0"},
        {"letters are nothing", ip, "a1b", "1.0.0.0"},
        {"hours above 23 are not", time, "2359", "23:59:00"},
        {"a digit that fills its number", time, "930", "09:30:00"},
        {"seconds stop at 59", time, "0000612", "00:00:06"},
        {"more than the most is refused", number, "1800", "180"},
        {"the sign turns", number, "25-", "-25"},
        {"below the least is refused", number, "25-1", "-25"},
        {"back to nothing", number, "25<<", ""},
        {"padded", fixed, "12", "0012"},
        {"as many digits as there are", fixed, "12345", "1234"},
        {"back", fixed, "123<", "0012"},
    };
    for (const auto &row : rows) {
        ZrLineEdit *edit = show(row.make(window.get()), Where);
        typeKeys(*this, row.keys);
        EXPECT_EQ(utf8(edit->text()), row.text) << row.what;
        delete edit;
    }
}

TEST_F(NumEdits, SettleWhenTheFieldIsLeft)
{
    auto *edit = show(new ZrNumEdit(window.get()), Where);
    edit->setRange(10, 60);
    EXPECT_EQ(edit->value(), 10);
    typeKeys(*this, "5");
    EXPECT_EQ(utf8(edit->text()), "5");
    EXPECT_EQ(edit->value(), 10) << "what is read is in the range at any time";
    show(new ZrNumEdit(window.get()), ZrRect(20, 80, 220, 36));
    EXPECT_EQ(utf8(edit->text()), "10");
}

TEST_F(NumEdits, TakeValuesOfTheirKindOnly)
{
    ZrIpEdit ip(window.get());
    EXPECT_TRUE(ip.isNull());
    EXPECT_TRUE(ip.setAddress(ZrString("10.1.2.3")));
    for (const char *wrong :
         {"", "1.2.3", "1.2.3.256", "1.2.3.4.5", "a.b.c.d", "1..2.3", "-1.2.3.4"})
        EXPECT_FALSE(ip.setAddress(ZrString(wrong))) << wrong;
    EXPECT_EQ(utf8(ip.address()), "10.1.2.3");
    ZrTimeEdit time(ZrTimeEdit::HoursAndMinutes, window.get());
    time.setTime(ZrTime(23, 59));
    time.setTime(ZrTime());
    EXPECT_EQ(time.time().hour(), 23);
    ZrIpv6Edit six(window.get());
    const struct {
        const char *text;
        bool valid;
    } addresses[] = {
        {"fe80::1", true}, {"::ffff:10.1.2.3", true}, {"fe80::1::2", false}, {"", false}};
    for (const auto &address : addresses) {
        six.setText(ZrString(address.text));
        EXPECT_EQ(six.isValid(), address.valid) << address.text;
    }
}

TEST_F(NumEdits, AClickChoosesTheNumberUnderIt)
{
    auto *edit = show(new ZrIpEdit(window.get()), Where);
    edit->setAddress(ZrString("10.20.30.40"));
    screen->click(20 + edit->textRect().left() + 2, 38);
    ASSERT_TRUE(keyboard()) << "and opens the keyboard for digits";
    EXPECT_TRUE(pressText(ZrString("7")));
    EXPECT_EQ(utf8(edit->text()), "7.20.30.40");
    // A press on the field beside its keyboard moves within the field.
    screen->pointer(20 + edit->cursorRect().right() + 14, 38, 1);
    EXPECT_TRUE(keyboard());
    EXPECT_EQ(edit->selectionStart(), 2);
}

namespace
{

struct Counter : ZrObject {
    int count = 0;
    void add() { count++; }
    void kill(ZrObject *sender) { delete sender; }
};

} // namespace

TEST_F(Fields, OpenTheirKeyboardAndCommitByItsEnter)
{
    auto *edit = show(new LineEdit(window.get()), Where);
    Counter counter;
    ZrObject::connect(edit, &edit->committed, &counter, zrSlot<&Counter::add>);
    key(Zr::Key_Enter);
    ASSERT_TRUE(keyboard());
    EXPECT_TRUE(edit->isServed());
    EXPECT_FALSE(keyboard()->geometry().intersects(Where)) << "the field stays in view";
    EXPECT_FALSE(edit->cursorRect().isEmpty()) << "and shows where it is typed";
    type("a"); // a real keyboard's text goes through
    EXPECT_TRUE(pressText(ZrString("b")));
    EXPECT_EQ(utf8(edit->text()), "ab");
    EXPECT_EQ(counter.count, 0);
    EXPECT_TRUE(pressKey(KeyboardKey::Done));
    EXPECT_EQ(counter.count, 1);
    EXPECT_FALSE(keyboard());
    EXPECT_FALSE(edit->isServed());
    EXPECT_TRUE(edit->hasFocus());
    key(Zr::Key_Enter);
    key(Zr::Key_Escape);
    EXPECT_FALSE(keyboard());
    EXPECT_EQ(counter.count, 1);
    // So does a press beside both.
    key(Zr::Key_Enter);
    screen->click(Width - 2, Height - 2);
    EXPECT_FALSE(keyboard());
}

TEST_F(Fields, EnterEndsWhatARealKeyboardTyped)
{
    Counter counter;
    auto *edit = show(new LineEdit(window.get()), Where);
    ZrObject::connect(edit, &edit->committed, &counter, zrSlot<&Counter::add>);
    navigation.text(ZrString("ab"));
    navigation.enter();
    EXPECT_EQ(counter.count, 1);
    EXPECT_FALSE(keyboard());
    navigation.enter();
    ASSERT_TRUE(keyboard()) << "nothing was typed since";
    navigation.text(ZrString("c"));
    navigation.enter();
    EXPECT_EQ(utf8(edit->text()), "abc") << "the key that the arrows stood on is not meant";
    EXPECT_EQ(counter.count, 2);
    EXPECT_FALSE(keyboard());
    auto *ip = show(new ZrIpEdit(window.get()), Where);
    ZrObject::connect(ip, &ip->committed, &counter, zrSlot<&Counter::add>);
    navigation.text(ZrString("7"));
    navigation.enter();
    EXPECT_EQ(counter.count, 3);
    EXPECT_FALSE(keyboard());
}

TEST_F(Fields, TheKeyboardGoesWithItsField)
{
    const struct {
        const char *what;
        std::function<void(LineEdit *)> end;
    } rows[] = {
        {"deleted", [](LineEdit *edit) { delete edit; }},
        {"hidden", [](LineEdit *edit) { edit->hide(); }},
        {"deleted by what was typed",
         [this](LineEdit *edit) {
             static Counter killer;
             ZrObject::connect(edit, &edit->textChanged, &killer, zrSlot<&Counter::kill>);
             pressText(ZrString("x"));
         }},
        {"deleted by the commit",
         [this](LineEdit *edit) {
             static Counter killer;
             ZrObject::connect(edit, &edit->committed, &killer, zrSlot<&Counter::kill>);
             pressKey(KeyboardKey::Done);
         }},
    };
    for (const auto &row : rows) {
        auto *edit = show(new LineEdit(window.get()), Where);
        key(Zr::Key_Enter);
        ASSERT_TRUE(keyboard()) << row.what;
        row.end(edit);
        screen->settle();
        EXPECT_FALSE(keyboard()) << row.what;
    }
}

TEST_F(Fields, KeepTheirOwnLimits)
{
    ChannelNameEdit name(window.get());
    name.setText(ZrString(40, ZrUcs2(0xE4)));
    EXPECT_EQ(name.text().toUtf8().size(), 34) << "no half of a character";
    FolderEdit folder(window.get());
    folder.insert(ZrString("/rec*ords?/a"));
    EXPECT_EQ(utf8(folder.text()), "/records/a");
    auto *fixed = show(new LineTextDisplayer(window.get()), Where);
    fixed->setText(ZrString("only read"));
    screen->click(40, 38);
    EXPECT_FALSE(keyboard());
    EXPECT_FALSE(fixed->hasFocus());
    EXPECT_EQ(utf8(fixed->toolTip()), "only read");
}

TEST_F(Fields, APasswordsKeyboardOffersNoWords)
{
    auto *password = show(new PasswordEdit(window.get()), Where);
    key(Zr::Key_Enter);
    auto *text = dynamic_cast<TextKeyboard *>(keyboard());
    ASSERT_TRUE(text);
    text->setLayout(keyboardLayoutOf(0));
    type("n");
    type("i");
    EXPECT_EQ(utf8(password->text()), "ni") << "nothing is kept back to be spelt";
    EXPECT_EQ(utf8(password->shownText()), "•i");
}

TEST_F(Calendars, AreWalkedByArrows)
{
    auto *calendar = show(new Calendar(window.get()), ZrRect(20, 20, 280, 260));
    calendar->setDate(day(3, 3));
    const struct {
        bool (Calendar::*step)();
        bool moves;
        int month;
    } steps[] = {
        {&Calendar::upKey, false, 3}, // the first week: the focus may leave
        {&Calendar::leftKey, true, 3},  {&Calendar::leftKey, true, 3},
        {&Calendar::leftKey, true, 2},  {&Calendar::downKey, false, 2},
        {&Calendar::rightKey, true, 3}, {&Calendar::downKey, true, 3},
    };
    for (const auto &step : steps) {
        EXPECT_EQ((calendar->*step.step)(), step.moves);
        EXPECT_EQ(calendar->firstDay(), day(step.month, 1));
    }
    Counter clicks;
    ZrObject::connect(calendar, &calendar->dayClicked, &clicks, zrSlot<&Counter::add>);
    calendar->clickKey();
    EXPECT_EQ(calendar->date(), day(3, 8));
    calendar->setDateRange(day(3, 10), day(3, 20));
    calendar->clickKey();
    EXPECT_EQ(clicks.count, 1) << "not a day of the range";
    // The pointer: another month, and a day of it.
    Counter months;
    ZrObject::connect(calendar, &calendar->monthChanged, &months, zrSlot<&Counter::add>);
    calendar->setDateRange(ZrDate(), ZrDate());
    screen->click(20 + calendar->nextRect().center().x(), 20 + calendar->nextRect().center().y());
    EXPECT_EQ(months.count, 1);
    const ZrPoint place = calendar->dayRect(day(4, 30)).center();
    screen->click(20 + place.x(), 20 + place.y());
    EXPECT_EQ(calendar->date(), day(4, 30));
}

TEST_F(Calendars, ADateFieldTakesTheChosenDay)
{
    auto *edit = show(new DateEdit(window.get()), Where);
    edit->setDate(day(5, 31));
    const auto open = [&] {
        key(Zr::Key_Enter);
        ASSERT_TRUE(edit->popup());
    };
    open();
    navigation.arrow(KeyNavigation::Direction::Right);
    navigation.enter();
    screen->settle();
    EXPECT_EQ(edit->date(), day(6, 1));
    EXPECT_FALSE(edit->popup());
    EXPECT_TRUE(edit->hasFocus());
    open();
    navigation.key(Zr::Key_Escape);
    screen->settle();
    EXPECT_FALSE(edit->popup());
    open();
    delete edit;
    screen->settle();
    EXPECT_FALSE(ZrDesktop::activePopup());
    // A handler of the choice may delete the field.
    edit = show(new DateEdit(window.get()), Where);
    Counter killer;
    ZrObject::connect(edit, &edit->dateChanged, &killer, zrSlot<&Counter::kill>);
    key(Zr::Key_Enter);
    navigation.arrow(KeyNavigation::Direction::Left);
    navigation.enter();
    screen->settle();
    EXPECT_FALSE(ZrDesktop::activePopup());
}
