// What a widget is: visibility, geometry, limits, states, painting.
#include "support/random_seed.h"
#include "widgets/probe.h"

#include <vector>
#include <zrcursor>
#include <zrscreencursor>

using Widgets = WidgetTest;

TEST_F(Widgets, ShowSizesPaintsAndHidesATree)
{
    Probe window("w", &log, ZrRect(10, 10, 100, 60));
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
    window.hide();
    EXPECT_EQ(take(), "c:hide w:hide ");
    screen->settle();
    EXPECT_FALSE(screen->isOpaque(40, 30)) << "what nobody covers lets the video through";
    child->show();
    EXPECT_FALSE(child->isVisible() || child->isHidden());
    child->hide();
    window.show();
    EXPECT_EQ(take(), "w:show ") << "a child hidden by request stays hidden";
}

TEST_F(Widgets, MovesUpdateBothPlacesAndSendNoResize)
{
    Probe window("w", &log, ZrRect(0, 0, 40, 40));
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
    window.adjustSize();
    EXPECT_EQ(take(), "w:resize50x40 ");
    window.hint = ZrSize(30, 20);
    window.adjustSize();
    EXPECT_EQ(take(), "w:resize30x20 ");
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
        {[&] { child.setMaximumSize(-4, 0x1000000); },
         "Warning: exceed the max size.\nWarning: setMaximumSize_helper: the size is not "
         "possible.\n",
         ZrSize(0xFFFFFF, 40)},
        {[&] { child.setAttribute(32); }, "setAttribute(): Type is out of range !!!\n",
         ZrSize(0xFFFFFF, 40)},
        {[&] { window.setMinimumSize(1000, 1000); }, "", ZrSize(0xFFFFFF, 40)},
    };
    for (const auto &row : rows) {
        testing::internal::CaptureStdout();
        row.act();
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.line);
        EXPECT_EQ(child.minimumSize(), row.minimum);
    }
    EXPECT_EQ(window.minimumSize(), ZrSize(Width, Height)) << "a window fits on the screen";
    child.setMinimumSize(0, 0);
    child.setMaximumSize(500, 500);
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

TEST_F(Widgets, ParentsBringTheirState)
{
    Probe window("w", &log, ZrRect(0, 0, 100, 100)), other("o", &log, ZrRect(150, 0, 50, 50));
    window.show();
    take();
    Probe child("c", &log, ZrRect(0, 0, 10, 10));
    auto *inner = new Probe("i", &log, ZrRect(0, 0, 5, 5), &child);
    take();
    window.setEnabled(false);
    child.setParent(&window);
    EXPECT_EQ(take(), "c:show i:show ");
    EXPECT_FALSE(child.isWindow() || child.isEnabled() || inner->isEnabled());
    screen->settle();
    EXPECT_FALSE(child.painted.isEmpty());
    child.setWindowFlags(ZrWidget::Popup);
    EXPECT_FALSE(child.isWindow());
    child.setParent(nullptr);
    EXPECT_EQ(take(), "c:hide i:hide ");
    EXPECT_TRUE(child.isWindow() && child.isEnabled() && inner->isEnabled());
    child.show();
    EXPECT_EQ(ZrDesktop::activeWindow(), &child);
    child.setParent(&other);
    EXPECT_EQ(ZrDesktop::activeWindow(), &window) << "a window that became a child is none";
    EXPECT_FALSE(child.isVisible());
    child.setParent(nullptr); // it is the test's, not the window's
}

TEST_F(Widgets, HolesAreClearAndOnlyTheirChangeIsRepainted)
{
    Probe window("w", &log, ZrRect(0, 0, Width, Height));
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

    Probe above("a", &log, ZrRect(60, 60, 20, 20));
    above.show();
    screen->settle();
    EXPECT_TRUE(screen->isOpaque(70, 70)) << "a window above a hole needs no care";
    above.hide();
    window.setHoleRegion(ZrRegion(ZrRect::fromEdges(0, 0, -1, -1)));
    screen->settle();
    EXPECT_TRUE(screen->isOpaque(70, 70));
}

namespace
{

// Windows full of overlapping children, some hidden, some with holes. Its colours change with the
// generation, unseen until painted.
class RandomScene
{
public:
    RandomScene(std::mt19937 &random, std::string *log, int width, int height)
        : random_(random), log_(log)
    {
        windows_.push_back(std::make_unique<Probe>("w", log, ZrRect(0, 0, width, height)));
        windows_.push_back(std::make_unique<Probe>("v", log, randomRect()));
        windows_.back()->setAttribute(ZrWidget::Translucent, pick(random, 0, 1));
        for (const auto &window : windows_) {
            all_.push_back(window.get());
            addChildren(window.get(), 3);
            window->show();
        }
    }

