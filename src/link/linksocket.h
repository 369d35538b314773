// The client end of App's local stream socket.
#pragma once

#include "link/appmessage.h"
#include "platform/filedescriptor.h"

#include <functional>
#include <pthread.h>
#include <string>

// One thread connects and receives; any thread may send or shut down meanwhile.
class LinkSocket
{
public:
    enum class Sent { All, HeadFailed, BodyFailed, NotConnected };

    // The path as it is opened, see boardPath. One too long for an address never connects.
    explicit LinkSocket(const std::string &path) : path_(path) {}
    ~LinkSocket();

    // Closes the present connection, if any, and makes a new one. Failures are logged.
    bool connect();
    // A receive on the connection waits at most this long. For connections made from here on.
    void setReceiveLimit(int milliseconds) { receiveLimit_ = milliseconds; }
    // For the receiving thread only.
    int descriptor() const { return descriptor_.get(); }
    // Writes a whole message; messages of several threads never interleave. `beforeWait` is called
    // each time the socket is full and the call is about to wait for App to read.
    Sent send(const AppMsgHead &head, const void *body, const std::function<void()> &beforeWait);
    // Ends whatever waits on the connection, in both directions. Any thread.
    void shutdown();

private:
    void closeOld();
    size_t writeAll(const uint8_t (&head)[AppMsgHead::Size], const void *body, size_t bodyLength,
                    const std::function<void()> &beforeWait);

    const std::string path_;
    int receiveLimit_ = 0; // 0: none
    // The innermost lock of the link. It also covers a change of descriptor_, so that no sender
    // ever writes to a number that has been closed and given to another file.
    pthread_mutex_t sendLock_ = PTHREAD_MUTEX_INITIALIZER;
    pthread_mutex_t shutdownLock_ = PTHREAD_MUTEX_INITIALIZER;
    FileDescriptor descriptor_;
};
