#include <gtest/gtest.h>

#include "support/virtualscreen.h"
#include "widgets/zrdesktop.h"
#include "widgets/zrinstallwidgets.h"

#include <functional>
#include <random>
#include <string>
#include <zrgraphics>
#include <zrpainter>
#include <zrscreen>
#include <zrwidget>

using zrtest::VirtualScreen;

namespace
{

constexpr int Width = 320;
constexpr int Height = 200;

// Writes down what it gets, and paints itself in one colour.
class Probe : public ZrWidget
{
public:
    Probe(const char *name, std::string *log, ZrWidget *parent = nullptr)
        : ZrWidget(parent), name_(name), log_(log)
    {
        setAttribute(DeleteOnClose, false);
    }
    ZrColor color{40, 80, 120};
    bool takesMouse = true;
    std::function<void()> onPress;
    ZrSize hint{-1, -1};
    ZrSize sizeHint() const override { return hint; }

protected:
    void paintEvent(ZrPaintEvent *event) override
    {
        painted = event->region();
        ZrPainter(this).fillRect(rect(), color);
    }
    void mousePressEvent(ZrMouseEvent *event) override
    {
        note("press", event->position());
        event->setAccepted(takesMouse);
        if (onPress)
            onPress();
    }
    void mouseReleaseEvent(ZrMouseEvent *event) override { note("release", event->position()); }
    void mouseDoubleClickEvent(ZrMouseEvent *event) override
    {
        note("double", event->position());
        event->accept();
    }
    void mouseMoveEvent(ZrMouseEvent *event) override { note("move", event->position()); }
    void wheelEvent(ZrWheelEvent *event) override
    {
        *log_ += name_ + ":wheel" + std::to_string(event->delta()) + " ";
    }
    void enterEvent(ZrEvent *) override { *log_ += name_ + ":enter "; }
    void leaveEvent(ZrEvent *) override { *log_ += name_ + ":leave "; }
    void showEvent(ZrShowEvent *) override { *log_ += name_ + ":show "; }
    void hideEvent(ZrHideEvent *) override { *log_ += name_ + ":hide "; }
    void resizeEvent(ZrResizeEvent *event) override
    {
        *log_ += name_ + ":resize" + std::to_string(event->size().width()) + "x" +
                 std::to_string(event->size().height()) + " ";
    }
    void focusInEvent(ZrFocusEvent *event) override
    {
        ZrWidget::focusInEvent(event);
        *log_ += name_ + ":focus ";
    }
    void focusOutEvent(ZrFocusEvent *event) override
    {
        ZrWidget::focusOutEvent(event);
        *log_ += name_ + ":blur ";
    }

public:
    ZrRegion painted;

private:
    void note(const char *what, const ZrPoint &at)
    {
        *log_ += name_ + ":" + what + std::to_string(at.x()) + "," + std::to_string(at.y()) + " ";
    }
    std::string name_;
    std::string *log_;
};

class Widgets : public testing::Test
{
protected:
    Widgets()
    {
        zrInstallGraphics();
        zrInstallWidgets();
        // The pointer's thread has no business here: the tests post what it would.
        ZrApplication::parts().makePointer = nullptr;
        screen = std::make_unique<VirtualScreen>(Width, Height);
    }
    std::string take()
    {
        std::string taken;
        taken.swap(log);
        return taken;
    }

    std::unique_ptr<VirtualScreen> screen;
    std::string log;
};

} // namespace

TEST_F(Widgets, ShowSizesPaintsAndHidesATree)
{
    Probe window("w", &log);
    window.setGeometry(ZrRect(10, 10, 100, 60));
    auto *child = new Probe("c", &log, &window);
    child->hint = ZrSize(20, 10);
    child->color = ZrColor(248, 0, 0);
    take();
    window.show();
    EXPECT_EQ(take(), "w:show c:resize100x60 c:show ")
        << "a child that gets its first size is told of the widget on which the show began";
    EXPECT_EQ(child->geometry(), ZrRect(0, 0, 20, 10));
    window.show();
    EXPECT_EQ(take(), "");
    screen->settle();
    EXPECT_EQ(screen->pixel(10, 10), 0x8000 | 31 << 10);
    EXPECT_EQ(screen->pixel(40, 30), 0x8000 | 5 << 10 | 10 << 5 | 15);
    EXPECT_FALSE(screen->isOpaque(9, 9));

    child->hide();
    screen->settle();
    EXPECT_EQ(screen->pixel(10, 10), 0x8000 | 5 << 10 | 10 << 5 | 15);
    window.hide();
    EXPECT_EQ(take(), "c:hide w:hide ");
    screen->settle();
    EXPECT_FALSE(screen->isOpaque(40, 30)) << "what nobody covers lets the video through";
    window.show();
    EXPECT_EQ(take(), "w:show ") << "a child hidden by request stays hidden";
}

