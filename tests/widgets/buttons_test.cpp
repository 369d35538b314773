// Push buttons, check boxes, radio buttons and their groups, and the group box.
#include "support/entryscreen.h"
#include "support/signallog.h"

#include <zrbuttongroup>
#include <zrcheckbox>
#include <zrgroupbox>
#include <zrguard>
#include <zrpushbutton>
#include <zrradiobutton>

using zrtest::SignalLog;

namespace
{

constexpr ZrRect Place(20, 20, 100, 40);
constexpr int LeftHeld = Zr::LeftButton;

// A button that the tests drive through its parent, which notes what climbs to it.
class Parent : public ZrWidget
{
public:
    using ZrWidget::ZrWidget;
    int presses = 0;

protected:
    void mousePressEvent(ZrMouseEvent *event) override
    {
        presses++;
        event->accept();
    }
};

class Buttons : public zrtest::EntryScreen
{
protected:
    void SetUp() override
    {
        parent = show(new Parent(window.get()), window->rect());
        button = show(new ZrPushButton(ZrString("Go"), parent), Place);
        watch(button);
    }
    void watch(ZrAbstractButton *watched)
    {
        log.watch<'c'>(watched, &watched->clicked);
        log.watch<'p'>(watched, &watched->pressed);
        log.watch<'r'>(watched, &watched->released);
    }

    SignalLog log;
    Parent *parent = nullptr;
    ZrPushButton *button = nullptr;
};

} // namespace

TEST_F(Buttons, PointerPressesAndReleases)
{
    screen->pointer(30, 30);
    EXPECT_TRUE(button->isHovered());
    screen->pointer(30, 30, LeftHeld);
    EXPECT_EQ(log.take(), "p");
    EXPECT_TRUE(button->isDown());
    EXPECT_TRUE(button->hasFocus());
    screen->pointer(400, 300, LeftHeld);
    EXPECT_TRUE(button->isDown()) << "moves change nothing";
    screen->pointer(400, 300);
    EXPECT_EQ(log.take(), "cr") << "a release outside still clicks";
    EXPECT_FALSE(button->isDown());

    screen->click(30, 30);
    screen->click(30, 30);
    EXPECT_EQ(log.take(), "pcrpcr") << "a quick second press is a press";
}

TEST_F(Buttons, LeavesOtherButtonsToTheParent)
{
    screen->pointer(30, 30, Zr::RightButton);
    EXPECT_EQ(parent->presses, 1);
    screen->pointer(30, 30);
    EXPECT_EQ(log.take(), "");
    screen->pointer(30, 30, LeftHeld);
    screen->pointer(30, 30, LeftHeld | Zr::RightButton);
    screen->pointer(30, 30, LeftHeld);
    EXPECT_TRUE(button->isDown()) << "the right one went up, the left is held";
    screen->pointer(30, 30);
    EXPECT_EQ(log.take(), "pcr");
}

