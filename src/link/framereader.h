// Cuts the byte stream of the App link into messages.
#pragma once

#include "link/appmessage.h"

#include <memory>
#include <vector>

// Reads as much as the socket has in one call, so that a burst of small messages costs one call a
// buffer and not two a message. Bodies that are longer than the buffer arrive in their own memory.
class FrameReader
{
public:
    enum class Status {
        Open,
        Quiet, // as Open, but no byte came: there was none, or the socket's time limit ran out
        HeadLost,
        BodyLost,
    };

    // A body above this is taken for a broken stream. The longest body in use has 613760 bytes.
    static constexpr uint32_t MaxBodyLength = 64u << 20;

    FrameReader();
    ~FrameReader();

    // Receives once, with the flags of recvmsg, and appends every message that is then complete;
    // the caller owns these. Heads
    // whose body count is 0 or less are dropped. Once the stream has ended, failed, or claimed a
    // body that cannot be held, the status tells in which part, the cause was logged, and the
    // stream is of no more use.
    Status read(int descriptor, std::vector<AppMessage *> &messages, int flags);
    // Forgets what has been read, for a new stream.
    void reset();

private:
    Status receive(int descriptor, int flags);
    Status cut(std::vector<AppMessage *> &messages);
    Status lost() const;
    bool fillBody();

    static constexpr size_t BufferSize = 64 << 10;
    std::unique_ptr<uint8_t[]> buffer_;
    size_t begin_ = 0;
    size_t end_ = 0;
    AppMessagePtr open_; // its head is there, its body only in part
    size_t filled_ = 0;  // of that body
};
