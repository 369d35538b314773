#include "support/random_seed.h"
#include "zrtool/change.h"
#include "zrtool/tracked.h"

#include <zrhash>
#include <zrmap>
#include <zrstring>

#include <gtest/gtest.h>

#include <map>
#include <unordered_map>

namespace
{

using Model = std::multimap<int, int>;
constexpr int keys = 300;

void expectEqual(const ZrMap<int, Large> &map, const Model &model)
{
    ASSERT_EQ(map.size(), int(model.size()));
    auto at = map.begin();
    for (const auto &[key, value] : model) {
        ASSERT_EQ(at.key(), key);
        ASSERT_EQ(at->value(), value);
        ++at;
    }
    ASSERT_TRUE(at == map.end());
}

// Enough look-ups for a map to index its entries, and each held against the model.
void expectLookUps(const ZrMap<int, Large> &map, const Model &model)
{
    for (int key = -1; key <= keys; key++) {
        const auto found = model.lower_bound(key), behind = model.upper_bound(key);
        const auto lower = map.lowerBound(key), upper = map.upperBound(key);
        ASSERT_EQ(lower == map.end(), found == model.end()) << key;
        ASSERT_EQ(upper == map.end(), behind == model.end()) << key;
        if (found != model.end()) {
            ASSERT_EQ(lower.key(), found->first);
            ASSERT_EQ(lower.value(), found->second); // the first of equal ones
        }
        if (behind != model.end()) {
            ASSERT_EQ(upper.value(), behind->second);
        }
        ASSERT_EQ(map.contains(key), found != behind) << key;
    }
}

} // namespace

// A large map has an index between its changes, and loses it in the midst of them.
TEST(ZrMap, AgreesWithAMultimapUnderRandomChanges)
{
    std::mt19937 random = seededRandom();
    {
        ZrMap<int, Large> map, kept;
        Model model, keptModel;
        int key = 0, value = 0, removed = 0;
        const auto place = [&] {
            return model.count(key) ? model.lower_bound(key) : model.insert({key, 0});
        };
        const Change changes[] = {
            {[&] { map.insert(key, value); }, [&] { place()->second = value; }},
            {[&] { map[key] = value; }, [&] { place()->second = value; }},
            {[&] { map.insertMulti(key, value); },
             [&] {
                 model.insert(model.lower_bound(key), {key, value});
             }},
            {[&] { map.insertMulti(key, value, ZrMap<int, Large>::Among::Behind); },
             [&] {
                 model.insert(model.upper_bound(key), {key, value});
             }},
            {[&] { removed = map.remove(key); },
             [&] { ASSERT_EQ(removed, int(model.erase(key))); }},
            {[&] {
                 auto at = map.find(key);
                 for (int behind = map.count(key); --behind > 0;)
                     ++at;
                 if (at != map.end())
                     map.erase(at);
             },
             [&] {
                 if (model.count(key) > 0)
                     model.erase(std::prev(model.upper_bound(key)));
             }},
            {[&] { kept = map; }, [&] { keptModel = model; }},
            {[&] { std::swap(map, kept); }, [&] { std::swap(model, keptModel); }},
        };
        for (int step = 0; step < 6000; step++) {
            key = pick(random, 0, keys - 1);
            value = pick(random, 0, 999);
            ASSERT_NO_FATAL_FAILURE(makeOne(changes, random)) << "step " << step;
            ASSERT_NO_FATAL_FAILURE(expectEqual(map, model)) << "step " << step;
            if (step % 8 == 0) {
                ASSERT_NO_FATAL_FAILURE(expectLookUps(map, model)) << "step " << step;
                ASSERT_NO_FATAL_FAILURE(expectLookUps(kept, keptModel)) << "kept, step " << step;
            }
        }
    }
    EXPECT_EQ(Large::alive, 0);
}

TEST(ZrMap, KeepsTheOrderAskedFor)
{
    ZrMap<int, ZrString> map;
    for (int key : {30, 10, 20})
        map.insert(key, ZrString::number(key));
    map.setInsertInOrder(true);
    map.insertMulti(10, "a");
    map.insertMulti(10, "b");
    EXPECT_EQ(map.values(10), (ZrList<ZrString>{"10", "a", "b"}));
    EXPECT_EQ(map.keys(), (ZrList<int>{10, 10, 10, 20, 30}));
    EXPECT_EQ(map.take(10), ZrString("10"));
    EXPECT_EQ(map.value(10), ZrString("a"));
    EXPECT_EQ(map.value(11, "none"), ZrString("none"));
    EXPECT_EQ(std::as_const(map)[99], ZrString());
    EXPECT_EQ(map.size(), 4);
}

TEST(ZrHash, AgreesWithAnUnorderedMapUnderRandomChanges)
{
    std::mt19937 random = seededRandom();
    {
        ZrHash<ZrString, Large> hash, kept;
        std::unordered_map<int, int> model, keptModel;
        ZrString name;
        int key = 0, value = 0, removed = 0;
        const Change changes[] = {
            {[&] { hash.insert(name, value); }, [&] { model[key] = value; }},
            {[&] { hash[name] = value; }, [&] { model[key] = value; }},
            {[&] { removed = hash.remove(name); },
             [&] { ASSERT_EQ(removed, int(model.erase(key))); }},
            {[&] { kept = hash; }, [&] { keptModel = model; }},
            {[&] { std::swap(hash, kept); }, [&] { std::swap(model, keptModel); }},
        };
        for (int step = 0; step < 6000; step++) {
            key = pick(random, 0, 299);
            value = pick(random, 0, 999);
            name = ZrString::number(key);
            ASSERT_NO_FATAL_FAILURE(makeOne(changes, random)) << "step " << step;
            ASSERT_EQ(hash.size(), int(model.size()));
            ASSERT_EQ(hash.contains(name), model.count(key) > 0);
        }
        int walked = 0;
        for (auto at = hash.constBegin(); at != hash.constEnd(); ++at, walked++)
            ASSERT_EQ(at->value(), model.at(at.key().toInt()));
        EXPECT_EQ(walked, int(model.size()));
        for (auto at = hash.begin(); at != hash.end();)
            at = hash.erase(at);
        EXPECT_TRUE(hash.isEmpty());
    }
    EXPECT_EQ(Large::alive, 0);
}

// A number is its own hash, so keys like these would all be in one bucket by their lowest bits.
TEST(ZrHash, SpreadsRegularKeys)
{
    ZrHashData data{nullptr, 1, 0, 0, 0};
    data.rehash(12);
    std::map<ZrHashData::Node **, int> used;
    int fullest = 0;
    for (std::uint64_t i = 0; i < 4096; i++)
        fullest = std::max(fullest, ++used[data.bucket(zrHash(i << 20))]);
    EXPECT_LE(fullest, 8);
    free(data.buckets);
}
