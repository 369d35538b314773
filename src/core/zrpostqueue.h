// Events waiting for the widget thread. Any thread posts and removes; the thread that made the
// queue takes.
//
// The taker takes a handful of events under one lock and hands them out without it. What must get
// ahead of that handful, an urgent event or a removal by another thread, raises a flag that the
// taker looks at each time.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>
#include <vector>

class ZrEvent;
class ZrObject;

struct ZrPostedEvent {
    ZrObject *receiver;
    ZrEvent *event;
};

class ZrPostQueue
{
public:
    ZrPostQueue() = default;
    // Deletes what is left and says so on standard output.
    ~ZrPostQueue();
    ZrPostQueue(const ZrPostQueue &) = delete;
    ZrPostQueue &operator=(const ZrPostQueue &) = delete;

    // Takes the event. A layout request goes to the head, all others to the end.
    void post(ZrObject *receiver, ZrEvent *event);
    // Sleeps while the queue is empty. The caller owns the event.
    ZrPostedEvent take();
    bool takePending(ZrPostedEvent &posted);
    // By the taker: nothing of the receiver is delivered any more. By another thread: nothing from
    // the next event on.
    void removeFor(ZrObject *receiver);
    // Whether the taker has events in hand, which no receiver's count includes.
    bool hasInHand() const { return handNext_ < handCount_; }
    // Drops the waiting slot calls whose sender is `sender`.
    void removeQueuedSignals(const ZrObject *sender);

private:
    static constexpr std::size_t HandSize = 32;

    void grow();
    void pushBack(const ZrPostedEvent &posted);
    void pushFront(const ZrPostedEvent &posted);
    ZrPostedEvent popFront();
    void fillHand();
    bool takeUrgent(ZrPostedEvent &posted);
    template <typename Predicate>
    void removeWhere(Predicate predicate);
    template <typename Predicate>
    void removeFromHand(Predicate predicate, std::vector<ZrEvent *> &removed);

    std::mutex mutex_;
    std::condition_variable posted_;
    // A ring whose size is a power of two: an entry costs no allocation of its own.
    std::vector<ZrPostedEvent> ring_ = std::vector<ZrPostedEvent>(256);
    std::size_t mask_ = 255; // of an index into the ring
    std::size_t head_ = 0;
    std::size_t count_ = 0;
    int urgent_ = 0;                     // how many of the first in the ring are urgent
    std::vector<ZrObject *> removals_;   // by other threads, for the events in hand
    std::atomic<bool> attention_{false}; // urgent_ or removals_ want the taker's look
    const std::thread::id taker_ = std::this_thread::get_id();
    // The taker's own from here on.
    ZrPostedEvent hand_[HandSize];
    std::size_t handNext_ = 0;
    std::size_t handCount_ = 0;
};
