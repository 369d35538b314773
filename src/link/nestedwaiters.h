// The requests that wait in a nested event loop.
#pragma once

#include "link/appmessage.h"
#include "link/linkhost.h"

#include <pthread.h>
#include <zrmap>

// Lives on the stack of the request that waits.
struct NestedWaiter {
    uint16_t mainType = 0;
    uint16_t subType = 0;
    uint32_t seqNumber = 0;
    LinkWaitLoop *loop = nullptr;
    AppMessagePtr reply; // null until answered
};

class NestedWaiters
{
public:
    ~NestedWaiters();

    // Enters the waiter under its loop and sends its request; `send` returns the number. Both under
    // one lock, so that no reply overtakes the entry.
    template <typename Send>
    void enter(NestedWaiter *waiter, Send send);
    void remove(const NestedWaiter &waiter);
    // Gives the message to the waiter whose number and types it has, and ends that one's loop.
    // Otherwise the message stays the caller's.
    bool answer(AppMessage *message);
    // Ends every loop without a reply.
    void wakeAll();

private:
    pthread_mutex_t waiterLock_ = PTHREAD_MUTEX_INITIALIZER;
    ZrMap<LinkWaitLoop *, NestedWaiter *> waiterMap_;

    void lock() { pthread_mutex_lock(&waiterLock_); }
    void unlock() { pthread_mutex_unlock(&waiterLock_); }
};

template <typename Send>
void NestedWaiters::enter(NestedWaiter *waiter, Send send)
{
    lock();
    waiterMap_.insert(waiter->loop, waiter);
    waiter->seqNumber = send();
    unlock();
}
