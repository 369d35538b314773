#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>
#include <zrapplication>
#include <zreventloop>
#include <zrthread>
#include <zrtimer>

#include "core/zrtimercore.h"

namespace
{

std::atomic<std::int64_t> fakeTime{0}; // the timer thread reads it too

std::int64_t readFakeTime()
{
    return fakeTime.load();
}

class Recorder : public ZrObject
{
public:
    using ZrObject::ZrObject;
    bool event(ZrEvent *event) override
    {
        log += "e" + std::to_string(event->type()) + " ";
        return ZrObject::event(event);
    }
    void customEvent(ZrEvent *event) override
    {
        log += "c" + std::to_string(event->type()) + " ";
        if (onCustom)
            onCustom();
    }
    bool eventFilter(ZrObject *, ZrEvent *event) override
    {
        log += "f" + std::to_string(event->type()) + " ";
        return swallow;
    }
    void timerEvent(ZrTimerEvent *event) override { timers.push_back(event->timerId()); }
    void tick() { log += "t "; }

    std::string log;
    bool swallow = false;
    std::function<void()> onCustom;
    std::vector<std::uint32_t> timers;
};

// An application with time of the test's own.
class Application : public testing::Test
{
protected:
    Application()
    {
        fakeTime = 1000000000;
        ZrTimerCore::setTestClock(readFakeTime);
        application = std::make_unique<ZrApplication>(0, nullptr);
    }
    ~Application() override
    {
        application.reset();
        ZrTimerCore::setTestClock(nullptr);
    }
    // The events of the timers due by then are posted, but not handled yet.
    void postTimers(int ms)
    {
        fakeTime += std::int64_t(ms) * 1000000;
        application->timerCore()->activate();
    }
    void pass(int ms)
    {
        postTimers(ms);
        application->processPending();
    }
    static void post(ZrObject &receiver, int type)
    {
        ZrApplication::postEvent(&receiver, new ZrEvent(type));
    }

    std::unique_ptr<ZrApplication> application;
};

class CountedEvent : public ZrEvent
{
public:
    CountedEvent(int type, int *living) : ZrEvent(type), living_(living) { ++*living_; }
    ~CountedEvent() override { --*living_; }

private:
    int *living_;
};

} // namespace

TEST_F(Application, EventsComeInOrderButLayoutRequestsFirst)
{
    constexpr int Events = 1000; // more than the queue has room for at first
    Recorder recorder;
    std::string expected;
    for (int type = 2000; type < 2000 + Events; ++type) {
        post(recorder, type);
        expected += "c" + std::to_string(type) + " ";
        if (type == 2100)
            application->processPending();
    }
    EXPECT_EQ(recorder.postedEvents(), Events - 101);
    recorder.log.clear();
    post(recorder, ZrEvent::LayoutRequest);
    application->processPending();
    EXPECT_EQ(recorder.log, "e29 " + expected.substr(expected.find("c2101 ")));
    EXPECT_EQ(recorder.postedEvents(), 0);
}

TEST_F(Application, EventsOfADeadReceiverAreDeletedUndelivered)
{
    int living = 0;
    auto recorder = std::make_unique<Recorder>();
    Recorder other;
    ZrApplication::postEvent(recorder.get(), new CountedEvent(1013, &living));
    ZrApplication::postEvent(&other, new CountedEvent(1014, &living));
    recorder.reset();
    EXPECT_EQ(living, 1);
    application->processPending();
    EXPECT_EQ(living, 0);
    EXPECT_EQ(other.log, "c1014 ");
    ZrApplication::postEvent(nullptr, new CountedEvent(1015, &living));
    EXPECT_EQ(living, 0);
}

TEST_F(Application, FiltersSeeOrdinaryEventsNewestFirstAndMayEndThem)
{
    Recorder watched, first, second;
    watched.installEventFilter(&first);
    watched.installEventFilter(&second);
    watched.installEventFilter(&first); // moves to the front
    watched.installEventFilter(nullptr);
    first.swallow = true;
    ZrEvent plain(17);
    EXPECT_TRUE(ZrApplication::notify(&watched, &plain));
    EXPECT_TRUE(plain.isAccepted());
    EXPECT_EQ(first.log, "f17 ");
    EXPECT_EQ(second.log + watched.log, "");

    watched.removeEventFilter(&first);
    application->installEventFilter(&first);
    first.swallow = false;
    ZrEvent again(18);
    ZrApplication::notify(&watched, &again);
    EXPECT_EQ(first.log, "f17 f18 ");
    EXPECT_EQ(second.log, "f18 ");
    EXPECT_EQ(watched.log, "e18 ");

    ZrEvent request(1031);
    ZrApplication::notify(&watched, &request);
    EXPECT_EQ(watched.log, "e18 c1031 ") << "custom events pass no filter";
    application->removeEventFilter(&first);

    auto dying = std::make_unique<Recorder>();
    watched.installEventFilter(dying.get());
    dying.reset();
    ZrApplication::notify(&watched, &again);
    EXPECT_EQ(watched.log, "e18 c1031 e18 ") << "one that is gone is not asked";
}

TEST_F(Application, DeleteLaterWaitsForTheHandler)
{
    struct Dying : Recorder {
        explicit Dying(bool *flag) : gone(flag) {}
        ~Dying() override { *gone = true; }
        bool *gone;
    };
    bool gone = false;
    auto *dying = new Dying(&gone);
    dying->onCustom = [&] {
        dying->deleteLater();
        EXPECT_FALSE(gone);
    };
    post(*dying, 1013);
    application->processPending();
    EXPECT_TRUE(gone);
}

