// The timer thread: holds all timers, sleeps until the next is due, posts a ZrTimerEvent to its
// object. Register and unregister from any thread.
#pragma once

#include "core/zrtimerwheel.h"

#include <cstdint>
#include <pthread.h>
#include <zrthread>

class ZrTimerCore : public ZrThread
{
public:
    ZrTimerCore();
    ~ZrTimerCore() override;

    // An interval of 0 or less is one millisecond. `repeats` -1 is for ever, otherwise how many
    // more times it fires after the first.
    std::uint32_t registerTimer(int ms, ZrObject *object, int repeats);
    // An unknown id says so on standard output and returns false.
    bool unregisterTimer(std::uint32_t id);
    void unregisterTimers(const ZrObject *object);

    // Nanoseconds of the monotonic clock, or of the test clock.
    static std::int64_t now();
    // Tests own time: with a clock of theirs the thread sleeps until it is poked, never by time.
    static void setTestClock(std::int64_t (*clock)());
    // Posts what is due now. The thread calls it; with a test clock the test may, too.
    void activate();

protected:
    void run() override;
    void wake() override;

private:
    // Posts what is due; gives the time of the next look. False without timers. Lock held.
    bool postDue(std::int64_t &nextLook);

    pthread_mutex_t mutex_ = PTHREAD_MUTEX_INITIALIZER;
    pthread_cond_t changed_; // waits on the monotonic clock: a changed wall clock moves no timer
    ZrTimerWheel wheel_;
    // What the thread waits for; a timer that is due later need not wake it.
    std::int64_t sleepsUntil_ = 0;
};
