// Sliders, scroll bars, spin boxes and progress bars.
#include "support/entryscreen.h"
#include "support/signallog.h"

#include <climits>
#include <zrguard>
#include <zrprogressbar>
#include <zrscrollbar>
#include <zrslider>
#include <zrspinbox>

using zrtest::SignalLog;

namespace
{

constexpr int LeftHeld = Zr::LeftButton;

class Sliders : public zrtest::EntryScreen
{
protected:
    ZrSlider *slider(Zr::Orientation orientation, bool inverted)
    {
        auto *made = new ZrSlider(orientation, window.get());
        made->setInverted(inverted);
        made->setValue(50);
        const bool horizontal = orientation == Zr::Horizontal;
        return show(made, ZrRect(20, 20, horizontal ? 300 : 40, horizontal ? 40 : 300));
    }
    SignalLog log;
};

} // namespace

TEST_F(Sliders, ArrowsMoveTheHandleTheirOwnWay)
{
    const struct {
        Zr::Orientation orientation;
        bool inverted;
        int key;
        int change;
        bool taken;
    } rows[] = {
        {Zr::Horizontal, false, Zr::Key_Left, -1, true},
        {Zr::Horizontal, false, Zr::Key_Right, 1, true},
        {Zr::Horizontal, true, Zr::Key_Left, 1, true},
        {Zr::Horizontal, true, Zr::Key_Right, -1, true},
        {Zr::Horizontal, false, Zr::Key_Up, 0, false},
        {Zr::Horizontal, false, Zr::Key_Enter, 0, false},
        {Zr::Vertical, false, Zr::Key_Up, -1, true},
        {Zr::Vertical, false, Zr::Key_Down, 1, true},
        {Zr::Vertical, true, Zr::Key_Up, 1, true},
        {Zr::Vertical, false, Zr::Key_Left, 0, false},
    };
    for (const auto &row : rows) {
        ZrSlider *made = slider(row.orientation, row.inverted);
        EXPECT_EQ(key(row.key), row.taken);
        EXPECT_EQ(made->value(), 50 + row.change) << row.orientation << row.inverted << row.key;
        delete made;
    }
}

TEST_F(Sliders, ValuesStopAtTheLimits)
{
    ZrSlider *made = slider(Zr::Horizontal, false);
    log.watch<'v'>(made, &made->valueChanged);
    made->setRange(0, 10);
    EXPECT_EQ(log.take(), "v") << "brought into the range";
    EXPECT_EQ(made->value(), 10);
    key(Zr::Key_Right);
    made->setValue(11);
    EXPECT_EQ(log.take(), "");
    made->setRange(INT_MIN, INT_MAX);
    made->setValue(INT_MAX);
    made->setSingleStep(INT_MAX);
    key(Zr::Key_Right);
    EXPECT_EQ(made->value(), INT_MAX);
    EXPECT_TRUE(made->rect().contains(made->handleRect()));
    made->setRange(5, 3);
    EXPECT_EQ(made->maximum(), 5);
}

TEST_F(Sliders, TheHandleIsDragged)
{
    ZrSlider *made = slider(Zr::Horizontal, false);
    log.watch<'v'>(made, &made->valueChanged);
    log.watch<'m'>(made, &made->sliderMoved);
    log.watch<'r'>(made, &made->sliderReleased);
    const ZrRect handle = made->handleRect();
    const int x = 20 + handle.left() + 3;
    screen->pointer(x, 40, Zr::RightButton);
    screen->pointer(x, 40, 0);
    EXPECT_EQ(log.take(), "");
    screen->pointer(x, 40, LeftHeld);
    EXPECT_EQ(made->value(), 50) << "the offset in the handle is kept";
    screen->pointer(x + 30, 300, LeftHeld);
    EXPECT_EQ(log.take(), "vm");
    EXPECT_NEAR(made->handleRect().left(), handle.left() + 30, 2);
    screen->pointer(2000, 40, LeftHeld);
    EXPECT_EQ(made->value(), made->maximum());
    screen->pointer(2000, 40);
    EXPECT_EQ(log.take(), "vmr");
    screen->pointer(30, 40);
    EXPECT_EQ(log.take(), "");
}

TEST_F(Sliders, TheGrooveStepsOrJumps)
{
    ZrSlider *made = slider(Zr::Horizontal, false);
    screen->click(20 + 280, 40);
    EXPECT_EQ(made->value(), 60) << "a page toward the point";
    screen->click(20 + 10, 40);
    EXPECT_EQ(made->value(), 50);
    made->setJumps(true);
    screen->click(20 + 280, 40);
    EXPECT_NEAR(made->handleRect().center().x(), 280, 3) << "its middle goes to the point";
    made->setValue(50);
    screen->pointer(100, 40, 0, 120);
    EXPECT_EQ(made->value(), 51);
}

