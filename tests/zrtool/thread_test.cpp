// Handles that go from thread to thread by value. Meant for the thread sanitizer, too.
#include <zrhash>
#include <zrlist>
#include <zrmap>
#include <zrregion>
#include <zrstringlist>
#include <zrvector>
#include <zrwaitcondition>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace
{

struct Values {
    ZrString text;
    ZrStringList list;
    ZrVector<int> vector;
    ZrMap<int, ZrString> map;
    ZrHash<int, ZrString> hash;
    ZrByteArray bytes;
    ZrRegion region;

    void change(int by)
    {
        text.append(ZrUcs2('a' + by % 26));
        list.append(text);
        vector.append(by);
        map.insert(by % 20, text);
        hash.insert(by % 20, text);
        bytes.append(char(by));
        region += ZrRect(by % 50, by % 30, 5, 5);
    }
};

// One place for one value: put in by one thread, taken out by the next.
class Mailbox
{
public:
    void put(const Values &values)
    {
        waitUntilFull(false);
        values_ = values;
        change(true);
    }
    Values take()
    {
        waitUntilFull(true);
        Values taken = values_;
        change(false);
        return taken;
    }

private:
    void waitUntilFull(bool full)
    {
        condition_.lock();
        while (full_ != full)
            condition_.wait(-1);
    }
    void change(bool full)
    {
        full_ = full;
        condition_.wakeAll();
        condition_.unlock();
    }

    ZrWaitCondition condition_;
    Values values_;
    bool full_ = false;
};

} // namespace

TEST(Threads, FourPassHandlesInARing)
{
    constexpr int threads = 4, rounds = 2000;
    Mailbox boxes[threads];
    std::vector<std::thread> ring;
    int lost[threads] = {};
    for (int id = 0; id < threads; id++) {
        ring.emplace_back([&, id] {
            Values mine, kept;
            for (int round = 0; round < rounds; round++) {
                if (round % 20 == 0) // so that nothing grows long
                    mine = Values();
                mine.change(round + id);
                const ZrString before = mine.text;
                boxes[id].put(mine); // the next thread shares it from here on
                mine.change(round);
                kept = boxes[(id + threads - 1) % threads].take();
                lost[id] += before == mine.text;
                if (round % 3 == 0)
                    mine = kept;
            }
        });
    }
    for (std::thread &thread : ring)
        thread.join();
    for (int id = 0; id < threads; id++)
        EXPECT_EQ(lost[id], 0) << "a copy changed with its original";
}

TEST(ZrWaitCondition, TellsBeingWokenFromRunningOut)
{
    ZrWaitCondition condition;
    condition.lock();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(condition.wait(20), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
    EXPECT_EQ(condition.wait(0), 0);

    bool ready = false, woken = false;
    std::thread waiter([&] {
        pthread_mutex_lock(&condition.mutex);
        ready = true;
        while (ready)
            woken = condition.wait(10000) != 0;
        pthread_mutex_unlock(&condition.mutex);
    });
    condition.unlock();
    for (bool seen = false; !seen;) {
        condition.lock();
        if ((seen = ready)) {
            ready = false;
            pthread_cond_signal(&condition.condition);
        }
        condition.unlock();
    }
    waiter.join();
    EXPECT_TRUE(woken);
}

// Some with handles of their own, some with the one handle, while the map makes up its mind to
// index itself; then the last one to hold the body changes it.
TEST(Threads, LookUpInOneMapAtATime)
{
    constexpr int entries = 1000;
    ZrMap<int, int> map;
    for (int i = 0; i < entries; i++)
        map.insert(2 * i, i);
    for (int round = 0; round < 20; round++) {
        std::vector<std::thread> threads;
        std::atomic<int> wrong{0};
        for (int reader = 0; reader < 4; reader++) {
            const ZrMap<int, int> own(map);
            const auto lookUp = [&wrong](const ZrMap<int, int> &in) {
                for (int key = 0; key < 2 * entries; key++)
                    wrong += in.value(key, -1) != (key % 2 == 0 ? key / 2 : -1);
            };
            if (reader < 2)
                threads.emplace_back([own, lookUp] { lookUp(own); });
            else
                threads.emplace_back([&map, lookUp] { lookUp(map); });
        }
        for (std::thread &thread : threads)
            thread.join();
        ASSERT_EQ(wrong, 0);
        map.remove(0);
        map.insert(0, 0);
    }
}
