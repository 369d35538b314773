// 10,000 timers inserted and expired, and one of them restarted, beside std::multimap.
#include "support/aims.h"

#include "core/zrtimerwheel.h"

#include <benchmark/benchmark.h>

#include <map>
#include <random>
#include <vector>

namespace
{

constexpr int Timers = 10000;
constexpr std::int64_t Millisecond = 1000000;
constexpr std::int64_t LongestMs = 60000;

const std::vector<std::int64_t> &intervals()
{
    static const std::vector<std::int64_t> values = [] {
        std::mt19937 random(20261121);
        std::vector<std::int64_t> made;
        for (int i = 0; i < Timers; ++i)
            made.push_back((std::int64_t(random() % LongestMs) + 1) * Millisecond);
        return made;
    }();
    return values;
}

void insertAndExpireWheel(benchmark::State &state)
{
    for (auto _ : state) {
        ZrTimerWheel wheel;
        for (const std::int64_t interval : intervals())
            wheel.insert(0, interval, nullptr, 0);
        long fired = 0;
        for (std::int64_t now = 0; !wheel.isEmpty(); now += 10 * Millisecond)
            wheel.expire(now, [&fired](std::uint32_t, ZrObject *) { ++fired; });
        benchmark::DoNotOptimize(fired);
    }
}

struct PlainTimer {
    std::uint32_t id;
    ZrObject *object;
};

void insertAndExpireMultimap(benchmark::State &state)
{
    for (auto _ : state) {
        std::multimap<std::int64_t, PlainTimer> timers;
        std::uint32_t id = 0;
        for (const std::int64_t interval : intervals())
            timers.emplace(interval, PlainTimer{++id, nullptr});
        long fired = 0;
        for (std::int64_t now = 0; !timers.empty(); now += 10 * Millisecond) {
            while (!timers.empty() && timers.begin()->first <= now) {
                ++fired;
                timers.erase(timers.begin());
            }
        }
        benchmark::DoNotOptimize(fired);
    }
}

void restartWheel(benchmark::State &state)
{
    ZrTimerWheel wheel;
    std::vector<std::uint32_t> ids;
    for (const std::int64_t interval : intervals())
        ids.push_back(wheel.insert(0, interval, nullptr, 0));
    std::size_t next = 0;
    for (auto _ : state) {
        wheel.remove(ids[next]);
        ids[next] = wheel.insert(0, intervals()[(next * 7) % Timers], nullptr, 0);
        next = (next + 1) % Timers;
    }
}

void restartMultimap(benchmark::State &state)
{
    std::multimap<std::int64_t, PlainTimer> timers;
    std::vector<std::multimap<std::int64_t, PlainTimer>::iterator> places;
    std::uint32_t id = 0;
    for (const std::int64_t interval : intervals())
        places.push_back(timers.emplace(interval, PlainTimer{++id, nullptr}));
    std::size_t next = 0;
    for (auto _ : state) {
        timers.erase(places[next]);
        places[next] = timers.emplace(intervals()[(next * 7) % Timers], PlainTimer{++id, nullptr});
        next = (next + 1) % Timers;
    }
}

BENCHMARK(insertAndExpireWheel);
BENCHMARK(insertAndExpireMultimap);
BENCHMARK(restartWheel);
BENCHMARK(restartMultimap);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("10,000 timers inserted and expired beside multimap", "insertAndExpireWheel",
                    "insertAndExpireMultimap", 1),
    zrbench::atMost("one of 10,000 timers restarted beside multimap", "restartWheel",
                    "restartMultimap", 1)};

} // namespace
