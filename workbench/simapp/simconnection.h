// The listening socket of the simulated App and the one connection that it serves.
#pragma once

#include "link/framereader.h"
#include "platform/filedescriptor.h"

#include <string>
#include <vector>

// Not thread-safe, except wake(). Nothing here waits but wait().
class SimConnection
{
public:
    explicit SimConnection(const std::string &path);
    ~SimConnection();

    bool listen();
    void stopListening();
    void hangUp();
    bool isConnected() const { return peer_.isOpen(); }

    // Waits for something to do, at most so long (-1: for ever). Called without a lock of the
    // owner's: it only polls.
    struct Watch {
        int listener, peer, waker;
        bool wantsToWrite;
    };
    Watch watch() const { return {listener_.get(), peer_.get(), waker_.get(), !output_.empty()}; }
    static void wait(const Watch &watch, int milliseconds);
    // Takes a waiting connection; the former one ends. Whether there was one.
    bool accept();
    // All messages that have come. False when the connection is over.
    bool read(std::vector<AppMessage *> &messages);
    // Queues bytes, and writes as much as the socket takes.
    void write(const std::vector<uint8_t> &bytes);
    void flush();
    void wake();
    void clearWake();

private:
    std::string path_;
    FileDescriptor listener_;
    FileDescriptor peer_;
    FileDescriptor waker_;
    FrameReader frames_;
    std::vector<uint8_t> output_;
    size_t written_ = 0;
};