    void setGeneration(int generation)
    {
        int number = generation * 97;
        for (Probe *probe : all_) {
            number += 37;
            probe->color = ZrColor(number % 256, number * 7 % 256, number * 13 % 256);
        }
    }
    void updateEverything()
    {
        for (const auto &window : windows_)
            window->update();
    }
    void updateSomething()
    {
        Probe *probe = all_[std::size_t(pick(random_, 0, int(all_.size()) - 1))];
        if (pick(random_, 0, 3) == 0)
            probe->setHoleRegion(ZrRegion(randomRect()));
        probe->update(randomRect());
    }

private:
    ZrRect randomRect()
    {
        return ZrRect(pick(random_, -20, 200), pick(random_, -20, 120), pick(random_, 1, 150),
                      pick(random_, 1, 90));
    }
    void addChildren(ZrWidget *parent, int depth)
    {
        for (int i = pick(random_, 1, 4); depth > 0 && i > 0; --i) {
            auto *child = new Probe("c", log_, randomRect(), parent);
            child->setVisible(pick(random_, 0, 5) > 0);
            if (pick(random_, 0, 7) == 0)
                child->setHoleRegion(ZrRegion(randomRect()));
            all_.push_back(child);
            addChildren(child, depth - 1);
        }
    }

    std::mt19937 &random_;
    std::string *log_;
    std::vector<std::unique_ptr<Probe>> windows_;
    std::vector<Probe *> all_;
};

} // namespace

TEST_F(Widgets, PaintingARegionEqualsTheWholePaintingCutToIt)
{
    std::mt19937 random = seededRandom();
    for (int round = 0; round < 12; ++round) {
        RandomScene scene(random, &log, Width, Height);
        for (int step = 0; step < 12; ++step) {
            const auto paintAll = [&](int generation) {
                scene.setGeneration(generation);
                scene.updateEverything();
                screen->settle();
                return screen->picture();
            };
            paintAll(1);
            scene.setGeneration(2);
            scene.updateSomething();
            const ZrRegion dirty = ZrScreen::instance()->dirtyRegion();
            screen->settle();
            const std::vector<std::uint16_t> partly = screen->picture();
            const std::vector<std::uint16_t> before = paintAll(1), after = paintAll(2);
            for (std::size_t i = 0; i < partly.size(); ++i) {
                const ZrPoint at(int(i) % Width, int(i) / Width);
                const std::uint16_t expected = dirty.contains(at) ? after[i] : before[i];
                ASSERT_EQ(partly[i], expected)
                    << "round " << round << " step " << step << " at " << at.x() << "," << at.y();
            }
        }
    }
}

TEST_F(Widgets, HandlersMayDeleteWidgetsAsTheyShowHideAndClose)
{
    const struct {
        const char *what;
        int type;
        bool deletesWindow;
        std::function<void(ZrWidget &)> act;
        const char *expected;
    } rows[] = {
        {"a window in its own hide", ZrEvent::Hide, true, [](ZrWidget &w) { w.hide(); },
         "w:hide c:! "},
        {"a child in its hide", ZrEvent::Hide, false, [](ZrWidget &w) { w.hide(); },
         "w:hide c:! d:hide "},
        {"a window as a child shows", ZrEvent::Show, true, [](ZrWidget &w) { w.show(); },
         "w:show c:! "},
        {"a child as it shows", ZrEvent::Show, false, [](ZrWidget &w) { w.show(); },
         "w:show c:! d:show "},
        {"a window that is closed", ZrEvent::Close, true, [](ZrWidget &w) { w.close(); }, "c:! "},
    };
    for (const auto &row : rows) {
        auto *window = new Probe("w", &log, ZrRect(0, 0, 100, 100));
        auto *child = new Probe("c", &log, ZrRect(0, 0, 50, 50), window);
        new Probe("d", &log, ZrRect(0, 0, 20, 20), window);
        if (row.type != ZrEvent::Show)
            window->show();
        bool done = false;
        const std::function<void()> destroy = [&, window, child] {
            if (done)
                return;
            done = true;
            delete (row.deletesWindow ? window : child);
        };
        child->on[row.type] = destroy;
        if (row.type == ZrEvent::Close) {
            window->on[row.type] = [&] { child->close(); };
        }
        take();
        row.act(*window);
        if (row.type == ZrEvent::Close)
            EXPECT_EQ(take(), "w:! c:! ") << row.what;
        else
            EXPECT_EQ(take(), row.expected) << row.what;
        if (!row.deletesWindow)
            delete window;
        take();
    }
}

TEST_F(Widgets, ClosingAsksAndDeletesByTheQueue)
{
    auto *window = new Probe("w", &log, ZrRect(0, 0, 50, 50));
    const ZrGuard<ZrWidget> guard(window);
    window->setAttribute(ZrWidget::DeleteOnClose);
    window->show();
    window->on[ZrEvent::Close] = [] {}; // does not accept
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    window->on.clear();
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(guard && !window->isVisible()) << "its handlers return before it goes";
    screen->settle();
    EXPECT_FALSE(guard);
}
