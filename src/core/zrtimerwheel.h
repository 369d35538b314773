// All timers, ordered by the time at which they fire next; equal times in order of registration.
//
// A hierarchical timing wheel: a slot of the lowest level is 2^20 ns (about a millisecond), each
// level above is 64 times as coarse. Inserting and removing are constant time; a timer moves down
// a level at most once a level. What falls into the tick under way is kept sorted to the
// nanosecond. (G. Varghese, T. Lauck: Hashed and Hierarchical Timing Wheels, 1987.)
//
// No lock and no clock: the caller gives the time, in nanoseconds of the monotonic clock.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

class ZrObject;

struct ZrTimerRecord {
    std::int64_t interval = 0;
    std::int64_t nextTimeout = 0;
    std::uint32_t timerId = 0;
    int repeats = 0; // -1 for ever, otherwise how many more times it fires
    ZrObject *object = nullptr;
    std::uint64_t order = 0; // of registration

    // Where the record stands: a wheel slot's ring, or nowhere while it is imminent or free.
    ZrTimerRecord *previous = nullptr;
    ZrTimerRecord *next = nullptr;
    std::int16_t slot = -1;
    ZrTimerRecord *sameBucket = nullptr; // chain of the id table
};

class ZrTimerWheel
{
public:
    ZrTimerWheel();
    ~ZrTimerWheel();
    ZrTimerWheel(const ZrTimerWheel &) = delete;
    ZrTimerWheel &operator=(const ZrTimerWheel &) = delete;

    bool isEmpty() const { return size_ == 0; }
    int size() const { return size_; }

    // Fires first at now + interval. Ids count upwards, skip 0 and skip ids in use.
    std::uint32_t insert(std::int64_t now, std::int64_t interval, ZrObject *object, int repeats);
    bool remove(std::uint32_t id);
    void removeAll(const ZrObject *object);

    // Calls fire(id, object) for each timer due at `now`, in order, and re-inserts the repeating
    // ones one interval after their due time: a late caller gets the missed ticks too. `fire` must
    // not change the wheel.
    template <typename Fire>
    void expire(std::int64_t now, Fire fire)
    {
        do {
            while (ZrTimerRecord *record = firstDue(now)) {
                fire(record->timerId, record->object);
                finishDue(record);
            }
        } while (advance(now));
    }

    // A time at or before the next expiry, at which the caller has to look again; false without
    // timers.
    bool nextLook(std::int64_t &time) const;

    // The id counter, for the test of its wrap.
    void setLastId(std::uint32_t id) { lastId_ = id; }

private:
    static constexpr int TickShift = 20;
    static constexpr int LevelBits = 6;
    static constexpr int SlotsPerLevel = 1 << LevelBits;
    static constexpr int Levels = 8;

    struct Slot {
        ZrTimerRecord *first = nullptr;
    };

    void place(ZrTimerRecord *record);
    void unlink(ZrTimerRecord *record);
    // Empties the next slot that begins at or before `now`; false when there is none.
    bool advance(std::int64_t now);
    bool nextOccupied(std::int64_t limit, int &level, int &index, std::int64_t &tick) const;
    void empty(int level, int index);
    void insertImminent(ZrTimerRecord *record);
    ZrTimerRecord *firstDue(std::int64_t now);
    void finishDue(ZrTimerRecord *record);
    ZrTimerRecord *find(std::uint32_t id) const;
    void enterId(ZrTimerRecord *record);
    void forgetId(ZrTimerRecord *record);
    void growTable();
    ZrTimerRecord *allocate();
    void release(ZrTimerRecord *record);

    Slot slots_[Levels * SlotsPerLevel];
    std::uint64_t occupied_[Levels] = {};
    std::int64_t tick_ = -1; // of the slots already emptied; set by the first call
    // The tick under way, latest first, so that the next to fire is taken from the end.
    std::vector<ZrTimerRecord *> imminent_;
    std::vector<ZrTimerRecord *> table_; // by id, chained
    std::vector<std::unique_ptr<ZrTimerRecord[]>> chunks_;
    ZrTimerRecord *free_ = nullptr;
    int size_ = 0;
    std::uint32_t lastId_ = 0;
    std::uint64_t lastOrder_ = 0;
};