TEST_F(Buttons, EnterShowsAPressAndClicksLater)
{
    EXPECT_TRUE(key(Zr::Key_Enter));
    EXPECT_TRUE(button->isDown());
    screen->pass(ZrAbstractButton::KeyPressMs - 1);
    EXPECT_EQ(log.take(), "");
    screen->pass(1);
    EXPECT_EQ(log.take(), "c");
    EXPECT_FALSE(button->isDown());

    key(Zr::Key_Enter);
    key(Zr::Key_Enter);
    screen->pass(ZrAbstractButton::KeyPressMs);
    EXPECT_EQ(log.take(), "cc") << "two presses are two clicks";

    EXPECT_FALSE(key(Zr::Key_Left));
    button->setEnabled(false);
    ZrKeyEvent enter(ZrEvent::KeyPress, Zr::Key_Enter);
    ZrApplication::notify(button, &enter);
    EXPECT_FALSE(button->isDown());
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(Buttons, RepaintOnlyThemselves)
{
    class Counting : public ZrPushButton
    {
    public:
        using ZrPushButton::ZrPushButton;
        int paints = 0;

    protected:
        void paintEvent(ZrPaintEvent *event) override
        {
            paints++;
            ZrPushButton::paintEvent(event);
        }
    };
    auto *counting = show(new Counting(parent), ZrRect(200, 20, 100, 40));
    const struct {
        const char *what;
        std::function<void()> act;
        int paints;
    } rows[] = {
        {"the neighbour is hovered", [&] { screen->pointer(30, 30); }, 0},
        {"hover", [&] { screen->pointer(210, 30); }, 1},
        {"press", [&] { screen->pointer(210, 30, LeftHeld); }, 1},
        {"release", [&] { screen->pointer(210, 30); }, 1},
        {"the same text", [&] { counting->setText(ZrString()); }, 0},
        {"a blocked press",
         [&] {
             counting->setBlockRepaint(true);
             counting->setDown(true);
         },
         0},
    };
    for (const auto &row : rows) {
        counting->paints = 0;
        row.act();
        screen->settle();
        EXPECT_EQ(counting->paints, row.paints) << row.what;
    }
}

TEST_F(Buttons, SlotsMayDeleteTheButton)
{
    ZrSignal ZrAbstractButton::*const signals[] = {
        &ZrAbstractButton::pressed, &ZrAbstractButton::clicked, &ZrAbstractButton::released};
    for (const auto signal : signals) {
        ZrButtonGroup group;
        auto *victim = show(new ZrCheckBox(ZrString("x"), parent), ZrRect(200, 20, 100, 40));
        group.addButton(victim);
        const ZrGuard<ZrCheckBox> alive(victim);
        ZrObject::connect(victim, &(victim->*signal), &log, zrtest::deleteSender);
        screen->click(210, 30);
        EXPECT_FALSE(alive);
        EXPECT_EQ(group.count(), 0);
    }
    auto *victim = show(new ZrPushButton(parent), ZrRect(200, 20, 100, 40));
    key(Zr::Key_Enter);
    delete victim;
    screen->pass(ZrAbstractButton::KeyPressMs); // the click dies with the button
}

TEST_F(Buttons, ExclusiveChoicesStayChecked)
{
    // Radio buttons among siblings, the same in a group, and check boxes in an exclusive group.
    for (const int kind : {0, 1, 2}) {
        ZrButtonGroup group;
        ZrAbstractButton *choice[3];
        for (int i = 0; i < 3; ++i) {
            ZrAbstractButton *made = kind == 2
                                         ? static_cast<ZrAbstractButton *>(new ZrCheckBox(parent))
                                         : new ZrRadioButton(parent);
            choice[i] = show(made, ZrRect(20, 100 + 50 * i, 100, 40));
            if (kind > 0)
                group.addButton(choice[i]);
        }
        watch(choice[1]);
        screen->click(30, 160);
        EXPECT_EQ(log.take(), "pcr");
        screen->click(30, 160);
        EXPECT_EQ(log.take(), "pcr") << "a click on the checked one still tells";
        EXPECT_TRUE(choice[1]->isChecked());
        choice[1]->setChecked(false);
        EXPECT_TRUE(choice[1]->isChecked()) << kind;
        screen->click(30, 110);
        EXPECT_TRUE(choice[0]->isChecked());
        EXPECT_FALSE(choice[1]->isChecked()) << kind;
        EXPECT_EQ(group.checkedId(), kind > 0 ? 0 : -1);
        for (ZrAbstractButton *made : choice)
            delete made;
    }
}

TEST_F(Buttons, GroupsTellWhoWasClicked)
{
    ZrButtonGroup group;
    group.setExclusive(false);
    auto *first = show(new ZrCheckBox(parent), ZrRect(20, 100, 100, 40));
    auto *second = show(new ZrCheckBox(parent), ZrRect(20, 150, 100, 40));
    group.addButton(first, 7);
    group.addButton(second);
    group.addButton(second);
    EXPECT_EQ(group.count(), 2);
    EXPECT_EQ(group.id(second), 0);
    log.watch<'g'>(&group, &group.buttonClicked);
    log.watch<'c'>(first, &first->clicked);
    screen->click(30, 110);
    EXPECT_EQ(log.take(), "cg");
    EXPECT_EQ(group.clickedButton(), first);
    screen->click(30, 160);
    EXPECT_TRUE(first->isChecked() && second->isChecked());
    screen->click(30, 110);
    EXPECT_FALSE(first->isChecked());
    delete second;
    EXPECT_EQ(group.button(0), nullptr);
}

TEST_F(Buttons, ACheckBoxTogglesAndAPlainButtonDoesNot)
{
    auto *box = show(new ZrCheckBox(parent), ZrRect(20, 100, 100, 40));
    screen->click(30, 110);
    EXPECT_TRUE(box->isChecked());
    screen->click(30, 110);
    EXPECT_FALSE(box->isChecked());
    button->click();
    button->setChecked(true);
    EXPECT_FALSE(button->isChecked()) << "not checkable";
}

TEST_F(Buttons, AGroupBoxEnablesWhatIsInside)
{
    auto *box = show(new ZrGroupBox(ZrString("Title"), parent), ZrRect(20, 100, 200, 120));
    auto *inside = new ZrCheckBox(box);
    log.watch<'t'>(box, &box->toggled);
    screen->click(40, 110);
    EXPECT_EQ(log.take(), "") << "not checkable";
    box->setCheckable(true);
    screen->click(40, 110);
    EXPECT_EQ(log.take(), "t");
    EXPECT_FALSE(inside->isEnabled());
    box->setFocus(Zr::KeyManagerFocus);
    key(Zr::Key_Enter);
    EXPECT_TRUE(inside->isEnabled());
    screen->click(40, 200);
    EXPECT_EQ(log.take(), "t") << "below the title nothing toggles";
    ZrObject::connect(box, &box->toggled, &log, zrtest::deleteSender);
    screen->click(40, 110);
}
