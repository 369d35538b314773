// Events waiting for the widget thread. Any thread posts and removes; the widget thread takes.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>
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
    void removeFor(ZrObject *receiver);
    // Drops the waiting slot calls whose sender is `sender`.
    void removeQueuedSignals(const ZrObject *sender);

private:
    void grow();
    void pushBack(const ZrPostedEvent &posted);
    void pushFront(const ZrPostedEvent &posted);
    ZrPostedEvent popFront();
    template <typename Predicate>
    void removeWhere(Predicate predicate);

    std::mutex mutex_;
    std::condition_variable posted_;
    // A ring whose size is a power of two: an entry costs no allocation of its own.
    std::vector<ZrPostedEvent> ring_ = std::vector<ZrPostedEvent>(256);
    std::size_t head_ = 0;
    std::size_t count_ = 0;
};
