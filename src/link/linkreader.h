// Who reads the socket: the client thread, or for a while the thread that waits for a reply.
#pragma once

#include "link/framereader.h"
#include "link/messagequeue.h"
#include "platform/filedescriptor.h"

#include <pthread.h>
#include <vector>

// A blocking request that is answered through the client and the dispatch thread pays for two
// changes of thread more than one that reads its reply itself. So the requester takes the reading
// over while it waits, and the client thread sleeps on.
class LinkReader
{
public:
    explicit LinkReader(MessageQueue &queue);
    ~LinkReader();

    // Reads from this stream from now on. The client thread, without a turn outstanding.
    void attach(int descriptor);
    // The client thread's part: waits for bytes, and queues the messages that they complete. Open
    // until the stream is lost, also when it was lost in somebody else's turn.
    FrameReader::Status readOnce();

    // The right to read, held by the requester. Short-lived; must be given up before anything that
    // may wait for App to read, since App may itself be waiting for us to.
    class Turn
    {
    public:
        explicit Turn(LinkReader &reader) : reader_(reader) {}
        ~Turn() { giveUp(); }
        Turn(const Turn &) = delete;
        Turn &operator=(const Turn &) = delete;

        // False when there is no stream, or when earlier messages are still on their way through
        // the queue and would be overtaken.
        bool take();
        void giveUp();
        bool isHeld() const { return held_; }
        // Waits for bytes as long as the stream's own time limit; Quiet when it ran out. A lost
        // stream also gives the turn up.
        FrameReader::Status read(std::vector<AppMessage *> &messages);

    private:
        LinkReader &reader_;
        bool held_ = false;
    };

private:
    enum class ClientThread { Woken, LeftAlone };
    void setOnData(ClientThread client);

    MessageQueue &queue_;
    // Taken before any other lock of the link. Covers the frames and the queueing of what they
    // gave, so that messages keep their order whoever reads.
    pthread_mutex_t readLock_ = PTHREAD_MUTEX_INITIALIZER;
    FrameReader frames_;
    FrameReader::Status status_ = FrameReader::Status::HeadLost;
    std::vector<AppMessage *> messages_; // the client thread's
    int descriptor_ = -1;
    FileDescriptor readiness_;
};
