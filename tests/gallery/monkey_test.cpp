// Random events over the gallery, in virtual time: nothing may fall over, and what is on the screen
// must at any time be what a full repaint would put there.
#include "galleryscreen.h"
#include "pages.h"
#include "support/random_seed.h"
#include "ui/dialogs/dialogframe.h"

#include <algorithm>
#include <cstdlib>
#include <zrscreen>

namespace
{

#if defined(__SANITIZE_ADDRESS__)
constexpr int ManyEvents = 50000; // four times
#else
constexpr int ManyEvents = 5000;
#endif
constexpr int FewEvents = 1500;

using Pixels = std::vector<std::uint16_t>;

ZrRect difference(const Pixels &left, const Pixels &right)
{
    ZrRect all;
    for (std::size_t at = 0; at < left.size(); ++at)
        if (left[at] != right[at])
            all =
                all | ZrRect(int(at) % GalleryScreen::Width, int(at) / GalleryScreen::Width, 1, 1);
    return all;
}

// Where, and whose that place is.
std::string describe(const ZrRect &place)
{
    std::string text = std::to_string(place.left()) + "," + std::to_string(place.top()) + " " +
                       std::to_string(place.width()) + "x" + std::to_string(place.height());
    for (ZrWidget *at = ZrDesktop::widgetAt(place.center()); at; at = at->parentWidget())
        text += " in " + zrtest::RecorderScreen::utf8(at->className());
    return text;
}

// Acts by posted events, and so goes on in the loops of the dialogs that it opens.
class Monkey : public ZrObject
{
public:
    Monkey(GalleryScreen &test, int events) : test_(test), left_(events) { callAgain(); }
    bool isDone() const { return left_ <= 0 && !ZrDesktop::modalWidget(); }
    int compared() const { return compared_; }
    // The last act may have begun what opens a dialog later: stays to leave that too.
    void linger()
    {
        lingering_ = LingeringRounds;
        callAgain();
    }

    void customEvent(ZrEvent *) override
    {
        called_ = false;
        if (holdsStill_)
            return;
        // First, for an act may begin a loop of its own.
        if (!isDone() || lingering_-- > 0)
            callAgain();
        if (resting_ > 0) {
            if (--resting_ == 0)
                compare();
        } else if (left_-- > 0) {
            act();
            if (left_ % CompareEvery == 0)
                resting_ = RestingRounds;
        } else {
            leaveDialog();
        }
    }

private:
    static constexpr int CompareEvery = 100;
    static constexpr int LingeringRounds = 20;
    static constexpr int RestingRounds = 3; // until all that the last act has caused is done
    static constexpr int PatienceMs = 5000; // longer than any dialog of a page takes to answer

    void callAgain()
    {
        called_ = true;
        ZrApplication::postEvent(this, new CEvent(ZrEvent::FirstCustom));
    }
    int pick(int lowest, int highest) { return ::pick(random_, lowest, highest); }

    void act();
    void movePointer();
    void pressOrRelease();
    void turnWheel();
    void type();
    void passTime(int ms);
    void compare();
    void leaveDialog();
    void sendPointer(int wheel = 0)
    {
        ZrApplication::postEvent(&test_.screen->application(),
                                 new ZrRawMouseEvent(at_, buttons_, wheel));
    }

