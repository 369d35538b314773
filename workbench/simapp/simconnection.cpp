#include "workbench/simapp/simconnection.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

SimConnection::SimConnection(const std::string &path)
    : path_(path), waker_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

SimConnection::~SimConnection()
{
    stopListening();
}

bool SimConnection::listen()
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path_.size() >= sizeof address.sun_path) {
        fprintf(stderr, "The path of the socket is too long: %s\n", path_.c_str());
        return false;
    }
    memcpy(address.sun_path, path_.c_str(), path_.size());
    FileDescriptor fresh(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    unlink(path_.c_str());
    if (bind(fresh.get(), reinterpret_cast<sockaddr *>(&address), sizeof address) < 0 ||
        ::listen(fresh.get(), 4) < 0) {
        fprintf(stderr, "Cannot listen on %s: %s\n", path_.c_str(), strerror(errno));
        return false;
    }
    listener_ = std::move(fresh);
    return true;
}

void SimConnection::stopListening()
{
    if (!listener_.isOpen())
        return;
    listener_.reset();
    unlink(path_.c_str());
}

void SimConnection::hangUp()
{
    peer_.reset();
    frames_.reset();
    output_.clear();
    written_ = 0;
}

void SimConnection::wait(const Watch &watch, int milliseconds)
{
    const auto peerEvents = short(watch.wantsToWrite ? POLLIN | POLLOUT : POLLIN);
    pollfd doors[] = {
        {watch.listener, POLLIN, 0}, {watch.peer, peerEvents, 0}, {watch.waker, POLLIN, 0}};
    poll(doors, std::size(doors), milliseconds);
}

bool SimConnection::accept()
{
    FileDescriptor fresh(accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!fresh.isOpen())
        return false;
    hangUp();
    peer_ = std::move(fresh);
    return true;
}

bool SimConnection::read(std::vector<AppMessage *> &messages)
{
    if (!peer_.isOpen())
        return true;
    // An end is reported by whoever asked for the messages, not as the interface reports it.
    char probe;
    const ssize_t there = recv(peer_.get(), &probe, 1, MSG_PEEK | MSG_DONTWAIT);
    if (there == 0 || (there < 0 && errno != EAGAIN && errno != EINTR)) {
        hangUp();
        return false;
    }
    while (peer_.isOpen()) {
        const auto status = frames_.read(peer_.get(), messages, MSG_DONTWAIT);
        if (status == FrameReader::Status::Quiet)
            return true;
        if (status == FrameReader::Status::Open) {
            const ssize_t more = recv(peer_.get(), &probe, 1, MSG_PEEK | MSG_DONTWAIT);
            if (more == 0)
                return true; // seen at the next call, behind what has come
            continue;
        }
        hangUp();
        return false;
    }
    return true;
}

void SimConnection::write(const std::vector<uint8_t> &bytes)
{
    if (!peer_.isOpen())
        return;
    output_.insert(output_.end(), bytes.begin(), bytes.end());
    flush();
}

void SimConnection::flush()
{
    while (peer_.isOpen() && written_ < output_.size()) {
        const ssize_t count = ::send(peer_.get(), output_.data() + written_,
                                     output_.size() - written_, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return; // full, or over: the reading side finds out
        written_ += size_t(count);
    }
    output_.clear();
    written_ = 0;
}

void SimConnection::wake()
{
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t count = ::write(waker_.get(), &one, sizeof one);
}

void SimConnection::clearWake()
{
    uint64_t count;
    [[maybe_unused]] const ssize_t got = ::read(waker_.get(), &count, sizeof count);
}