TEST_F(Widgets, MovesUpdateBothPlacesAndSendNoResize)
{
    Probe window("w", &log);
    window.setGeometry(ZrRect(0, 0, 40, 40));
    window.show();
    screen->settle();
    take();
    window.move(ZrPoint(100, 100));
    EXPECT_EQ(take(), "");
    screen->settle();
    EXPECT_FALSE(screen->isOpaque(5, 5));
    EXPECT_TRUE(screen->isOpaque(105, 105));
    window.setGeometry(window.geometry());
    window.resize(ZrSize(50, 40));
    EXPECT_EQ(take(), "w:resize50x40 ");
}

TEST_F(Widgets, LimitsWarnAndHold)
{
    Probe window("w", &log);
    Probe child("c", &log, &window);
    const struct {
        std::function<void()> act;
        const char *line;
        ZrSize minimum;
    } rows[] = {
        {[&] { child.setMinimumSize(-1, 5); },
         "Warning: setMinimumSize_helper: the size is not possible.\n", ZrSize(0, 5)},
        {[&] { child.setMinimumSize(30, 40); }, "", ZrSize(30, 40)},
        {[&] { child.setMinimumWidth(0x1000000); }, "Warning: exceed the max size.\n",
         ZrSize(0xFFFFFF, 40)},
        {[&] { child.setAttribute(32); }, "setAttribute(): Type is out of range !!!\n",
         ZrSize(0xFFFFFF, 40)},
    };
    for (const auto &row : rows) {
        testing::internal::CaptureStdout();
        row.act();
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.line);
        EXPECT_EQ(child.minimumSize(), row.minimum);
    }
    child.setMinimumSize(0, 0);
    child.resize(ZrSize(80, 80));
    child.setMaximumSize(50, 60);
    EXPECT_EQ(child.size(), ZrSize(50, 60));
    child.setFixedSize(10, 12);
    EXPECT_EQ(child.size(), ZrSize(10, 12));
}

TEST_F(Widgets, EnablingFollowsTheParentsButKeepsOwnRequests)
{
    Probe window("w", &log);
    Probe child("c", &log, &window), stubborn("s", &log, &window);
    stubborn.setEnabled(false);
    window.setEnabled(false);
    EXPECT_FALSE(child.isEnabled());
    child.setEnabled(false);
    child.setEnabled(true); // under a disabled parent: only noted
    EXPECT_FALSE(child.isEnabled());
    window.setEnabled(true);
    EXPECT_TRUE(child.isEnabled());
    EXPECT_FALSE(stubborn.isEnabled());
}

TEST_F(Widgets, HolesAreClearAndOnlyTheirChangeIsRepainted)
{
    Probe window("w", &log);
    window.setGeometry(ZrRect(0, 0, Width, Height));
    window.show();
    screen->settle();
    window.setHoleRegion(ZrRegion(ZrRect(50, 50, 100, 100)));
    screen->settle();
    EXPECT_FALSE(screen->isOpaque(50, 50));
    EXPECT_FALSE(screen->isOpaque(149, 149));
    EXPECT_TRUE(screen->isOpaque(49, 50));
    EXPECT_TRUE(screen->isOpaque(150, 149));

    window.setHoleRegion(ZrRegion(ZrRect(52, 50, 100, 100)));
    screen->settle();
    // One pixel more than what was uncovered, as every update has it.
    EXPECT_LE(window.painted.boundingRect().width(), 3);
    EXPECT_TRUE(screen->isOpaque(51, 60));
    EXPECT_FALSE(screen->isOpaque(151, 60));

    Probe above("a", &log);
    above.setGeometry(ZrRect(60, 60, 20, 20));
    above.show();
    screen->settle();
    EXPECT_TRUE(screen->isOpaque(70, 70)) << "a window above a hole needs no care";
    above.hide();
    screen->settle();
    EXPECT_FALSE(screen->isOpaque(70, 70));
}

TEST_F(Widgets, ClippedRepaintEqualsAFullOne)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    Probe window("w", &log);
    window.setGeometry(ZrRect(0, 0, Width, Height));
    std::vector<std::unique_ptr<Probe>> children;
    for (int i = 0; i < 12; ++i) {
        Probe *parent = i > 4 ? children[random() % 4].get() : &window;
        children.push_back(std::make_unique<Probe>("c", &log, parent));
        children.back()->setGeometry(ZrRect(int(random() % 200), int(random() % 120),
                                            int(random() % 150) + 1, int(random() % 90) + 1));
        children.back()->color = ZrColor(int(random() % 256), int(random() % 256), 99);
    }
    window.show();
    screen->settle();
    const std::vector<std::uint16_t> full = screen->picture();
    for (int round = 0; round < 50; ++round) {
        window.update(ZrRect(int(random() % Width), int(random() % Height), int(random() % 100) + 1,
                             int(random() % 100) + 1));
        screen->settle();
        ASSERT_EQ(screen->picture(), full) << "round " << round;
    }
    while (!children.empty()) // innermost first: parents do not own what the test owns
        children.pop_back();
}

