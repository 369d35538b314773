#include "core/zrtimercore.h"

#include <cstdio>
#include <ctime>
#include <zrapplication>
#include <zrevent>

namespace
{

constexpr std::int64_t NanosecondsPerMillisecond = 1000000;
constexpr std::int64_t NanosecondsPerSecond = 1000000000;

std::int64_t (*testClock)() = nullptr;

class Locked
{
public:
    explicit Locked(pthread_mutex_t &mutex) : mutex_(mutex) { pthread_mutex_lock(&mutex_); }
    ~Locked() { pthread_mutex_unlock(&mutex_); }
    Locked(const Locked &) = delete;
    Locked &operator=(const Locked &) = delete;

private:
    pthread_mutex_t &mutex_;
};

} // namespace

ZrTimerCore::ZrTimerCore()
{
    pthread_condattr_t attributes;
    pthread_condattr_init(&attributes);
    pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
    pthread_cond_init(&changed_, &attributes);
    pthread_condattr_destroy(&attributes);
}

ZrTimerCore::~ZrTimerCore()
{
    stop();
    pthread_cond_destroy(&changed_);
}

std::int64_t ZrTimerCore::now()
{
    if (testClock)
        return testClock();
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * NanosecondsPerSecond + time.tv_nsec;
}

void ZrTimerCore::setTestClock(std::int64_t (*clock)())
{
    testClock = clock;
}

std::uint32_t ZrTimerCore::registerTimer(int ms, ZrObject *object, int repeats)
{
    const std::int64_t interval = (ms <= 0 ? 1 : ms) * NanosecondsPerMillisecond;
    Locked lock(mutex_);
    const std::int64_t start = now();
    const std::uint32_t id = wheel_.insert(start, interval, object, repeats);
    if (start + interval < sleepsUntil_)
        pthread_cond_signal(&changed_);
    return id;
}

bool ZrTimerCore::unregisterTimer(std::uint32_t id)
{
    Locked lock(mutex_);
    if (wheel_.remove(id))
        return true;
    std::printf("[GUI-FRAMEWORK]: unregisterTimer(timer_id=%u), invalid timer id !!!\n", id);
    return false;
}

void ZrTimerCore::unregisterTimers(const ZrObject *object)
{
    Locked lock(mutex_);
    wheel_.removeAll(object);
}

bool ZrTimerCore::postDue(std::int64_t &nextLook)
{
    wheel_.expire(now(), [](std::uint32_t id, ZrObject *object) {
        ZrApplication::postEvent(object, new ZrTimerEvent(id));
    });
    return wheel_.nextLook(nextLook);
}

void ZrTimerCore::activate()
{
    Locked lock(mutex_);
    std::int64_t next = 0;
    postDue(next);
}

void ZrTimerCore::run()
{
    Locked lock(mutex_);
    while (!stopRequested()) {
        std::int64_t next = 0;
        const bool any = postDue(next);
        sleepsUntil_ = any ? next : INT64_MAX;
        if (!any || testClock) {
            pthread_cond_wait(&changed_, &mutex_);
        } else {
            const timespec until = {time_t(next / NanosecondsPerSecond),
                                    long(next % NanosecondsPerSecond)};
            pthread_cond_timedwait(&changed_, &mutex_, &until);
        }
        sleepsUntil_ = 0; // awake: it looks before it sleeps again
    }
}

void ZrTimerCore::wake()
{
    Locked lock(mutex_);
    pthread_cond_signal(&changed_);
}