TEST_F(Application, BroadcastReachesEveryChild)
{
    Recorder parent;
    Recorder left(&parent), right(&parent);
    ZrEvent changed(ZrEvent::Broadcast);
    ZrApplication::notify(&parent, &changed);
    EXPECT_EQ(left.log, "e31 ");
    EXPECT_EQ(right.log, "e31 ");
}

TEST_F(Application, ANestedLoopHandlesEventsWhileItsCallerWaits)
{
    Recorder outer, inner;
    EventLoop loop;
    outer.onCustom = [&] {
        EXPECT_TRUE(loop.exec());
        outer.log += "back ";
    };
    inner.onCustom = [&] { loop.exit(); };
    post(outer, 1013);
    post(inner, 1014);
    application->processPending();
    EXPECT_EQ(outer.log, "c1013 back ");
    EXPECT_EQ(inner.log, "c1014 ");
}

TEST_F(Application, TimersFireByTimeThenByOrderAndCatchUp)
{
    Recorder recorder;
    const unsigned late = recorder.startTimer(20, 0);
    const unsigned first = recorder.startTimer(10, 0);
    const unsigned second = recorder.startTimer(10, 1);
    pass(9);
    EXPECT_TRUE(recorder.timers.empty());
    pass(1);
    EXPECT_EQ(recorder.timers, (std::vector<std::uint32_t>{first, second}));
    recorder.timers.clear();
    const unsigned shortest = recorder.startTimer(0);
    pass(10);
    // Ten ticks of the shortest, in step with the others that fall due at 20 ms.
    EXPECT_EQ(std::count(recorder.timers.begin(), recorder.timers.end(), shortest), 10);
    EXPECT_EQ(std::count(recorder.timers.begin(), recorder.timers.end(), late), 1);
    EXPECT_EQ(std::count(recorder.timers.begin(), recorder.timers.end(), second), 1);
}

TEST_F(Application, AStoppedTimerIsSilentThoughItsEventWasPosted)
{
    ZrTimer timer;
    Recorder recorder;
    ZrObject::connect(&timer, &timer.timeout, &recorder, zrSlot<&Recorder::tick>);
    timer.start(10);
    postTimers(10);
    timer.stop();
    application->processPending();
    EXPECT_EQ(recorder.log, "");

    timer.setSingleShot(true);
    timer.start();
    pass(50);
    EXPECT_EQ(recorder.log, "t ");
    EXPECT_FALSE(timer.isActive());
}

TEST_F(Application, UnknownTimersAreRefusedWithALine)
{
    testing::internal::CaptureStdout();
    EXPECT_FALSE(application->timerCore()->unregisterTimer(4711));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "[GUI-FRAMEWORK]: unregisterTimer(timer_id=4711), invalid timer id !!!\n");
}

TEST_F(Application, TimersSpareDeadReceivers)
{
    Recorder living;
    auto dying = std::make_unique<Recorder>();
    for (Recorder *receiver : {&living, dying.get()}) {
        ZrSingleShotTimer::singleShot(10, receiver, zrSlot<&Recorder::tick>);
        receiver->startTimer(10);
    }
    postTimers(10);
    dying.reset();
    application->processPending();
    pass(100);
    EXPECT_EQ(std::count(living.log.begin(), living.log.end(), 't'), 1) << "a single shot";
    EXPECT_EQ(living.timers.size(), 11u);
}

TEST_F(Application, ExecInsideExecIsRefused)
{
    // exec never returns, so it is entered on a queue whose handler leaves the process.
    Recorder recorder;
    recorder.onCustom = [&] { std::exit(application->exec() == 1 ? 42 : 0); };
    post(recorder, 1013);
    ASSERT_EXIT(application->exec(), testing::ExitedWithCode(42), "");
}

// Real threads from here on: run under the thread sanitizer.

TEST(Threads, StartStopAndStartAgain)
{
    class Body : public ZrThread
    {
    public:
        ~Body() override { stop(); }
        std::atomic<int> runs{0};
        std::atomic<bool> woken{false};

    protected:
        void run() override
        {
            ++runs;
            while (!stopRequested())
                std::this_thread::yield();
        }
        void wake() override { woken = true; }
    } body;
    EXPECT_TRUE(body.start());
    EXPECT_TRUE(body.start()) << "a second start is nothing";
    body.stop();
    EXPECT_FALSE(body.isRunning());
    EXPECT_TRUE(body.woken);
    EXPECT_TRUE(body.start());
    body.stop();
    EXPECT_LE(body.runs, 2);
    ZrThread plain; // its body does nothing
    EXPECT_TRUE(plain.start());
}

TEST(Threads, PostingFromManyThreadsLosesNothing)
{
    ZrApplication application(0, nullptr);
    struct Counter : ZrObject {
        void customEvent(ZrEvent *) override { ++count; }
        int count = 0;
    } counter;
    constexpr int Threads = 4, Each = 2000;
    std::vector<std::thread> posters;
    for (int i = 0; i < Threads; ++i) {
        posters.emplace_back([&] {
            for (int n = 0; n < Each; ++n)
                ZrApplication::postEvent(&counter, new ZrEvent(1013));
        });
    }
    while (counter.count < Threads * Each)
        application.processEvents();
    for (std::thread &poster : posters)
        poster.join();
    application.processPending();
    EXPECT_EQ(counter.count, Threads * Each);
}

TEST(Threads, TimersOfRealTimeReachTheQueue)
{
    ZrApplication application(0, nullptr);
    EventLoop loop;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(loop.exec(20)) << "the time limit ends it";
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
}
