// Where pointer events, focus, cursors and tool tips go.
#include "widgets/probe.h"

#include <map>
#include <sstream>
#include <zrcursor>
#include <zrscreencursor>

namespace
{

// Plays a line of actions on the pointer: "x,y" moves, L and R press, l and r release, w turns the
// wheel by a notch, "t500" lets time pass.
class Routing : public WidgetTest
{
protected:
    void play(const std::string &line)
    {
        std::istringstream actions(line);
        for (std::string action; actions >> action;) {
            if (const auto comma = action.find(','); comma != std::string::npos)
                at_ = ZrPoint(std::stoi(action), std::stoi(action.substr(comma + 1)));
            else if (action[0] == 't')
                screen->pass(std::stoi(action.substr(1)));
            held_ |= (action == "L" ? Zr::LeftButton : 0) | (action == "R" ? Zr::RightButton : 0);
            held_ &=
                ~((action == "l" ? Zr::LeftButton : 0) | (action == "r" ? Zr::RightButton : 0));
            if (action[0] != 't')
                screen->pointer(at_.x(), at_.y(), held_, action == "w" ? 120 : 0);
        }
    }
    std::string played(const std::string &line)
    {
        take();
        play(line);
        return take();
    }

private:
    ZrPoint at_;
    int held_ = 0;
};

// A window with a child and a grandchild, and a window beside it.
struct Scene {
    explicit Scene(std::string *log)
        : window("w", log, ZrRect(0, 0, 200, 200)),
          child("c", log, ZrRect(50, 50, 100, 100), &window),
          grandchild("g", log, ZrRect(10, 10, 20, 20), &child),
          beside("b", log, ZrRect(220, 0, 100, 200))
    {
        beside.show();
        window.show();
    }
    ~Scene() { ZrDesktop::grabPointer(nullptr); }

    Probe window, child, grandchild, beside;
};

std::string withoutCrossings(const std::string &log)
{
    std::istringstream events(log);
    std::string kept;
    for (std::string event; events >> event;) {
        if (event.find(":enter") == std::string::npos && event.find(":leave") == std::string::npos)
            kept += event + " ";
    }
    return kept;
}

} // namespace

TEST_F(Routing, MouseEventsReachWhoeverIsInForce)
{
    const struct {
        const char *what;
        std::function<void(Scene &)> arrange;
        const char *script;
        const char *expected;
    } rows[] = {
        {"the topmost child, in its coordinates", {}, "65,65 L l", "g:press5,5 g:release5,5 "},
        {"a click that nobody takes climbs to the window",
         [](Scene &s) { s.grandchild.takesMouse = s.child.takesMouse = false; }, "65,65 L l",
         "g:press5,5 c:press15,15 w:press65,65 g:release5,5 c:release15,15 w:release65,65 "},
        {"so does the wheel", [](Scene &s) { s.grandchild.takesMouse = false; }, "65,65 w",
         "g:wheel120 c:wheel120 "},
        {"who was pressed gets moves and the release wherever they are",
         {},
         "65,65 L 250,10 l",
         "g:press5,5 g:move190,-50 g:release190,-50 "},
        {"until the last button is up",
         {},
         "65,65 L R l 250,10 r",
         "g:press5,5 g:press5,5 g:release5,5 g:move190,-50 g:release190,-50 "},
        {"moves without a button only with tracking",
         [](Scene &s) { s.child.setAttribute(ZrWidget::MouseTracking); }, "65,65 55,55 10,10",
         "c:move5,5 "},
        {"two presses in time and place",
         {},
         "65,65 L l 67,65 L l",
         "g:press5,5 g:release5,5 g:double7,5 g:release7,5 "},
        {"a third begins anew",
         {},
         "65,65 L l L l L l",
         "g:press5,5 g:release5,5 g:double5,5 g:release5,5 g:press5,5 g:release5,5 "},
        {"too late, too far, another button",
         {},
         "65,65 L l t400 L l 78,65 L l R r",
         "g:press5,5 g:release5,5 g:press5,5 g:release5,5 g:press18,5 g:release18,5 g:press18,5 "
         "g:release18,5 "},
        {"disabled, hidden and transparent children let through",
         [](Scene &s) { s.grandchild.setEnabled(false); }, "65,65 L l",
         "c:press15,15 c:release15,15 "},
        {"hidden", [](Scene &s) { s.child.hide(); }, "65,65 L l",
         "c:hide g:hide w:press65,65 w:release65,65 "},
        {"transparent", [](Scene &s) { s.child.setAttribute(ZrWidget::MouseTransparent); },
         "65,65 L l", "w:press65,65 w:release65,65 "},
        {"a transparent window as well",
         [](Scene &s) {
             s.beside.setAttribute(ZrWidget::MouseTransparent);
             s.beside.setGeometry(ZrRect(0, 0, 300, 200));
             s.beside.raise();
         },
         "65,65 w", "b:resize300x200 g:wheel120 "},
        {"a grab takes all, also from who was pressed",
         [](Scene &s) {
             s.grandchild.on[ZrEvent::MousePress] = [&s] { ZrDesktop::grabPointer(&s.beside); };
         },
         "65,65 L 66,66 l 10,10 w", "g:! c:press15,15 b:move-154,66 b:release-154,66 b:wheel120 "},
        {"a modal window takes what is outside of it",
         [](Scene &s) { ZrDesktop::pushModal(&s.beside); }, "65,65 L l 230,10 L l",
         "b:press-155,65 b:release-155,65 b:press10,10 b:release10,10 "},
        {"so does an active window that stays on top",
         [](Scene &s) {
             s.beside.setAttribute(ZrWidget::StayOnTop);
             ZrDesktop::setActiveWindow(&s.beside);
         },
         "65,65 L l 66,66 w", "b:press-155,65 b:release-155,65 b:wheel120 "},
        {"a popup goes before a modal window",
         [](Scene &s) {
             ZrDesktop::pushModal(&s.beside);
             s.window.hide();
             s.window.setWindowFlags(ZrWidget::Popup);
             s.window.show();
         },
         "65,65 w 230,10 w", "w:hide c:hide g:hide w:show c:show g:show g:wheel120 w:wheel120 "},
    };
    for (const auto &row : rows) {
        Scene scene(&log);
        take();
        if (row.arrange)
            row.arrange(scene);
        play(row.script);
        EXPECT_EQ(withoutCrossings(take()), row.expected) << row.what;
        play("319,199 t1000");
    }
}

