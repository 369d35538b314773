#include "core/zrpostqueue.h"

#include <cstdio>
#include <zrevent>
#include <zrobject>

namespace
{

// The counter is written only under the queue's lock; readers elsewhere only ask whether it is 0.
void addToCount(std::atomic<int> &counter, int change)
{
    counter.store(counter.load(std::memory_order_relaxed) + change, std::memory_order_relaxed);
}

} // namespace

ZrPostQueue::~ZrPostQueue()
{
    while (count_ > 0)
        delete popFront().event;
    std::puts("All events in the list was distroyed !");
}

void ZrPostQueue::grow()
{
    std::vector<ZrPostedEvent> larger(ring_.size() * 2);
    for (std::size_t i = 0; i < count_; ++i)
        larger[i] = ring_[(head_ + i) & (ring_.size() - 1)];
    ring_.swap(larger);
    head_ = 0;
}

void ZrPostQueue::pushBack(const ZrPostedEvent &posted)
{
    if (count_ == ring_.size())
        grow();
    ring_[(head_ + count_++) & (ring_.size() - 1)] = posted;
}

void ZrPostQueue::pushFront(const ZrPostedEvent &posted)
{
    if (count_ == ring_.size())
        grow();
    head_ = (head_ - 1) & (ring_.size() - 1);
    ring_[head_] = posted;
    ++count_;
}

ZrPostedEvent ZrPostQueue::popFront()
{
    const ZrPostedEvent posted = ring_[head_];
    head_ = (head_ + 1) & (ring_.size() - 1);
    --count_;
    return posted;
}

void ZrPostQueue::post(ZrObject *receiver, ZrEvent *event)
{
    bool wasEmpty;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        wasEmpty = count_ == 0;
        if (event->type() == ZrEvent::LayoutRequest)
            pushFront({receiver, event});
        else
            pushBack({receiver, event});
        addToCount(receiver->postedEvents_, 1);
    }
    if (wasEmpty)
        posted_.notify_one();
}

ZrPostedEvent ZrPostQueue::take()
{
    std::unique_lock<std::mutex> lock(mutex_);
    posted_.wait(lock, [this] { return count_ > 0; });
    const ZrPostedEvent posted = popFront();
    addToCount(posted.receiver->postedEvents_, -1);
    return posted;
}

bool ZrPostQueue::takePending(ZrPostedEvent &posted)
{
    std::lock_guard<std::mutex> lock(mutex_);
    if (count_ == 0)
        return false;
    posted = popFront();
    addToCount(posted.receiver->postedEvents_, -1);
    return true;
}

template <typename Predicate>
void ZrPostQueue::removeWhere(Predicate predicate)
{
    std::vector<ZrEvent *> removed;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        std::size_t kept = 0;
        for (std::size_t i = 0; i < count_; ++i) {
            const ZrPostedEvent posted = ring_[(head_ + i) & (ring_.size() - 1)];
            if (predicate(posted)) {
                addToCount(posted.receiver->postedEvents_, -1);
                removed.push_back(posted.event);
            } else {
                ring_[(head_ + kept++) & (ring_.size() - 1)] = posted;
            }
        }
        count_ = kept;
    }
    // Outside the lock: an event's destructor may be anybody's code.
    for (ZrEvent *event : removed)
        delete event;
}

void ZrPostQueue::removeFor(ZrObject *receiver)
{
    removeWhere([receiver](const ZrPostedEvent &posted) { return posted.receiver == receiver; });
}

void ZrPostQueue::removeQueuedSignals(const ZrObject *sender)
{
    removeWhere([sender](const ZrPostedEvent &posted) {
        return posted.event->type() == ZrEvent::QueuedSignal &&
               static_cast<ZrQueuedSignalEvent *>(posted.event)->sender == sender;
    });
}
