// Containers beside those of the standard library, handles beside a bare pair of atomics.
#include "support/aims.h"

#include <benchmark/benchmark.h>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>
#include <zrhash>
#include <zrlist>
#include <zrmap>
#include <zrstring>

#include <atomic>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

using benchmark::DoNotOptimize;
using benchmark::State;

namespace
{

constexpr int entries = 5000;

// Ids as text packages have them, met in no order.
int idOf(int i)
{
    return 1000 + 3 * (i * 2671 % entries);
}

// Sixteen lists of ids in turn, so that no branch predictor learns one of them by heart.
class WantedIds
{
public:
    const std::vector<int> &next()
    {
        static const std::vector<std::vector<int>> lists = [] {
            std::mt19937 random(12);
            std::vector<std::vector<int>> made(16, std::vector<int>(entries));
            for (std::vector<int> &list : made)
                for (int &id : list)
                    id = 1000 + 3 * int(random() % entries);
            return made;
        }();
        return lists[next_++ % lists.size()];
    }

private:
    std::size_t next_ = 0;
};

const std::u16string standardLabel = u"some text of a label";

template <typename Map>
Map standardMap()
{
    Map map;
    for (int i = 0; i < entries; i++)
        map[idOf(i)] = standardLabel;
    return map;
}

template <typename Map>
Map ourMap()
{
    const ZrString label("some text of a label");
    Map map;
    for (int i = 0; i < entries; i++)
        map.insert(idOf(i), label);
    return map;
}

template <typename Map>
void lookUpStandard(State &state)
{
    const Map map = standardMap<Map>();
    WantedIds wanted;
    for (auto _ : state) {
        std::size_t sum = 0;
        for (int id : wanted.next())
            sum += map.find(id)->second.size();
        DoNotOptimize(sum);
    }
}

template <typename Map>
void lookUpOurs(State &state)
{
    const Map map = ourMap<Map>();
    WantedIds wanted;
    for (auto _ : state) {
        int sum = 0;
        for (int id : wanted.next())
            sum += map.find(id).value().size();
        DoNotOptimize(sum);
    }
}

std::string nameOf(int i)
{
    return "IDS_TEXT_" + std::to_string(i * 2671 % entries);
}

void lookUpStandardByName(State &state)
{
    std::unordered_map<std::u16string, int> map;
    std::vector<std::u16string> names;
    for (int i = 0; i < entries; i++) {
        const std::string name = nameOf(i);
        names.emplace_back(name.begin(), name.end());
    }
    for (int i = 0; i < entries; i++)
        map[names[std::size_t(i * 7 % entries)]] = i;
    for (auto _ : state) {
        int sum = 0;
        for (const std::u16string &name : names)
            sum += map.find(name)->second;
        DoNotOptimize(sum);
    }
}

void lookUpOursByName(State &state)
{
    ZrHash<ZrString, int> map;
    std::vector<ZrString> names;
    for (int i = 0; i < entries; i++)
        names.emplace_back(nameOf(i).c_str());
    for (int i = 0; i < entries; i++)
        map.insert(names[std::size_t(i * 7 % entries)], i);
    const ZrHash<ZrString, int> &same = map;
    for (auto _ : state) {
        int sum = 0;
        for (const ZrString &name : names)
            sum += same.find(name).value();
        DoNotOptimize(sum);
    }
}

void listAppend(State &state)
{
    for (auto _ : state) {
        ZrList<int> list;
        for (int i = 0; i < 1000; i++)
            list.append(i);
        DoNotOptimize(list);
    }
}

void listAppendYardstick(State &state)
{
    for (auto _ : state) {
        std::vector<int> list;
        for (int i = 0; i < 1000; i++)
            list.push_back(i);
        DoNotOptimize(list);
    }
}

void listAppendText(State &state)
{
    const ZrString text("some text of a label");
    for (auto _ : state) {
        ZrList<ZrString> list;
        for (int i = 0; i < 1000; i++)
            list.append(text);
        DoNotOptimize(list);
    }
}

void listAppendTextYardstick(State &state)
{
    // Counts are atomic only once there was a second thread.
    std::thread([] {}).join();
    const auto text = std::make_shared<const std::u16string>(standardLabel);
    for (auto _ : state) {
        std::vector<std::shared_ptr<const std::u16string>> list;
        for (int i = 0; i < 1000; i++)
            list.push_back(text);
        DoNotOptimize(list.data());
    }
}

// Half of the copies are written to, as a receiver that keeps its own would.
void listCopy(State &state)
{
    ZrList<int> list;
    for (int i = 0; i < 1000; i++)
        list.append(i);
    bool write = false;
    for (auto _ : state) {
        ZrList<int> copy(list);
        if ((write = !write))
            copy.append(1);
        DoNotOptimize(copy);
    }
}

void listCopyYardstick(State &state)
{
    std::vector<int> list(1000, 1);
    bool write = false;
    for (auto _ : state) {
        std::vector<int> copy(list);
        if ((write = !write))
            copy.push_back(1);
        DoNotOptimize(copy.data());
    }
}

struct Counted : boost::intrusive_ref_counter<Counted, boost::thread_safe_counter> {
    int size = 0;
};

void handleCopy(State &state)
{
    const ZrString text("some text of a label");
    for (auto _ : state) {
        ZrString copy(text);
        DoNotOptimize(copy);
    }
}

void handleCopyYardstick(State &state)
{
    const boost::intrusive_ptr<Counted> pointer(new Counted); // owned by itself
    for (auto _ : state) {
        boost::intrusive_ptr<Counted> copy(pointer);
        DoNotOptimize(copy);
    }
}

void insertOurs(State &state)
{
    for (auto _ : state)
        DoNotOptimize(ourMap<ZrMap<int, ZrString>>());
}

void insertStandard(State &state)
{
    for (auto _ : state)
        DoNotOptimize(standardMap<std::map<int, std::u16string>>());
}

BENCHMARK(listAppend);
BENCHMARK(listAppendYardstick);
BENCHMARK(listAppendText);
BENCHMARK(listAppendTextYardstick);
BENCHMARK(listCopy);
BENCHMARK(listCopyYardstick);
BENCHMARK(handleCopy);
BENCHMARK(handleCopyYardstick);
BENCHMARK(insertOurs)->Name("mapInsert");
BENCHMARK(insertStandard)->Name("mapInsertYardstick");
BENCHMARK(lookUpOurs<ZrMap<int, ZrString>>)->Name("mapLookUp");
BENCHMARK(lookUpStandard<std::map<int, std::u16string>>)->Name("mapLookUpYardstick");
BENCHMARK(lookUpOurs<ZrHash<int, ZrString>>)->Name("hashLookUp");
BENCHMARK(lookUpStandard<std::unordered_map<int, std::u16string>>)->Name("hashLookUpYardstick");
BENCHMARK(lookUpOursByName)->Name("hashLookUpByName");
BENCHMARK(lookUpStandardByName)->Name("hashLookUpByNameYardstick");

const bool aims[] = {
    zrbench::atMost("list append beside std::vector", "listAppend", "listAppendYardstick", 2.0),
    zrbench::atMost("list append of strings beside std::vector of std::shared_ptr",
                    "listAppendText", "listAppendTextYardstick", 1.0),
    zrbench::atMost("list copy, every other written to, beside std::vector", "listCopy",
                    "listCopyYardstick", 3.0),
    zrbench::atMost("handle copy and drop beside boost::intrusive_ptr", "handleCopy",
                    "handleCopyYardstick", 1.2),
    zrbench::atMost("map insert of 5,000 beside std::map", "mapInsert", "mapInsertYardstick", 1.2),
    zrbench::atMost("map look-up in 5,000 beside std::map", "mapLookUp", "mapLookUpYardstick", 1.0),
    zrbench::atMost("hash look-up in 5,000 beside std::unordered_map", "hashLookUp",
                    "hashLookUpYardstick", 1.0),
    zrbench::atMost("hash look-up by name beside std::unordered_map", "hashLookUpByName",
                    "hashLookUpByNameYardstick", 1.0),
};

} // namespace
