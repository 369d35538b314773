#include "zrtool/change.h"
#include "zrtool/tracked.h"

#include <zrlist>
#include <zrstringlist>
#include <zrvector>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <deque>

namespace
{

// Does the same to a list and to a std::deque, with handles that share the body kept for a while.
template <typename List, typename T>
void compareWithModel()
{
    std::mt19937 random = seededRandom();
    List list, kept;
    std::deque<T> model, keptModel;
    const List &same = list; // reads without detaching
    int at = 0, to = 0;      // in the list; at may be right behind it
    T value;
    const auto erase = [&](const T &gone, int most) {
        for (auto i = model.begin();
             most > 0 && (i = std::find(i, model.end(), gone)) != model.end(); most--)
            i = model.erase(i);
    };
    const auto eraseAt = [&] {
        if (at < int(model.size()))
            model.erase(model.begin() + at);
    };
    std::vector<Change> changes = {
        {[&] { list.append(value); }, [&] { model.push_back(value); }},
        {[&] { list.insert(0, value); }, [&] { model.push_front(value); }},
        {[&] { list.insert(at, value); }, [&] { model.insert(model.begin() + at, value); }},
        {[&] { list[to] = value; }, [&] { *(model.begin() + to) = value; }},
        {[&] { list.append(same.at(to)); }, [&] { model.push_back(T(*(model.begin() + to))); }},
        {[&] { kept = list; }, [&] { keptModel = model; }},
        {[&] { std::swap(list, kept); }, [&] { std::swap(model, keptModel); }},
    };
    if constexpr (std::is_same_v<List, ZrVector<T>>) {
        changes.push_back({[&] { list.remove(at); }, eraseAt});
    } else {
        const auto back = [&] { std::rotate(model.begin() + to, model.end() - 1, model.end()); };
        const auto front = [&] {
            std::rotate(model.begin(), model.begin() + 1, model.begin() + to + 1);
        };
        changes.push_back({[&] { list.move(list.size() - 1, to); }, back});
        changes.push_back({[&] { list.move(0, to); }, front});
        changes.push_back({[&] { list.removeAt(at); }, eraseAt});
        changes.push_back({[&] { list.removeOne(value); }, [&] { erase(value, 1); }});
        changes.push_back({[&] { list.removeAll(same.at(to)); },
                           [&] { erase(T(*(model.begin() + to)), INT_MAX); }});
    }
    for (int step = 0; step < 4000; step++) {
        value = T(pick(random, 0, 99));
        if (list.isEmpty()) { // most changes need an element
            list.append(value);
            model.push_back(value);
        }
        at = pick(random, 0, list.size());
        to = pick(random, 0, list.size() - 1);
        makeOne(changes, random);
        ASSERT_EQ(list.size(), int(model.size()));
        ASSERT_TRUE(std::equal(model.begin(), model.end(), same.begin())) << "step " << step;
    }
}

} // namespace

TEST(ZrList, AgreesWithADequeUnderRandomChanges)
{
    compareWithModel<ZrList<Small>, Small>();
    EXPECT_EQ(Small::alive, 0);
    compareWithModel<ZrList<Large>, Large>();
    EXPECT_EQ(Large::alive, 0);
}

TEST(ZrVector, AgreesWithADequeUnderRandomChanges)
{
    compareWithModel<ZrVector<Large>, Large>();
    EXPECT_EQ(Large::alive, 0);
    compareWithModel<ZrVector<int>, int>();
}

TEST(ZrList, TellsWhatItTook)
{
    ZrList<Large> list{4, 1, 2, 1, 3};
    EXPECT_EQ(list.removeAll(1), 2);
    EXPECT_EQ(list.removeAll(7), 0);
    EXPECT_TRUE(list.removeOne(2));
    EXPECT_FALSE(list.removeOne(2));
    EXPECT_EQ(list.takeFirst().value(), 4);
    EXPECT_EQ(list.takeLast().value(), 3);
}

// A queue that never empties must not grow without end, whichever end it is fed from.
TEST(ZrList, KeepsAQueueInTheRoomItHas)
{
    for (const bool forward : {true, false}) {
        ZrListData data{&ZrListData::sharedNull};
        data.detach(4);
        for (long i = 0; i < 100000; i++) {
            *(forward ? data.append() : data.prepend()) = nullptr;
            if (data.size() > 10)
                data.remove(forward ? 0 : data.size() - 1);
        }
        EXPECT_LT(data.d->alloc, 100) << (forward ? "append" : "prepend");
        ZrListData::freeBody(data.d);
    }
}

TEST(ZrList, CopiesWhenItMayNotBeShared)
{
    ZrList<int> list{1, 2};
    list.setSharable(false);
    const ZrList<int> copy(list);
    EXPECT_FALSE(copy.isSharedWith(list));
    list.setSharable(true);
    EXPECT_TRUE(ZrList<int>(list).isSharedWith(list));
}

TEST(ZrVector, KeepsOrGivesBackCapacityByItsRule)
{
    struct Case {
        int reserved, before, size;
        bool kept;
    };
    const Case cases[] = {
        {0, 100, 100, true}, {0, 100, 50, true}, {0, 100, 49, false},  {0, 100, 0, false},
        {100, 80, 0, true},  {100, 10, 5, true}, {100, 80, 100, true}, {100, 80, 101, false},
    };
    for (const Case &c : cases) {
        ZrVector<int> vector;
        if (c.reserved > 0)
            vector.reserve(c.reserved);
        vector.resize(c.before);
        if (c.reserved == 0)
            vector.squeeze();
        const int capacity = vector.capacity();
        vector.resize(c.size);
        EXPECT_EQ(vector.size(), c.size);
        EXPECT_EQ(vector.capacity() == capacity, c.kept)
            << c.reserved << " " << c.before << " -> " << c.size;
        EXPECT_GE(vector.capacity(), vector.size());
    }
}

TEST(ZrVector, ShrinksAndGrowsWithValueInitialisedElements)
{
    ZrVector<int> vector(3, 7);
    vector.resize(1);
    vector.resize(4);
    EXPECT_EQ(vector, (ZrVector<int>{7, 0, 0, 0}));
    vector.append(vector);
    EXPECT_EQ(vector.size(), 8);
    struct alignas(64) Wide {
        char bytes[64];
    };
    ZrVector<Wide> wide(3);
    wide.resize(100);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(wide.constData()) % 64, 0u);
}

TEST(ZrStringList, FindsSortsAndJoins)
{
    ZrStringList list{"pear", "Apple", "fig"};
    EXPECT_TRUE(list.contains("APPLE", Zr::CaseInsensitive));
    EXPECT_FALSE(list.contains("APPLE"));
    list.sort();
    EXPECT_EQ(list.join("+"), ZrString("Apple+fig+pear"));
}
