#include "link/messagequeue.h"

#include "link/linklog.h"
#include "link/scopedlock.h"

#include <cerrno>
#include <cstdio>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
constexpr char kWakeUp[3] = "ok";
constexpr int kPauseWithoutWakeUpMs = 100;
} // namespace

MessageQueue::MessageQueue()
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) < 0) {
        perror("creat -pipfd error\n");
        return;
    }
    writeEnd_.reset(ends[0]);
    readEnd_.reset(ends[1]);
}

MessageQueue::~MessageQueue()
{
    for (AppMessage *message : messages_)
        AppMessage::release(message);
    pthread_mutex_destroy(&queueLock_);
}

void MessageQueue::add(std::vector<AppMessage *> &messages)
{
    if (messages.empty())
        return;
    bool wasEmpty;
    size_t count;
    {
        ScopedLock lock(queueLock_);
        wasEmpty = messages_.empty();
        if (wasEmpty)
            messages_.swap(messages);
        else
            messages_.insert(messages_.end(), messages.begin(), messages.end());
        count = messages_.size();
    }
    messages.clear();
    if (wasEmpty)
        wake();
    if (count > CrowdedCount)
        LINK_LOG("UiMsgListAddNode", "-----msgnode -count = %d", int(count));
}

bool MessageQueue::swapOut(std::vector<AppMessage *> &messages)
{
    ScopedLock lock(queueLock_);
    takerBusy_ = !messages_.empty();
    messages_.swap(messages);
    return takerBusy_ || closed_;
}

bool MessageQueue::take(std::vector<AppMessage *> &messages)
{
    while (!swapOut(messages))
        sleep();
    if (messages.size() > CrowdedCount)
        LINK_LOG("UiMsgListConsumeNode", "-----msgnode count = %d", int(messages.size()));
    return !messages.empty();
}

bool MessageQueue::isIdle()
{
    ScopedLock lock(queueLock_);
    return messages_.empty() && !takerBusy_;
}

void MessageQueue::close()
{
    {
        ScopedLock lock(queueLock_);
        closed_ = true;
    }
    wake();
}

void MessageQueue::wake()
{
    ssize_t written;
    do {
        written = send(writeEnd_.get(), kWakeUp, sizeof kWakeUp, MSG_NOSIGNAL);
    } while (written < 0 && errno == EINTR);
    if (written < 0)
        perror("uiwirte error\n");
}

void MessageQueue::sleep()
{
    char wakeUp[sizeof kWakeUp];
    ssize_t count;
    do {
        count = read(readEnd_.get(), wakeUp, sizeof wakeUp);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        perror("uiread error\n");
        // Without the pair the list can only be looked at now and then, which must not take the
        // whole processor.
        poll(nullptr, 0, kPauseWithoutWakeUpMs);
    }
}
