#include <zrwaitcondition>

#include <algorithm>
#include <cerrno>
#include <ctime>

namespace
{

constexpr long long nanosecondsPerSecond = 1000000000;
// Longer waits are cut to this, about 31 years, so that the deadline stays in range.
constexpr long long longestWait = nanosecondsPerSecond * 1000000000;

} // namespace

ZrWaitCondition::ZrWaitCondition()
{
    pthread_mutex_init(&mutex, nullptr);
    pthread_condattr_t attributes;
    pthread_condattr_init(&attributes);
    pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
    pthread_cond_init(&condition, &attributes);
    pthread_condattr_destroy(&attributes);
}

ZrWaitCondition::~ZrWaitCondition()
{
    pthread_cond_destroy(&condition);
    pthread_mutex_destroy(&mutex);
}

int ZrWaitCondition::wait(long long ms)
{
    return waitNanoseconds(ms < 0 ? -1 : std::min(ms, longestWait / 1000000) * 1000000);
}

int ZrWaitCondition::waitNanoseconds(long long ns)
{
    if (ns < 0)
        return pthread_cond_wait(&condition, &mutex) == 0;
    timespec deadline;
    clock_gettime(CLOCK_MONOTONIC, &deadline);
    const long long sum = deadline.tv_nsec + std::min(ns, longestWait);
    deadline.tv_sec += time_t(sum / nanosecondsPerSecond);
    deadline.tv_nsec = long(sum % nanosecondsPerSecond);
    return pthread_cond_timedwait(&condition, &mutex, &deadline) == 0;
}
