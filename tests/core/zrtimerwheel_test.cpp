#include <gtest/gtest.h>

#include "core/zrtimerwheel.h"
#include "support/random_seed.h"

#include <algorithm>
#include <map>
#include <zrobject>

namespace
{

constexpr std::int64_t Millisecond = 1000000;

// The same timers in a plain map by time and order, which needs no wheel.
class PlainTimers
{
public:
    void insert(std::int64_t now, std::int64_t interval, std::uint32_t id, int repeats)
    {
        timers_[{now + interval, ++order_}] = {interval, id, repeats};
    }
    void remove(std::uint32_t id)
    {
        timers_.erase(std::find_if(timers_.begin(), timers_.end(),
                                   [id](const auto &entry) { return entry.second.id == id; }));
    }
    std::vector<std::uint32_t> expire(std::int64_t now)
    {
        std::vector<std::uint32_t> fired;
        while (!timers_.empty() && earliest() <= now) {
            const std::int64_t time = earliest();
            const Timer timer = timers_.begin()->second;
            timers_.erase(timers_.begin());
            fired.push_back(timer.id);
            if (timer.repeats != 0)
                insert(time, timer.interval, timer.id, std::max(timer.repeats - 1, -1));
        }
        return fired;
    }
    std::size_t size() const { return timers_.size(); }
    std::int64_t earliest() const { return timers_.begin()->first.first; }
    std::uint32_t id(std::size_t index) const
    {
        return std::next(timers_.begin(), std::ptrdiff_t(index))->second.id;
    }

private:
    struct Timer {
        std::int64_t interval;
        std::uint32_t id;
        int repeats;
    };
    std::map<std::pair<std::int64_t, std::uint64_t>, Timer> timers_;
    std::uint64_t order_ = 0;
};

} // namespace

TEST(ZrTimerWheel, FiresAsAPlainMapWould)
{
    std::mt19937 random = seededRandom();
    const std::int64_t intervals[] = {1,
                                      Millisecond,
                                      3 * Millisecond,
                                      40 * Millisecond,
                                      1000 * Millisecond,
                                      3600000 * Millisecond};
    ZrTimerWheel wheel;
    PlainTimers plain;
    std::int64_t now = 987654321012345;
    for (int step = 0; step < 2000; ++step) {
        const int action = pick(random, 0, 9);
        if (action < 6) {
            const std::int64_t interval = intervals[pick(random, 0, 5)] * pick(random, 1, 9);
            const int repeats = interval < Millisecond ? 0 : pick(random, 0, 2);
            const std::uint32_t id = wheel.insert(now, interval, nullptr, repeats);
            plain.insert(now, interval, id, repeats);
        } else if (action < 8 && plain.size() > 0) {
            const std::uint32_t id = plain.id(random() % plain.size());
            ASSERT_TRUE(wheel.remove(id));
            plain.remove(id);
        } else {
            now += intervals[pick(random, 0, 4)] * pick(random, 0, 4);
            std::vector<std::uint32_t> ids;
            wheel.expire(now, [&](std::uint32_t id, ZrObject *) { ids.push_back(id); });
            ASSERT_EQ(ids, plain.expire(now)) << "at step " << step;
        }
        ASSERT_EQ(std::size_t(wheel.size()), plain.size());
        std::int64_t look = 0;
        ASSERT_EQ(wheel.nextLook(look), plain.size() > 0);
        if (plain.size() > 0) {
            ASSERT_LE(look, std::max(now, plain.earliest())) << "at step " << step;
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
