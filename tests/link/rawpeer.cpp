#include "link/rawpeer.h"

#include "support/deadline.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
bool ready(int descriptor, short events, int milliseconds)
{
    pollfd entry = {descriptor, events, 0};
    return poll(&entry, 1, milliseconds) > 0;
}
} // namespace

RawPeer::RawPeer()
{
    static int count = 0;
    path_ =
        testing::TempDir() + "zrpeer" + std::to_string(getpid()) + "." + std::to_string(++count);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    memcpy(address.sun_path, path_.c_str(), path_.size());
    listener_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(bind(listener_, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    EXPECT_EQ(listen(listener_, 4), 0);
}

RawPeer::~RawPeer()
{
    hangUp(Then::StopListening);
}

bool RawPeer::accept()
{
    if (connection_ >= 0)
        close(connection_);
    connection_ = -1;
    if (ready(listener_, POLLIN, kDeadlineMs))
        connection_ = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    EXPECT_GE(connection_, 0) << "nobody connected";
    return connection_ >= 0;
}

void RawPeer::hangUp(Then then)
{
    // The listener first: the link answers a lost connection at once.
    if (then == Then::StopListening && listener_ >= 0) {
        close(listener_);
        listener_ = -1;
        unlink(path_.c_str());
    }
    if (connection_ >= 0)
        close(connection_);
    connection_ = -1;
}

bool RawPeer::sendBytes(const std::vector<uint8_t> &bytes)
{
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t count =
            ::send(connection_, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        done += size_t(count);
    }
    return true;
}

std::vector<uint8_t> RawPeer::frame(const AppMsgHead &head, const std::vector<uint8_t> &body)
{
    uint8_t bytes[AppMsgHead::Size];
    head.encode(bytes);
    std::vector<uint8_t> whole(bytes, bytes + sizeof bytes);
    whole.insert(whole.end(), body.begin(), body.end());
    return whole;
}

bool RawPeer::send(uint16_t mainType, uint16_t subType, const std::vector<uint8_t> &body,
                   uint32_t sequence)
{
    AppMsgHead head;
    head.mainType = mainType;
    head.subType = subType;
    head.bodyLength = uint32_t(body.size());
    head.seqNumber = sequence;
    return sendBytes(frame(head, body));
}

bool RawPeer::reply(const Received &request, const std::vector<uint8_t> &body)
{
    return send(request.head.mainType, request.head.subType, body, request.head.seqNumber);
}

bool RawPeer::readAll(void *out, size_t size)
{
    auto *bytes = static_cast<uint8_t *>(out);
    for (size_t done = 0; done < size;) {
        if (!ready(connection_, POLLIN, kDeadlineMs))
            return false;
        const ssize_t count = recv(connection_, bytes + done, size - done, 0);
        if (count <= 0)
            return false;
        done += size_t(count);
    }
    return true;
}

RawPeer::Received RawPeer::receive()
{
    uint8_t bytes[AppMsgHead::Size];
    Received received;
    if (!readAll(bytes, sizeof bytes)) {
        ADD_FAILURE() << "no message came";
        return received;
    }
    received.head = AppMsgHead::decode(bytes);
    received.body.resize(received.head.bodyLength);
    EXPECT_TRUE(readAll(received.body.data(), received.body.size()));
    return received;
}

bool RawPeer::hasInput() const
{
    return ready(connection_, POLLIN, 0);
}
