// The link to App: two threads, and the four ways of talking over it.
#pragma once

#include "link/linkhost.h"
#include "link/linkreader.h"
#include "link/linksocket.h"
#include "link/messagequeue.h"
#include "link/nestedwaiters.h"
#include "link/pendingreplies.h"
#include "link/silence.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>
#include <zrvector>

// The process has one, behind the functions of appcalls.h; tests make their own on other sockets.
//
// Threads: the client thread connects and reads the socket; the dispatch thread hands on what it
// read; requests come from one thread, the widget thread, which reads its reply itself when nothing
// else is on its way. Order of locks: that of the reader, that of the pending replies, that of the
// nested waiters, that of the host; the send lock and the queue's lock are innermost.
class AppLink
{
public:
    explicit AppLink(const std::string &socketPath);
    // Stops the link.
    ~AppLink();
    AppLink(const AppLink &) = delete;
    AppLink &operator=(const AppLink &) = delete;

    void setHost(LinkHost *host);
    // Starts the threads. Once; the receiver may be null until setReceiver.
    void start(ZrObject *receiver);
    // Ends threads and waits: requests and waits in progress return empty-handed. For tests.
    void stop();

    void setReceiver(ZrObject *receiver);
    void setLoopWait(bool loopWait) { loopWait_.store(loopWait); }

    // As the functions of the same names in appcalls.h.
    uint32_t send(uint16_t mainType, uint16_t subType, const void *body, uint32_t length);
    int sendMessage(const AppMsgHead *head, const void *body);
    AppMessagePtr request(uint16_t mainType, uint16_t subType, const void *in, uint32_t inLength);
    AppMessagePtr requestKeepingAlive(uint16_t mainType, uint16_t subType, const void *in,
                                      uint32_t inLength);
    void waitState(uint32_t state);

    // How long a blocking request waits before it asks again. Before start.
    void setRepeatDelay(int milliseconds) { repeatDelay_ = milliseconds; }
    // The number that the next message gets. For tests of its wrap.
    void setSequence(uint32_t next) { sequence_.store(next); }

private:
    enum class Connection { NotYet, Open, Over };

    void runClient();
    void readUntilLost();
    void runDispatch();
    void receive(AppMessagePtr message);
    void deliver(AppMessagePtr message);
    void movePointer(const AppMessage &message);
    // What a blocking request asks for, and the number under which it last did.
    struct Question {
        uint16_t mainType;
        uint16_t subType;
        const void *in;
        uint32_t inLength;
        uint32_t number;
    };
    using Wait = PendingReplies::Wait;
    void ask(Question *question, LinkReader::Turn *turn);
    Wait awaitReply(const Question &question, LinkReader::Turn *turn, Silence *silence,
                    AppMessagePtr *reply);
    Wait readReply(const Question &question, LinkReader::Turn *turn, Silence *silence,
                   AppMessagePtr *reply);
    void sortOut(std::vector<AppMessage *> &messages, const Question &question,
                 AppMessagePtr *reply);
    int sendWaiting(const AppMsgHead *head, const void *body,
                    const std::function<void()> &beforeWait);
    void setConnection(Connection connection);
    bool waitConnected();
    uint32_t nextSequence();

    class SlowRequest;

    static constexpr int DefaultRepeatDelay = 10000;

    LinkSocket socket_;
    MessageQueue queue_;
    LinkReader reader_{queue_};
    PendingReplies replies_;
    NestedWaiters waiters_;

    pthread_mutex_t hostLock_ = PTHREAD_MUTEX_INITIALIZER;
    LinkHost *host_ = nullptr;
    std::atomic<ZrObject *> receiver_{nullptr}; // the process's appLinkReceiver
    std::atomic<bool> loopWait_{false};
    std::atomic<bool> clientRunning_{false};
    std::atomic<bool> stopping_{false};
    std::atomic<uint32_t> sequence_{1};
    int repeatDelay_ = DefaultRepeatDelay;

    ZrWaitCondition connectionLock_;
    std::atomic<Connection> connection_{Connection::NotYet}; // changed under connectionLock_
    std::thread client_;
    std::thread dispatch_;
};
