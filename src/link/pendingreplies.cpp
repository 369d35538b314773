#include "link/pendingreplies.h"

#include "link/scopedlock.h"

PendingReplies::~PendingReplies()
{
    clearLocked();
}

void PendingReplies::begin()
{
    blocking_.store(true);
}

bool PendingReplies::enter(AppMessage *message)
{
    // Nearly every message of a running interface comes outside a blocking request.
    if (!blocking_.load())
        return false;
    ScopedLock lock(waitLock_.mutex);
    if (!blocking_.load())
        return false;
    stateList_.append(message->seqNumber());
    replyMap_.insertMulti(message->seqNumber(), message,
                          ZrMap<uint32_t, AppMessage *>::Among::Behind);
    replyList_.append(message);
    waitLock_.wakeOne();
    return true;
}

bool PendingReplies::takeReply(uint32_t seqNumber, uint16_t mainType, uint16_t subType,
                               AppMessagePtr *reply)
{
    if (!stateList_.contains(seqNumber))
        return false;
    // App numbers its own messages too: one of them may have the number, and come first.
    auto entry = replyMap_.find(seqNumber);
    while (entry != replyMap_.end() && entry.key() == seqNumber &&
           (entry.value()->mainType() != mainType || entry.value()->subType() != subType))
        ++entry;
    if (entry == replyMap_.end() || entry.key() != seqNumber)
        return false;
    reply->reset(entry.value());
    replyMap_.erase(entry);
    stateList_.removeAll(seqNumber);
    replyList_.removeAll(reply->get());
    return true;
}

PendingReplies::Wait PendingReplies::waitFor(uint32_t seqNumber, uint16_t mainType,
                                             uint16_t subType, Silence *silence,
                                             AppMessagePtr *reply)
{
    ScopedLock lock(waitLock_.mutex);
    for (;;) {
        if (takeReply(seqNumber, mainType, subType, reply))
            return Wait::Found;
        if (closed_)
            return Wait::Closed;
        if (waitLock_.wait(silence->step()))
            silence->broken();
        else if (silence->passed())
            return Wait::TimedOut;
    }
}

void PendingReplies::finish(const std::function<void(AppMessagePtr)> &deliver)
{
    ScopedLock lock(waitLock_.mutex);
    for (AppMessage *message : replyList_)
        deliver(AppMessagePtr(message));
    replyList_.clear();
    replyMap_.clear();
    stateList_.clear();
    // Under the lock and behind the delivery, so that no message slips in between unseen or
    // overtakes those that came before it.
    blocking_.store(false);
}

void PendingReplies::noteState(uint32_t sum)
{
    ScopedLock lock(waitLock_.mutex);
    stateList_.append(sum);
    waitLock_.wakeOne();
}

bool PendingReplies::waitState(uint32_t sum)
{
    ScopedLock lock(waitLock_.mutex);
    while (!stateList_.contains(sum)) {
        if (closed_)
            return false;
        waitLock_.wait(-1);
    }
    stateList_.removeAll(sum);
    return true;
}

void PendingReplies::clear()
{
    ScopedLock lock(waitLock_.mutex);
    clearLocked();
}

void PendingReplies::clearLocked()
{
    for (AppMessage *message : replyList_)
        AppMessage::release(message);
    replyList_.clear();
    replyMap_.clear();
    stateList_.clear();
}

void PendingReplies::close()
{
    ScopedLock lock(waitLock_.mutex);
    closed_ = true;
    waitLock_.wakeAll();
}