TEST_F(Sliders, SlotsMayDeleteTheSlider)
{
    ZrSignal ZrAbstractSlider::*const signals[] = {&ZrAbstractSlider::valueChanged,
                                                   &ZrAbstractSlider::sliderMoved,
                                                   &ZrAbstractSlider::sliderReleased};
    for (const auto signal : signals) {
        const ZrGuard<ZrSlider> made(slider(Zr::Horizontal, false));
        ZrObject::connect(made.get(), &(made.get()->*signal), &log, zrtest::deleteSender);
        const int x = 20 + made->handleRect().center().x();
        screen->pointer(x, 40, LeftHeld);
        screen->pointer(x + 60, 40, LeftHeld);
        screen->pointer(x + 60, 40);
        EXPECT_FALSE(made);
    }
}

TEST_F(Sliders, AScrollBarsHandleTellsTheShare)
{
    auto *bar = show(new ZrScrollBar(Zr::Vertical, window.get()), ZrRect(20, 20, 12, 200));
    bar->setPageStep(100);
    const struct {
        int maximum, value, top, length;
    } rows[] = {
        {0, 0, 0, 200},
        {100, 0, 0, 100},
        {100, 100, 100, 100},
        {1000000, 1000000, 176, 24},
    };
    for (const auto &row : rows) {
        bar->setRange(0, row.maximum);
        bar->setValue(row.value);
        EXPECT_EQ(bar->handleRect().top(), row.top) << row.maximum;
        EXPECT_EQ(bar->handleRect().height(), row.length) << row.maximum;
    }
    bar->setRange(0, 100);
    bar->setValue(50);
    screen->pointer(25, 100, 0, 120);
    EXPECT_EQ(bar->value(), 49) << "the wheel away from the hand scrolls up";
}

TEST_F(Sliders, SpinBoxesStep)
{
    auto *spin = show(new ZrSpinBox(window.get()), ZrRect(20, 20, 100, 40));
    log.watch<'v'>(spin, &spin->valueChanged);
    spin->setRange(0, 5);
    const ZrPoint up = spin->arrowRect(ZrSpinBox::UpArrow).center();
    const ZrPoint down = spin->arrowRect(ZrSpinBox::DownArrow).center();
    const struct {
        const char *what;
        std::function<void()> act;
        int value;
        const char *signals;
    } rows[] = {
        {"up", [&] { key(Zr::Key_Up); }, 1, "v"},
        {"down", [&] { key(Zr::Key_Down); }, 0, "v"},
        {"at the minimum", [&] { key(Zr::Key_Down); }, 0, ""},
        {"typed", [&] { type("3"); }, 0, ""},
        {"the arrow", [&] { screen->click(20 + up.x(), 20 + up.y()); }, 1, "v"},
        {"the other", [&] { screen->click(20 + down.x(), 20 + down.y()); }, 0, "v"},
        {"the text", [&] { screen->click(30, 40); }, 0, ""},
        {"the wheel", [&] { screen->pointer(40, 40, 0, 120); }, 1, "v"},
        {"beyond", [&] { spin->setValue(9); }, 5, "v"},
        {"at the maximum", [&] { key(Zr::Key_Up); }, 5, ""},
    };
    for (const auto &row : rows) {
        row.act();
        EXPECT_EQ(spin->value(), row.value) << row.what;
        EXPECT_EQ(log.take(), row.signals) << row.what;
    }
}

TEST_F(Sliders, AHeldArrowStepsOn)
{
    auto *spin = show(new ZrSpinBox(window.get()), ZrRect(20, 20, 100, 40));
    const ZrPoint up = spin->arrowRect(ZrSpinBox::UpArrow).center();
    screen->pointer(20 + up.x(), 20 + up.y(), LeftHeld);
    screen->pass(ZrSpinBox::RepeatDelayMs - 1);
    EXPECT_EQ(spin->value(), 1);
    screen->pass(1);
    EXPECT_EQ(spin->value(), 2);
    screen->pass(ZrSpinBox::RepeatMs);
    EXPECT_EQ(spin->value(), 3);
    screen->pointer(20 + up.x(), 20 + up.y());
    screen->pass(ZrSpinBox::RepeatMs);
    EXPECT_EQ(spin->value(), 3);

    const ZrGuard<ZrSpinBox> alive(spin);
    ZrObject::connect(spin, &spin->valueChanged, &log, zrtest::deleteSender);
    key(Zr::Key_Up);
    EXPECT_FALSE(alive);
}

TEST_F(Sliders, ProgressFillsInProportion)
{
    ZrProgressBar bar;
    const struct {
        int minimum, maximum, value, percent, filled;
    } rows[] = {
        {0, 100, 33, 33, 66},
        {0, 3, 1, 33, 66},
        {10, 20, 15, 50, 100},
        {0, 0, 0, 0, 0},
        {INT_MIN, INT_MAX, INT_MAX, 100, 200},
        {0, 100, 400, 100, 200},
    };
    for (const auto &row : rows) {
        bar.setRange(row.minimum, row.maximum);
        bar.setValue(row.value);
        EXPECT_EQ(bar.percent(), row.percent);
        EXPECT_EQ(bar.filledWidth(200), row.filled);
    }
    bar.setFormat(ZrString("%p percent"));
    EXPECT_EQ(zrtest::utf8(bar.text()), "100 percent");
}
