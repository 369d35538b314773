#include "link/nestedwaiters.h"

#include "link/scopedlock.h"

NestedWaiters::~NestedWaiters()
{
    pthread_mutex_destroy(&waiterLock_);
}

void NestedWaiters::remove(const NestedWaiter &waiter)
{
    ScopedLock lock(waiterLock_);
    waiterMap_.remove(waiter.loop);
}

bool NestedWaiters::answer(AppMessage *message)
{
    ScopedLock lock(waiterLock_);
    for (NestedWaiter *waiter : waiterMap_.values()) {
        // One that already has its reply takes no second: that is a message like any other.
        if (waiter->reply || waiter->seqNumber != message->seqNumber() ||
            waiter->mainType != message->mainType() || waiter->subType != message->subType())
            continue;
        waiter->reply.reset(message);
        waiter->loop->exit();
        return true;
    }
    return false;
}

void NestedWaiters::wakeAll()
{
    ScopedLock lock(waiterLock_);
    for (NestedWaiter *waiter : waiterMap_.values())
        waiter->loop->exit();
}