TEST_F(Routing, APressOutsideClosesAPopupAndNobodyElseGetsIt)
{
    Scene scene(&log);
    ZrWidget popup, second;
    for (ZrWidget *each : {&popup, &second}) {
        each->setAttribute(ZrWidget::DeleteOnClose, false);
        each->setWindowFlags(ZrWidget::Popup);
        each->setGeometry(ZrRect(100, 100, 20, 20));
        each->show();
    }
    EXPECT_EQ(ZrDesktop::activePopup(), &second);
    EXPECT_EQ(played("10,10 L l"), "");
    EXPECT_FALSE(second.isVisible());
    EXPECT_EQ(ZrDesktop::activePopup(), &popup);
    ZrKeyEvent escape(ZrEvent::KeyPress, Zr::Key_Escape);
    ZrApplication::notify(&popup, &escape);
    EXPECT_TRUE(escape.isAccepted() && !popup.isVisible());
    popup.show();
    second.show();
    scene.beside.hide();
    scene.beside.show();
    EXPECT_FALSE(popup.isVisible() || second.isVisible()) << "another window became active";
}

TEST_F(Routing, EnterLeaveAndHoverFollowThePointer)
{
    Scene scene(&log);
    scene.grandchild.setAttribute(ZrWidget::Hover);
    EXPECT_EQ(played("65,65"), "w:enter c:enter g:enter g:hover5,5 ");
    EXPECT_TRUE(scene.grandchild.isHovered());
    EXPECT_EQ(played("55,55"), "g:leave g:unhover ");
    EXPECT_EQ(played("65,65 L 250,10"), "g:enter g:hover5,5 g:press5,5 g:move190,-50 ");
    EXPECT_EQ(played("l"), "g:release190,-50 g:leave g:unhover c:leave w:leave b:enter ")
        << "a drag keeps the pointer with who was pressed";
    play("65,65");
    take();
    scene.child.hide();
    EXPECT_EQ(take(), "c:hide g:hide g:leave g:unhover c:leave ");
    EXPECT_FALSE(scene.grandchild.isHovered());
    ZrDesktop::pushModal(&scene.beside);
    EXPECT_EQ(played("66,66"), "w:leave ") << "what cannot be clicked does not light up";
}

