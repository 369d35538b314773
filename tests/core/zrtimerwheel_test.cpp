#include <gtest/gtest.h>

#include "core/zrtimerwheel.h"

#include <algorithm>
#include <random>
#include <zrobject>

namespace
{

constexpr std::int64_t Millisecond = 1000000;

struct Fired {
    std::int64_t time;
    std::uint32_t id;
    bool operator==(const Fired &other) const { return time == other.time && id == other.id; }
};

// The same timers in a plain sorted list, searched from end to end.
class SlowTimers
{
public:
    void insert(std::int64_t now, std::int64_t interval, std::uint32_t id, int repeats)
    {
        timers_.push_back({now + interval, interval, ++order_, id, repeats});
    }
    void remove(std::uint32_t id)
    {
        timers_.erase(std::remove_if(timers_.begin(), timers_.end(),
                                     [id](const Timer &timer) { return timer.id == id; }),
                      timers_.end());
    }
    std::vector<Fired> expire(std::int64_t now)
    {
        std::vector<Fired> fired;
        for (;;) {
            auto first = std::min_element(timers_.begin(), timers_.end(), before);
            if (first == timers_.end() || first->next > now)
                return fired;
            fired.push_back({first->next, first->id});
            Timer timer = *first;
            timers_.erase(first);
            if (timer.repeats == 0)
                continue;
            if (timer.repeats > 0)
                --timer.repeats;
            timer.next += timer.interval;
            timer.order = ++order_;
            timers_.push_back(timer);
        }
    }
    const std::vector<std::uint32_t> ids() const
    {
        std::vector<std::uint32_t> result;
        for (const Timer &timer : timers_)
            result.push_back(timer.id);
        return result;
    }

private:
    struct Timer {
        std::int64_t next, interval;
        std::uint64_t order;
        std::uint32_t id;
        int repeats;
    };
    static bool before(const Timer &left, const Timer &right)
    {
        return left.next != right.next ? left.next < right.next : left.order < right.order;
    }
    std::vector<Timer> timers_;
    std::uint64_t order_ = 0;
};

} // namespace

TEST(ZrTimerWheel, FiresAsAPlainSortedListWould)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::int64_t intervals[] = {1,
                                      Millisecond,
                                      3 * Millisecond,
                                      40 * Millisecond,
                                      1000 * Millisecond,
                                      3600000 * Millisecond};
    ZrTimerWheel wheel;
    SlowTimers slow;
    std::int64_t now = 987654321012345;
    for (int step = 0; step < 2000; ++step) {
        const int action = int(random() % 10);
        if (action < 6) {
            const std::int64_t interval = intervals[random() % 6] * std::int64_t(random() % 9 + 1);
            const int repeats = interval < Millisecond ? 0 : int(random() % 3);
            const std::uint32_t id = wheel.insert(now, interval, nullptr, repeats);
            slow.insert(now, interval, id, repeats);
        } else if (action < 8 && !slow.ids().empty()) {
            const std::uint32_t id = slow.ids()[random() % slow.ids().size()];
            ASSERT_TRUE(wheel.remove(id));
            slow.remove(id);
        } else {
            now += intervals[random() % 5] * std::int64_t(random() % 5);
            std::vector<std::uint32_t> ids;
            wheel.expire(now, [&](std::uint32_t id, ZrObject *) { ids.push_back(id); });
            std::vector<std::uint32_t> expected;
            for (const Fired &fired : slow.expire(now))
                expected.push_back(fired.id);
            ASSERT_EQ(ids, expected) << "at step " << step;
        }
        ASSERT_EQ(std::size_t(wheel.size()), slow.ids().size());
        std::int64_t look = 0;
        if (wheel.nextLook(look)) {
            auto earliest = slow;
            ASSERT_TRUE(look <= now || earliest.expire(look - 1).empty());
        }
    }
}

TEST(ZrTimerWheel, LookingOnlyWhenToldReachesEveryTimerInTime)
{
    ZrTimerWheel wheel;
    const std::int64_t start = 5;
    const std::int64_t interval = 12345678 * Millisecond;
    wheel.insert(start, interval, nullptr, 0);
    std::int64_t look = 0;
    int looks = 0;
    std::int64_t firedAt = 0;
    while (wheel.nextLook(look)) {
        ++looks;
        wheel.expire(look, [&](std::uint32_t, ZrObject *) { firedAt = look; });
        ASSERT_LT(looks, 20);
    }
    EXPECT_EQ(firedAt, start + interval);
}

TEST(ZrTimerWheel, IdsSkipZeroAndThoseInUse)
{
    ZrTimerWheel wheel;
    const std::uint32_t first = wheel.insert(0, Millisecond, nullptr, -1);
    EXPECT_EQ(first, 1u);
    wheel.setLastId(0xFFFFFFFE);
    EXPECT_EQ(wheel.insert(0, Millisecond, nullptr, -1), 0xFFFFFFFFu);
    EXPECT_EQ(wheel.insert(0, Millisecond, nullptr, -1), 2u) << "0 and the living 1 are skipped";
    EXPECT_FALSE(wheel.remove(77));
}
