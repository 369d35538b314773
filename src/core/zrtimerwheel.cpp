#include "core/zrtimerwheel.h"

#include <algorithm>

namespace
{

constexpr int ChunkRecords = 64;

// Latest first; of equal times the one registered last stands first.
bool later(const ZrTimerRecord *left, const ZrTimerRecord *right)
{
    if (left->nextTimeout != right->nextTimeout)
        return left->nextTimeout > right->nextTimeout;
    return left->order > right->order;
}

} // namespace

ZrTimerWheel::ZrTimerWheel() : table_(64, nullptr) {}

ZrTimerWheel::~ZrTimerWheel() = default;

std::uint32_t ZrTimerWheel::insert(std::int64_t now, std::int64_t interval, ZrObject *object,
                                   int repeats)
{
    if (tick_ < 0)
        tick_ = now >> TickShift;
    ZrTimerRecord *record = allocate();
    record->interval = interval;
    record->nextTimeout = now + interval;
    record->object = object;
    record->repeats = repeats;
    record->order = ++lastOrder_;
    do
        ++lastId_;
    while (lastId_ == 0 || find(lastId_));
    record->timerId = lastId_;
    enterId(record);
    place(record);
    ++size_;
    return record->timerId;
}

bool ZrTimerWheel::remove(std::uint32_t id)
{
    ZrTimerRecord *record = find(id);
    if (!record)
        return false;
    if (record->slot >= 0)
        unlink(record);
    else
        imminent_.erase(std::find(imminent_.begin(), imminent_.end(), record));
    forgetId(record);
    release(record);
    return true;
}

void ZrTimerWheel::removeAll(const ZrObject *object)
{
    std::vector<std::uint32_t> ids;
    for (const ZrTimerRecord *bucket : table_) {
        for (; bucket; bucket = bucket->sameBucket) {
            if (bucket->object == object)
                ids.push_back(bucket->timerId);
        }
    }
    for (const std::uint32_t id : ids)
        remove(id);
}

// The slot depends on how far ahead the tick is: the level is the highest 6-bit digit in which it
// differs from the present tick.
void ZrTimerWheel::place(ZrTimerRecord *record)
{
    const std::int64_t tick = record->nextTimeout >> TickShift;
    if (tick <= tick_) {
        insertImminent(record);
        return;
    }
    const int highestBit = 63 - __builtin_clzll(static_cast<std::uint64_t>(tick ^ tick_));
    const int level = highestBit / LevelBits;
    const int index = int(tick >> (level * LevelBits)) & (SlotsPerLevel - 1);
    record->slot = std::int16_t(level * SlotsPerLevel + index);
    ZrTimerRecord *&first = slots_[record->slot].first;
    record->previous = nullptr;
    record->next = first;
    if (first)
        first->previous = record;
    first = record;
    occupied_[level] |= std::uint64_t(1) << index;
}

void ZrTimerWheel::unlink(ZrTimerRecord *record)
{
    Slot &slot = slots_[record->slot];
    if (record->previous)
        record->previous->next = record->next;
    else
        slot.first = record->next;
    if (record->next)
        record->next->previous = record->previous;
    if (!slot.first)
        occupied_[record->slot / SlotsPerLevel] &=
            ~(std::uint64_t(1) << (record->slot % SlotsPerLevel));
    record->slot = -1;
}

void ZrTimerWheel::insertImminent(ZrTimerRecord *record)
{
    record->slot = -1;
    imminent_.insert(std::upper_bound(imminent_.begin(), imminent_.end(), record, later), record);
}

// The earliest occupied slot, if it begins at or before `limit`. The lowest level that holds
// anything holds it: the slots of a level share all higher digits with the present tick.
bool ZrTimerWheel::nextOccupied(std::int64_t limit, int &level, int &index,
                                std::int64_t &tick) const
{
    for (level = 0; level < Levels; ++level) {
        if (!occupied_[level])
            continue;
        const int shift = level * LevelBits;
        index = __builtin_ctzll(occupied_[level]);
        tick = ((tick_ >> (shift + LevelBits)) << (shift + LevelBits)) +
               (std::int64_t(index) << shift);
        return tick <= limit;
    }
    return false;
}

