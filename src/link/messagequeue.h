// The received messages on their way from the thread that reads the socket to the one that
// dispatches.
#pragma once

#include "link/appmessage.h"
#include "platform/filedescriptor.h"

#include <pthread.h>
#include <vector>

// One thread adds, one takes. Both sides hand over whole batches: the taker swaps out all there is,
// so the lock and the wake-up are paid once a burst.
class MessageQueue
{
public:
    MessageQueue();
    ~MessageQueue();

    // Takes the messages over and empties the caller's list.
    void add(std::vector<AppMessage *> &messages);
    // Waits for messages and moves all of them into the caller's list, which must be empty. False
    // once the queue is closed and empty.
    bool take(std::vector<AppMessage *> &messages);
    // Whether everything ever added has also been dealt with: nothing is queued, and the taker has
    // come back for more.
    bool isIdle();
    void close();

private:
    bool swapOut(std::vector<AppMessage *> &messages);
    void wake();
    void sleep();

    // More waiting messages than this are worth a line.
    static constexpr size_t CrowdedCount = 100;

    pthread_mutex_t queueLock_ = PTHREAD_MUTEX_INITIALIZER; // never held with another lock
    std::vector<AppMessage *> messages_;
    bool takerBusy_ = false;
    bool closed_ = false;
    // A wake-up is only a hint that the list has become non-empty: the list is the truth. One at
    // most is on its way for each such step, so the pair never fills.
    FileDescriptor writeEnd_;
    FileDescriptor readEnd_;
};
