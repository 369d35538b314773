#include "core/zrpostqueue.h"

#include <algorithm>
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
    while (hasInHand())
        delete hand_[handNext_++].event;
    while (count_ > 0)
        delete popFront().event;
    std::puts("All events in the list was distroyed !");
}

void ZrPostQueue::grow()
{
    std::vector<ZrPostedEvent> larger(ring_.size() * 2);
    for (std::size_t i = 0; i < count_; ++i)
        larger[i] = ring_[(head_ + i) & mask_];
    ring_.swap(larger);
    mask_ = ring_.size() - 1;
    head_ = 0;
}

void ZrPostQueue::pushBack(const ZrPostedEvent &posted)
{
    if (count_ == ring_.size())
        grow();
    ring_[(head_ + count_++) & mask_] = posted;
}

void ZrPostQueue::pushFront(const ZrPostedEvent &posted)
{
    if (count_ == ring_.size())
        grow();
    head_ = (head_ - 1) & mask_;
    ring_[head_] = posted;
    ++count_;
}

ZrPostedEvent ZrPostQueue::popFront()
{
    const ZrPostedEvent posted = ring_[head_];
    head_ = (head_ + 1) & mask_;
    --count_;
    return posted;
}

void ZrPostQueue::post(ZrObject *receiver, ZrEvent *event)
{
    bool wasEmpty;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        wasEmpty = count_ == 0;
        if (event->type() == ZrEvent::LayoutRequest) {
            pushFront({receiver, event});
            ++urgent_;
            attention_.store(true, std::memory_order_release);
        } else {
            pushBack({receiver, event});
        }
        addToCount(receiver->postedEvents_, 1);
    }
    if (wasEmpty)
        posted_.notify_one();
}

// With the lock held. Events in hand are in no receiver's count.
void ZrPostQueue::fillHand()
{
    handNext_ = 0;
    handCount_ = std::min(count_, HandSize);
    for (std::size_t i = 0; i < handCount_; ++i) {
        hand_[i] = popFront();
        addToCount(hand_[i].receiver->postedEvents_, -1);
    }
    // An urgent one moves with the others: from the head of the ring to the head of the hand.
    urgent_ = std::max(urgent_ - int(handCount_), 0);
}

// The flag is up: an urgent event goes ahead of those in hand, and what another thread wants
// removed goes from them.
bool ZrPostQueue::takeUrgent(ZrPostedEvent &posted)
{
    std::vector<ZrEvent *> removed;
    bool found = false;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        for (ZrObject *receiver : removals_)
            removeFromHand(
                [receiver](const ZrPostedEvent &held) { return held.receiver == receiver; },
                removed);
        removals_.clear();
        if (urgent_ > 0) {
            --urgent_;
            posted = popFront();
            addToCount(posted.receiver->postedEvents_, -1);
            found = true;
        }
        attention_.store(urgent_ > 0, std::memory_order_relaxed);
    }
    for (ZrEvent *event : removed)
        delete event;
    return found;
}

bool ZrPostQueue::takePending(ZrPostedEvent &posted)
{
    if (attention_.load(std::memory_order_acquire) && takeUrgent(posted))
        return true;
    if (!hasInHand()) {
        std::lock_guard<std::mutex> lock(mutex_);
        fillHand();
    }
    if (!hasInHand())
        return false;
    posted = hand_[handNext_++];
    return true;
}

ZrPostedEvent ZrPostQueue::take()
{
    ZrPostedEvent posted;
    while (!takePending(posted)) {
        std::unique_lock<std::mutex> lock(mutex_);
        posted_.wait(lock, [this] { return count_ > 0; });
    }
    return posted;
}

template <typename Predicate>
void ZrPostQueue::removeFromHand(Predicate predicate, std::vector<ZrEvent *> &removed)
{
    std::size_t kept = handNext_;
    for (std::size_t i = handNext_; i < handCount_; ++i) {
        if (predicate(hand_[i]))
            removed.push_back(hand_[i].event);
        else
            hand_[kept++] = hand_[i];
    }
    handCount_ = kept;
}

template <typename Predicate>
void ZrPostQueue::removeWhere(Predicate predicate)
{
    std::vector<ZrEvent *> removed;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        std::size_t kept = 0;
        const int urgent = urgent_;
        for (std::size_t i = 0; i < count_; ++i) {
            const ZrPostedEvent posted = ring_[(head_ + i) & mask_];
            if (predicate(posted)) {
                addToCount(posted.receiver->postedEvents_, -1);
                removed.push_back(posted.event);
                urgent_ -= int(i) < urgent;
            } else {
                ring_[(head_ + kept++) & mask_] = posted;
            }
        }
        count_ = kept;
    }
    if (std::this_thread::get_id() == taker_)
        removeFromHand(predicate, removed);
    // Outside the lock: an event's destructor may be anybody's code.
    for (ZrEvent *event : removed)
        delete event;
}

void ZrPostQueue::removeFor(ZrObject *receiver)
{
    removeWhere([receiver](const ZrPostedEvent &posted) { return posted.receiver == receiver; });
    if (std::this_thread::get_id() == taker_)
        return;
    std::lock_guard<std::mutex> lock(mutex_);
    removals_.push_back(receiver);
    attention_.store(true, std::memory_order_release);
}

void ZrPostQueue::removeQueuedSignals(const ZrObject *sender)
{
    removeWhere([sender](const ZrPostedEvent &posted) {
        return posted.event->type() == ZrEvent::QueuedSignal &&
               static_cast<ZrQueuedSignalEvent *>(posted.event)->sender == sender;
    });
}