void ZrTimerWheel::empty(int level, int index)
{
    ZrTimerRecord *record = slots_[level * SlotsPerLevel + index].first;
    slots_[level * SlotsPerLevel + index].first = nullptr;
    occupied_[level] &= ~(std::uint64_t(1) << index);
    if (level > 0) {
        while (record) {
            ZrTimerRecord *next = record->next;
            place(record);
            record = next;
        }
        return;
    }
    for (; record; record = record->next) {
        record->slot = -1;
        imminent_.push_back(record);
    }
    if (imminent_.size() > 1)
        std::sort(imminent_.begin(), imminent_.end(), later);
}

bool ZrTimerWheel::advance(std::int64_t now)
{
    const std::int64_t target = now >> TickShift;
    int level = 0;
    int index = 0;
    std::int64_t tick = 0;
    if (!nextOccupied(target, level, index, tick)) {
        tick_ = std::max(tick_, target);
        return false;
    }
    tick_ = tick;
    empty(level, index);
    return true;
}

ZrTimerRecord *ZrTimerWheel::firstDue(std::int64_t now)
{
    if (imminent_.empty() || imminent_.back()->nextTimeout > now)
        return nullptr;
    ZrTimerRecord *record = imminent_.back();
    imminent_.pop_back();
    return record;
}

void ZrTimerWheel::finishDue(ZrTimerRecord *record)
{
    if (record->repeats == 0) {
        forgetId(record);
        release(record);
        return;
    }
    if (record->repeats > 0)
        --record->repeats;
    record->nextTimeout += record->interval;
    record->order = ++lastOrder_;
    place(record);
}

bool ZrTimerWheel::nextLook(std::int64_t &time) const
{
    if (!imminent_.empty()) {
        time = imminent_.back()->nextTimeout;
        return true;
    }
    int level = 0;
    int index = 0;
    std::int64_t tick = 0;
    if (!nextOccupied(INT64_MAX, level, index, tick))
        return false;
    if (level > 0) {
        time = tick << TickShift;
        return true;
    }
    time = INT64_MAX;
    for (const ZrTimerRecord *record = slots_[index].first; record; record = record->next)
        time = std::min(time, record->nextTimeout);
    return true;
}

ZrTimerRecord *ZrTimerWheel::find(std::uint32_t id) const
{
    ZrTimerRecord *record = table_[id & (table_.size() - 1)];
    while (record && record->timerId != id)
        record = record->sameBucket;
    return record;
}

void ZrTimerWheel::enterId(ZrTimerRecord *record)
{
    if (std::size_t(size_) >= table_.size())
        growTable();
    ZrTimerRecord *&bucket = table_[record->timerId & (table_.size() - 1)];
    record->sameBucket = bucket;
    bucket = record;
}

void ZrTimerWheel::forgetId(ZrTimerRecord *record)
{
    ZrTimerRecord **link = &table_[record->timerId & (table_.size() - 1)];
    while (*link != record)
        link = &(*link)->sameBucket;
    *link = record->sameBucket;
}

void ZrTimerWheel::growTable()
{
    std::vector<ZrTimerRecord *> old(table_.size() * 2, nullptr);
    old.swap(table_);
    for (ZrTimerRecord *record : old) {
        while (record) {
            ZrTimerRecord *next = record->sameBucket;
            ZrTimerRecord *&bucket = table_[record->timerId & (table_.size() - 1)];
            record->sameBucket = bucket;
            bucket = record;
            record = next;
        }
    }
}

ZrTimerRecord *ZrTimerWheel::allocate()
{
    if (!free_) {
        chunks_.push_back(std::make_unique<ZrTimerRecord[]>(ChunkRecords));
        for (int i = 0; i < ChunkRecords; ++i) {
            chunks_.back()[i].next = free_;
            free_ = &chunks_.back()[i];
        }
    }
    ZrTimerRecord *record = free_;
    free_ = record->next;
    return record;
}

void ZrTimerWheel::release(ZrTimerRecord *record)
{
    record->next = free_;
    free_ = record;
    --size_;
}
