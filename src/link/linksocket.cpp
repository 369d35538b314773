#include "link/linksocket.h"

#include "link/linklog.h"
#include "link/scopedlock.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <sys/un.h>

LinkSocket::~LinkSocket()
{
    pthread_mutex_destroy(&sendLock_);
    pthread_mutex_destroy(&shutdownLock_);
}

void LinkSocket::closeOld()
{
    if (!descriptor_.isOpen())
        return;
    printf("-----------!!@@@0--------uiqt sock:%d\n", descriptor_.get());
    // A sender stuck in a full socket holds the send lock; this lets it go.
    ::shutdown(descriptor_.get(), SHUT_RDWR);
    ScopedLock sending(sendLock_);
    ScopedLock shutting(shutdownLock_);
    descriptor_.reset();
}

bool LinkSocket::connect()
{
    closeOld();
    FileDescriptor fresh(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!fresh.isOpen()) {
        perror("create socket error");
        return false;
    }
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const bool fits = path_.size() < sizeof address.sun_path;
    if (fits)
        memcpy(address.sun_path, path_.c_str(), path_.size());
    if (!fits ||
        ::connect(fresh.get(), reinterpret_cast<sockaddr *>(&address), sizeof address) < 0) {
        LINK_LOG("ConnectSer", "connect error");
        return false;
    }
    const timeval limit = {receiveLimit_ / 1000, receiveLimit_ % 1000 * 1000};
    setsockopt(fresh.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    ScopedLock sending(sendLock_);
    ScopedLock shutting(shutdownLock_);
    descriptor_ = std::move(fresh);
    return true;
}

LinkSocket::Sent LinkSocket::send(const AppMsgHead &head, const void *body,
                                  const std::function<void()> &beforeWait)
{
    uint8_t bytes[AppMsgHead::Size];
    head.encode(bytes);
    ScopedLock sending(sendLock_);
    if (!descriptor_.isOpen())
        return Sent::NotConnected;
    const size_t written = writeAll(bytes, body, head.bodyLength, beforeWait);
    if (written == sizeof bytes + size_t(head.bodyLength))
        return Sent::All;
    LINK_LOG("WriteData", "s32WriteSize != s32Size !");
    return written < sizeof bytes ? Sent::HeadFailed : Sent::BodyFailed;
}

size_t LinkSocket::writeAll(const uint8_t (&head)[AppMsgHead::Size], const void *body,
                            size_t bodyLength, const std::function<void()> &beforeWait)
{
    iovec parts[2] = {{const_cast<uint8_t *>(head), sizeof head},
                      {const_cast<void *>(body), bodyLength}};
    msghdr message = {};
    message.msg_iov = parts;
    message.msg_iovlen = bodyLength ? 2 : 1;
    size_t total = 0;
    while (message.msg_iovlen > 0) {
        // A peer that has gone is an error to report, not a signal to die of.
        const ssize_t written = sendmsg(descriptor_.get(), &message, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0 && errno == EAGAIN) {
            if (beforeWait)
                beforeWait();
            pollfd writable = {descriptor_.get(), POLLOUT, 0};
            poll(&writable, 1, -1);
            continue;
        }
        if (written < 0)
            break;
        total += size_t(written);
        size_t rest = size_t(written);
        while (message.msg_iovlen > 0 && rest >= message.msg_iov->iov_len) {
            rest -= message.msg_iov->iov_len;
            ++message.msg_iov;
            --message.msg_iovlen;
        }
        if (message.msg_iovlen > 0) {
            message.msg_iov->iov_base = static_cast<uint8_t *>(message.msg_iov->iov_base) + rest;
            message.msg_iov->iov_len -= rest;
        }
    }
    return total;
}

void LinkSocket::shutdown()
{
    ScopedLock shutting(shutdownLock_);
    if (descriptor_.isOpen())
        ::shutdown(descriptor_.get(), SHUT_RDWR);
}
