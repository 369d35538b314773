#include "support/random_seed.h"
#include "zrtool/tracked.h"

#include <zrlist>
#include <zrstringlist>
#include <zrvector>

#include <gtest/gtest.h>

#include <deque>

namespace
{

// Does the same to a list and to a std::deque, with handles that share the body kept for a while.
template <typename List, typename T>
void compareWithModel()
{
    std::mt19937 random = seededRandom();
    {
        List list;
        std::deque<T> model;
        List kept;
        std::deque<T> keptModel;
        for (int step = 0; step < 4000; step++) {
            const int size = int(model.size()), at = pick(random, 0, size);
            const T value(pick(random, 0, 9));
            switch (pick(random, 0, 8)) {
            case 0:
            case 1:
                list.append(value);
                model.push_back(value);
                break;
            case 2:
                list.insert(0, value);
                model.push_front(value);
                break;
            case 3:
                list.insert(at, value);
                model.insert(model.begin() + at, value);
                break;
            case 4:
                if (at < size) {
                    list[at] = value;
                    model[std::size_t(at)] = value;
                }
                break;
            case 5: // a value of the list itself
                if (at < size) {
                    list.append(std::as_const(list).at(at));
                    model.push_back(T(model[std::size_t(at)]));
                }
                break;
            case 6:
                kept = list;
                keptModel = model;
                break;
            case 7:
                std::swap(list, kept);
                std::swap(model, keptModel);
                break;
            default:
                if constexpr (std::is_same_v<List, ZrList<T>>)
                    list.removeAt(at);
                else
                    list.remove(at);
                if (at < size)
                    model.erase(model.begin() + at);
            }
            ASSERT_EQ(list.size(), int(model.size()));
            const List &same = list;
            ASSERT_TRUE(std::equal(model.begin(), model.end(), same.begin())) << "step " << step;
        }
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

TEST(ZrList, RemovesEveryEqualOneEvenWhenGivenByReference)
{
    ZrList<Large> list{1, 2, 1, 3, 1};
    const ZrList<Large> shared(list);
    EXPECT_EQ(list.removeAll(std::as_const(list).at(0)), 3);
    EXPECT_EQ(list, (ZrList<Large>{2, 3}));
    EXPECT_EQ(shared.size(), 5);
    EXPECT_EQ(list.removeAll(7), 0);
    EXPECT_TRUE(list.removeOne(3));
    EXPECT_FALSE(list.removeOne(3));
}

TEST(ZrList, MovesElementsEitherWay)
{
    ZrList<Large> list{0, 1, 2, 3, 4};
    list.move(1, 3);
    EXPECT_EQ(list, (ZrList<Large>{0, 2, 3, 1, 4}));
    list.move(4, 0);
    EXPECT_EQ(list, (ZrList<Large>{4, 0, 2, 3, 1}));
    EXPECT_EQ(list.takeFirst().value(), 4);
    EXPECT_EQ(list.takeLast().value(), 1);
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
