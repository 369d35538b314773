#include "link/linkreader.h"

#include "link/scopedlock.h"

#include <cerrno>
#include <sys/epoll.h>
#include <sys/socket.h>

using Status = FrameReader::Status;

LinkReader::LinkReader(MessageQueue &queue)
    : queue_(queue), readiness_(epoll_create1(EPOLL_CLOEXEC))
{
}

LinkReader::~LinkReader()
{
    pthread_mutex_destroy(&readLock_);
}

void LinkReader::attach(int descriptor)
{
    ScopedLock lock(readLock_);
    // The old stream left the set when it was closed.
    descriptor_ = descriptor;
    frames_.reset();
    status_ = Status::Open;
    epoll_event event = {};
    event.events = EPOLLIN;
    epoll_ctl(readiness_.get(), EPOLL_CTL_ADD, descriptor, &event);
}

void LinkReader::setOnData(ClientThread client)
{
    epoll_event event = {};
    event.events = client == ClientThread::Woken ? uint32_t(EPOLLIN) : 0;
    epoll_ctl(readiness_.get(), EPOLL_CTL_MOD, descriptor_, &event);
}

Status LinkReader::readOnce()
{
    epoll_event event;
    // Without a set to wait in, the read itself has to wait.
    const bool waited = epoll_wait(readiness_.get(), &event, 1, -1) >= 0 || errno == EINTR;
    ScopedLock lock(readLock_);
    while (status_ == Status::Open) {
        status_ = frames_.read(descriptor_, messages_, waited ? MSG_DONTWAIT : 0);
        queue_.add(messages_);
    }
    if (status_ == Status::Quiet)
        status_ = Status::Open;
    return status_;
}

bool LinkReader::Turn::take()
{
    pthread_mutex_lock(&reader_.readLock_);
    if (reader_.status_ != Status::Open || !reader_.queue_.isIdle()) {
        pthread_mutex_unlock(&reader_.readLock_);
        return false;
    }
    reader_.setOnData(ClientThread::LeftAlone);
    held_ = true;
    return true;
}

void LinkReader::Turn::giveUp()
{
    if (!held_)
        return;
    held_ = false;
    reader_.setOnData(ClientThread::Woken);
    pthread_mutex_unlock(&reader_.readLock_);
}

Status LinkReader::Turn::read(std::vector<AppMessage *> &messages)
{
    const Status status = reader_.frames_.read(reader_.descriptor_, messages, 0);
    if (status != Status::Open && status != Status::Quiet) {
        reader_.status_ = status;
        giveUp();
    }
    return status;
}