TEST_F(Routing, HandlersMayDeleteWhatTheEventGoesTo)
{
    const struct {
        const char *what;
        int type;
        const char *script;
        const char *expected;
    } rows[] = {
        {"press", ZrEvent::MousePress, "65,65 L 66,66 l", "w:enter c:enter g:enter g:! "},
        {"release", ZrEvent::MouseRelease, "65,65 L l w",
         "w:enter c:enter g:enter g:press5,5 g:! "},
        {"wheel", ZrEvent::Wheel, "65,65 w", "w:enter c:enter g:enter g:! "},
        {"enter", ZrEvent::Enter, "65,65 L", "w:enter c:enter g:! "},
        {"leave", ZrEvent::Leave, "65,65 10,10 L", "w:enter c:enter g:enter g:! "},
    };
    for (const auto &row : rows) {
        auto *window = new Probe("w", &log, ZrRect(0, 0, 200, 200));
        auto *child = new Probe("c", &log, ZrRect(50, 50, 100, 100), window);
        auto *inner = new Probe("g", &log, ZrRect(10, 10, 20, 20), child);
        inner->on[row.type] = [window] { delete window; };
        window->show();
        EXPECT_EQ(played(row.script), row.expected) << row.what;
        play("319,199 l t1000");
        EXPECT_EQ(ZrDesktop::widgetUnderPointer(), nullptr);
    }
}

TEST_F(Routing, FocusByReasonAndPolicy)
{
    Probe window("w", &log, ZrRect(0, 0, 200, 200)), later("l", &log, ZrRect(0, 0, 20, 20));
    Probe keys("k", &log, ZrRect(0, 0, 50, 50), &window);
    Probe any("a", &log, ZrRect(60, 0, 50, 50), &window);
    keys.setFocusPolicy(ZrWidget::KeyFocus);
    any.setFocusPolicy(ZrWidget::AnyFocus);
    later.setFocusPolicy(ZrWidget::AnyFocus);
    keys.setFocus(Zr::KeyManagerFocus);
    EXPECT_EQ(ZrDesktop::focusWidget(), nullptr) << "not in a window that is not active";
    window.show();
    take();
    const struct {
        const char *what;
        std::function<void()> act;
        const char *expected;
    } rows[] = {
        {"keys only, by the mouse", [&] { keys.setFocus(Zr::MouseFocus); }, ""},
        {"by the key manager", [&] { keys.setFocus(Zr::KeyManagerFocus); }, "k:focus7 "},
        {"never from another", [&] { any.setFocus(Zr::NeverStealFocus); }, ""},
        {"by a press", [&] { play("70,10 L l"); },
         "w:enter a:enter k:blur0 a:focus0 a:press10,10 a:release10,10 "},
        {"another window", [&] { later.show(); }, "l:show a:blur3 l:focus3 "},
        {"back to who had it last", [&] { later.hide(); }, "l:hide l:blur3 a:focus3 "},
        {"a refusal leaves nobody",
         [&] {
             keys.on[ZrEvent::FocusIn] = [] {};
             keys.setFocus(Zr::KeyManagerFocus);
             keys.on.clear();
         },
         "a:blur7 k:! "},
        {"the handler of the loss has the last word",
         [&] {
             keys.setFocus(Zr::KeyManagerFocus);
             keys.on[ZrEvent::FocusOut] = [&] { any.setFocus(Zr::KeyManagerFocus); };
             ZrDesktop::setFocusWidget(nullptr, Zr::KeyManagerFocus);
             keys.on.clear();
         },
         "k:focus7 k:! a:focus7 "},
        {"a window that is deleted leaves it to the next",
         [&] {
             auto *dying = new Probe("d", &log, ZrRect(0, 0, 9, 9));
             dying->setFocusPolicy(ZrWidget::AnyFocus);
             dying->show();
             delete dying;
         },
         "d:resize9x9 d:show a:blur3 d:focus3 a:focus3 "},
    };
    for (const auto &row : rows) {
        take();
        row.act();
        EXPECT_EQ(take(), row.expected) << row.what;
    }
    EXPECT_EQ(window.focusWidget(), &any);
    any.setParent(nullptr);
    EXPECT_EQ(window.focusWidget(), &keys) << "who had it last is in no window of ours any more";
}