    GalleryScreen &test_;
    std::mt19937 random_ = seededRandom();
    ZrPoint at_;
    int buttons_ = 0;
    int left_;
    int compared_ = 0;
    int resting_ = 0;
    int lingering_ = 0;
    bool called_ = false;     // an event of its own is on the way
    bool holdsStill_ = false; // while pictures are compared
};

void Monkey::act()
{
    const int kind = pick(0, 99);
    if (kind < 25)
        movePointer();
    else if (kind < 50)
        pressOrRelease();
    else if (kind < 54)
        turnWheel();
    else if (kind < 72)
        test_.navigation.arrow(KeyNavigation::Direction(pick(0, 3)));
    else if (kind < 82)
        test_.navigation.enter();
    else if (kind < 86)
        test_.navigation.key(pick(0, 1) ? Zr::Key_Escape : Zr::Key_Backspace);
    else if (kind < 92)
        type();
    else if (kind < 99)
        passTime(pick(1, 400));
    else
        test_.gallery->showPage(pick(0, PageCount - 1));
}

void Monkey::movePointer()
{
    const bool isNear = pick(0, 2) > 0;
    const int x = isNear ? at_.x() + pick(-60, 60) : pick(0, GalleryScreen::Width - 1);
    const int y = isNear ? at_.y() + pick(-40, 40) : pick(0, GalleryScreen::Height - 1);
    at_ = ZrPoint(std::clamp(x, 0, GalleryScreen::Width - 1),
                  std::clamp(y, 0, GalleryScreen::Height - 1));
    sendPointer();
}

void Monkey::pressOrRelease()
{
    constexpr int Buttons[] = {Zr::LeftButton, Zr::LeftButton, Zr::LeftButton, Zr::RightButton};
    buttons_ = buttons_ ? 0 : Buttons[pick(0, 3)];
    sendPointer();
}

void Monkey::turnWheel()
{
    sendPointer(pick(-2, 2));
}

void Monkey::type()
{
    const char *const texts[] = {"a",
                                 "Z",
                                 "7",
                                 ".",
                                 ":",
                                 "-",
                                 " ",
                                 "ก",
                                 "ี่",
                                 "क्ष",
                                 "ب",
                                 "ש",
                                 "是",
                                 "\u0301",
                                 "\xF0\x9F\x98\x80",
                                 "a long text of words",
                                 "\n"};
    test_.navigation.text(ZrString(texts[pick(0, int(std::size(texts)) - 1)]));
}

void Monkey::passTime(int ms)
{
    zrtest::fakeTime() += std::int64_t(ms) * 1000000;
    test_.screen->application().timerCore()->activate();
}

// Time stands still, so that both pictures are of the same moment.
void Monkey::compare()
{
    holdsStill_ = true;
    test_.screen->settle();
    const auto before = test_.screen->picture();
    for (ZrObject *window : ZrScreen::instance()->topLevels())
        static_cast<ZrWidget *>(window)->update();
    test_.screen->settle();
    ++compared_;
    const ZrRect differs = difference(before, test_.screen->picture());
    EXPECT_TRUE(differs.isEmpty()) << left_ << " events before the end: " << describe(differs);
    holdsStill_ = false;
    if (!called_)
        callAgain();
}

void Monkey::leaveDialog()
{
    buttons_ = 0;
    sendPointer();
    if (!ZrDesktop::modalWidget())
        return;
    test_.navigation.key(Zr::Key_Escape);
    passTime(PatienceMs);
}

int eventsOr(int usual)
{
    const char *given = std::getenv("ZR_MONKEY_EVENTS");
    return given ? std::atoi(given) : usual;
}

class MonkeyRun : public GalleryScreen
{
protected:
    void run(int events)
    {
        std::printf("%d events\n", events);
        Monkey monkey(*this, events);
        while (!monkey.isDone())
            screen->application().processEvents();
        monkey.linger();
        screen->settle();
        while (ZrDesktop::activePopup()) {
            navigation.key(Zr::Key_Escape);
            screen->settle();
        }
        EXPECT_GT(monkey.compared(), 0);
        EXPECT_TRUE(gallery->isVisible());
        EXPECT_EQ(ZrDesktop::activeWindow(), gallery.get());
    }
};
// Several shorter runs, each with a seed of its own, can go side by side.
class LongMonkeyRun : public MonkeyRun, public testing::WithParamInterface<int>
{
};

} // namespace

TEST_F(MonkeyRun, NothingFallsOver)
{
    run(FewEvents);
}

TEST_P(LongMonkeyRun, NothingFallsOver)
{
    run(eventsOr(ManyEvents));
}
INSTANTIATE_TEST_SUITE_P(Slow, LongMonkeyRun, testing::Range(0, 4));