TEST_F(Widgets, MouseEventsClimbUntilAccepted)
{
    Probe window("w", &log);
    window.setGeometry(ZrRect(100, 100, 100, 100));
    Probe child("c", &log, &window);
    child.setGeometry(ZrRect(10, 20, 30, 30));
    window.show();
    take();
    child.takesMouse = false;
    screen->pointer(115, 125, 1);
    EXPECT_EQ(take(), "w:enter c:enter c:press5,5 w:press15,25 ");
    screen->pointer(10, 10, 1);
    EXPECT_EQ(take(), "c:move-100,-110 ") << "who took the press gets the moves";
    screen->pointer(10, 10);
    EXPECT_EQ(take(), "c:release-100,-110 w:release-90,-90 ");
    screen->pointer(300, 190);
    EXPECT_EQ(take(), "c:leave w:leave ");
    screen->pointer(150, 150, 0, 120);
    EXPECT_EQ(take(), "w:enter w:wheel120 ");
}

TEST_F(Widgets, TwoPressesAreADoubleClickOnlyInTimeAndPlace)
{
    Probe window("w", &log);
    window.setGeometry(ZrRect(0, 0, 200, 200));
    window.show();
    screen->click(50, 50);
    take();
    screen->click(52, 50);
    EXPECT_EQ(take(), "w:double52,50 w:release52,50 ");
    screen->click(52, 50);
    EXPECT_EQ(take(), "w:press52,50 w:release52,50 ") << "the third begins anew";
    screen->pass(ZrDesktop::DoubleClickMs);
    screen->click(52, 50);
    EXPECT_EQ(take(), "w:press52,50 w:release52,50 ");
    screen->click(90, 90);
    EXPECT_EQ(take(), "w:press90,90 w:release90,90 ");
}

TEST_F(Widgets, HandlersMayDeleteWhatTheEventClimbsTo)
{
    auto *window = new Probe("w", &log);
    window->setGeometry(ZrRect(0, 0, 100, 100));
    auto *child = new Probe("c", &log, window);
    child->setGeometry(ZrRect(0, 0, 50, 50));
    child->takesMouse = false;
    window->show();
    take();
    child->onPress = [&] { delete window; };
    screen->pointer(10, 10, 1);
    EXPECT_EQ(take(), "w:enter c:enter c:press10,10 ");
    screen->pointer(10, 10);
    EXPECT_EQ(take(), "");
}

TEST_F(Widgets, ModalWindowsAndPopupsTakeTheMouseFromOthers)
{
    Probe window("w", &log), dialog("d", &log), popup("p", &log);
    window.setGeometry(ZrRect(0, 0, 200, 200));
    dialog.setGeometry(ZrRect(20, 20, 50, 50));
    window.show();
    dialog.show();
    ZrDesktop::pushModal(&dialog);
    take();
    screen->click(150, 150);
    EXPECT_EQ(take(), "d:press130,130 d:release130,130 ");
    ZrDesktop::popModal(&dialog);
    dialog.hide();

    class ClosingPopup : public ZrWidget
    {
    } closing;
    closing.setAttribute(ZrWidget::DeleteOnClose, false);
    closing.setWindowFlags(ZrWidget::Popup);
    closing.setGeometry(ZrRect(100, 100, 20, 20));
    closing.show();
    EXPECT_EQ(ZrDesktop::activePopup(), &closing);
    take();
    screen->click(10, 10);
    EXPECT_FALSE(closing.isVisible()) << "a press outside closes a popup";
    EXPECT_EQ(take().find("w:press"), std::string::npos) << "and nobody else gets it";
}

TEST_F(Widgets, FocusByReasonAndPolicy)
{
    Probe window("w", &log);
    window.setGeometry(ZrRect(0, 0, 200, 200));
    Probe keys("k", &log, &window), any("a", &log, &window);
    keys.setGeometry(ZrRect(0, 0, 50, 50));
    any.setGeometry(ZrRect(60, 0, 50, 50));
    keys.setFocusPolicy(ZrWidget::KeyFocus);
    any.setFocusPolicy(ZrWidget::AnyFocus);
    window.show();
    take();
    keys.setFocus(Zr::MouseFocus);
    EXPECT_EQ(take(), "");
    keys.setFocus(Zr::KeyManagerFocus);
    EXPECT_EQ(take(), "k:focus ");
    any.setFocus(Zr::NeverStealFocus);
    EXPECT_EQ(take(), "");
    screen->click(70, 10);
    EXPECT_NE(take().find("k:blur a:focus"), std::string::npos);
    EXPECT_EQ(ZrDesktop::focusWidget(), &any);
    EXPECT_EQ(window.firstFocusable(), &any);
}