TEST_F(Routing, WindowsStandInTheirLayers)
{
    Probe normal("n", &log, ZrRect(0, 0, 9, 9)), top("t", &log, ZrRect(0, 0, 9, 9)),
        popup("p", &log, ZrRect(0, 0, 9, 9)), ghost("g", &log, ZrRect(0, 0, 9, 9));
    top.setAttribute(ZrWidget::StayOnTop);
    popup.setWindowFlags(ZrWidget::Popup);
    ghost.setAttribute(ZrWidget::MouseTransparent);
    top.show();
    popup.show();
    ghost.show();
    EXPECT_EQ(ZrDesktop::activeWindow(), &popup);
    EXPECT_TRUE(popup.isActiveWindow());
    normal.show();
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(ZrDesktop::activeWindow(), &top) << "no ordinary window gets above it";
    top.setAttribute(ZrWidget::StayOnTop, false);
    normal.setAttribute(ZrWidget::StayOnTop);
    ghost.hide();
    EXPECT_EQ(ZrDesktop::activeWindow(), &normal);
}

TEST_F(Routing, TheCursorIsThatOfTheWidgetBelow)
{
    Scene scene(&log);
    const auto sized = [](int size) {
        const ZrImage image(size, size, ZrColor(255, 255, 255));
        return ZrCursor(image, 0, 0);
    };
    const auto shown = [] { return ZrScreen::instance()->cursor()->rect().width(); };
    scene.window.setCursor(sized(5));
    scene.grandchild.setCursor(sized(9));
    const int before = shown();
    scene.beside.setCursor(sized(7));
    EXPECT_EQ(shown(), before) << "nobody points at it";
    play("65,65");
    EXPECT_EQ(shown(), 9);
    play("55,55");
    EXPECT_EQ(shown(), 5) << "a child without one asks its parents";
    scene.child.setCursor(sized(11));
    EXPECT_EQ(shown(), 11) << "at once";
    scene.child.unsetCursor();
    EXPECT_EQ(shown(), 5);
    play("250,50");
    EXPECT_EQ(shown(), 7);
    EXPECT_EQ(scene.child.cursor(), scene.window.cursor());
    scene.window.unsetCursor();
    EXPECT_EQ(scene.child.cursor(), ZrCursor());
}

TEST_F(Routing, ToolTipsComeWithRestAndGoWithAction)
{
    class View : public ZrToolTipView
    {
    public:
        explicit View(std::string *log) : log_(log) {}
        void showToolTip(ZrWidget *widget, const ZrPoint &at) override
        {
            *log_ += std::string("tip=") + widget->toolTip().toUtf8().constData() + "@" +
                     std::to_string(at.x()) + " ";
        }
        void hideToolTip() override { *log_ += "untip "; }

    private:
        std::string *log_;
    };
    Scene scene(&log);
    scene.child.setToolTip(ZrString("child"));
    scene.beside.setToolTip(ZrString("beside"));
    ZrDesktop::setToolTipView(std::make_unique<View>(&log));
    const std::string rest = " t" + std::to_string(ZrToolTips::RestMs) + " ";
    const std::string most = " t" + std::to_string(ZrToolTips::ShownMs) + " ";
    const struct {
        const char *what;
        std::string script;
        const char *expected;
    } rows[] = {
        {"moving on puts it off", "65,65 t600 66,65 t600", ""},
        {"a child shows its parent's; it stays inside", "65,65" + rest + "55,55", "tip=child@65 "},
        {"until the pointer leaves", "10,10" + rest, "untip "},
        {"another comes after its own rest", "55,55" + rest + "250,9" + rest,
         "tip=child@55 untip tip=beside@250 "},
        {"an action takes it away until the next move", "w" + rest + "250,10" + rest,
         "untip b:wheel120 tip=beside@250 "},
        {"read, it is gone for good", most + "251,10" + rest, "untip "},
        {"not while a button is held", "10,10 65,65 L 66,66" + rest + "l",
         "untip g:press5,5 g:move6,6 g:release6,6 "},
    };
    for (const auto &row : rows) {
        take();
        play(row.script);
        EXPECT_EQ(withoutCrossings(take()), row.expected) << row.what;
    }
    play("65,65" + rest);
    take();
    scene.child.hide();
    EXPECT_EQ(withoutCrossings(take()), "c:hide g:hide untip ");
    scene.child.show();
    scene.child.setFocusPolicy(ZrWidget::AnyFocus);
    scene.child.setFocus(Zr::KeyManagerFocus);
    play(rest);
    EXPECT_NE(take().find("tip=child@99"), std::string::npos) << "the keys rest on it";
    ZrDesktop::setFocusWidget(nullptr, 0);
    EXPECT_NE(take().find("untip "), std::string::npos);
    ZrDesktop::setToolTipView(nullptr);
}
