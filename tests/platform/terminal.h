// A pointer device's far end: a pseudo-terminal that the test holds.
#pragma once

#include "support/deadline.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <unistd.h>

class Terminal
{
public:
    Terminal() : far_(posix_openpt(O_RDWR | O_NOCTTY))
    {
        grantpt(far_);
        unlockpt(far_);
    }
    ~Terminal() { hangUp(); }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    std::string path() const { return ptsname(far_); }
    void send(const std::string &bytes)
    {
        ASSERT_EQ(::write(far_, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    }
    // Waits until so many bytes have come; fewer when the reader is gone or silent.
    std::string receive(size_t count)
    {
        std::string bytes;
        pollfd entry = {far_, POLLIN, 0};
        char byte;
        while (bytes.size() < count && poll(&entry, 1, kDeadlineMs) > 0 &&
               ::read(far_, &byte, 1) == 1)
            bytes += byte;
        return bytes;
    }
    void hangUp()
    {
        if (far_ >= 0)
            ::close(far_);
        far_ = -1;
    }

private:
    int far_;
};
