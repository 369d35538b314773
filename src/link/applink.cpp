#include "link/applink.h"

#include "link/app_messages.h"
#include "link/linklog.h"
#include "link/scopedlock.h"

#include <cmath>
#include <cstdio>

namespace
{

bool isPointerPosition(const AppMessage &message)
{
    return message.mainType() == AppMain::system && message.subType() == AppSystem::pointerPosition;
}

} // namespace

LinkWaitLoop::~LinkWaitLoop() = default;
LinkHost::~LinkHost() = default;

AppLink::AppLink(const std::string &socketPath) : socket_(socketPath) {}

AppLink::~AppLink()
{
    stop();
    pthread_mutex_destroy(&hostLock_);
}

void AppLink::setHost(LinkHost *host)
{
    ScopedLock lock(hostLock_);
    host_ = host;
}

void AppLink::start(ZrObject *receiver)
{
    receiver_.store(receiver);
    socket_.setReceiveLimit(Silence::step(repeatDelay_));
    client_ = std::thread([this] { runClient(); });
    dispatch_ = std::thread([this] { runDispatch(); });
}

void AppLink::stop()
{
    stopping_.store(true);
    clientRunning_.store(false);
    replies_.close();
    waiters_.wakeAll();
    socket_.shutdown();
    if (client_.joinable())
        client_.join();
    setConnection(Connection::Over);
    queue_.close();
    if (dispatch_.joinable())
        dispatch_.join();
}

void AppLink::setReceiver(ZrObject *receiver)
{
    if (!receiver)
        return;
    receiver_.store(receiver);
    replies_.clear();
}

// Sending

uint32_t AppLink::nextSequence()
{
    uint32_t used = sequence_.load();
    // 0 is never sent: a counter that has wrapped stands for 1.
    while (!sequence_.compare_exchange_weak(used, used == 0 ? 2 : used + 1)) {
    }
    return used == 0 ? 1 : used;
}

uint32_t AppLink::send(uint16_t mainType, uint16_t subType, const void *body, uint32_t length)
{
    Question message = {mainType, subType, body, length, 0};
    ask(&message, nullptr);
    return message.number;
}

void AppLink::ask(Question *question, LinkReader::Turn *turn)
{
    AppMsgHead head;
    head.mainType = question->mainType;
    head.subType = question->subType;
    head.bodyLength = question->in ? question->inLength : 0;
    head.seqNumber = question->number = nextSequence();
    if (turn)
        sendWaiting(&head, question->in, [turn] { turn->giveUp(); });
    else
        sendWaiting(&head, question->in, nullptr);
}

int AppLink::sendMessage(const AppMsgHead *head, const void *body)
{
    return sendWaiting(head, body, nullptr);
}

int AppLink::sendWaiting(const AppMsgHead *head, const void *body,
                         const std::function<void()> &beforeWait)
{
    if (!waitConnected() || !head)
        return -1;
    switch (socket_.send(*head, body, beforeWait)) {
    case LinkSocket::Sent::All:
        return 0;
    case LinkSocket::Sent::HeadFailed:
        LINK_LOG("UI_IPC_ClientSendReqMsg", "send msg head error");
        return -1;
    case LinkSocket::Sent::BodyFailed:
        LINK_LOG("UI_IPC_ClientSendReqMsg", "send msg error");
        return -1;
    case LinkSocket::Sent::NotConnected:
        return -1;
    }
    return -1;
}

void AppLink::setConnection(Connection connection)
{
    ScopedLock lock(connectionLock_.mutex);
    connection_.store(connection);
    connectionLock_.wakeAll();
}

bool AppLink::waitConnected()
{
    if (connection_.load() == Connection::Open)
        return !stopping_.load();
    ScopedLock lock(connectionLock_.mutex);
    while (connection_.load() != Connection::Open && !stopping_.load())
        connectionLock_.wait(-1);
    return !stopping_.load();
}

// Client thread

void AppLink::runClient()
{
    clientRunning_.store(!stopping_.load());
    while (clientRunning_.load()) {
        if (!socket_.connect()) {
            LINK_LOG("ClientStar", "client connect error,exit thread");
            break;
        }
        if (stopping_.load())
            break;
        setConnection(Connection::Open);
        readUntilLost();
    }
    setConnection(Connection::Over);
}

void AppLink::readUntilLost()
{
    reader_.attach(socket_.descriptor());
    FrameReader::Status status;
    do {
        status = reader_.readOnce();
    } while (status == FrameReader::Status::Open);
    if (status == FrameReader::Status::HeadLost)
        LINK_LOG("ClientStar", "rec head error, client sock close");
    else
        LINK_LOG("ClientStar", "rec body error, client sock close");
}

// Dispatch thread

void AppLink::runDispatch()
{
    std::vector<AppMessage *> messages;
    while (queue_.take(messages)) {
        for (AppMessage *message : messages)
            receive(AppMessagePtr(message));
        messages.clear();
    }
}

void AppLink::receive(AppMessagePtr message)
{
    if (message->mainType() == AppMain::system && message->subType() == AppSystem::pointerPosition)
        movePointer(*message);
    else if (replies_.enter(message.get()))
        message.release();
    else if (receiver_.load())
        deliver(std::move(message));
    else
        replies_.noteState(uint32_t(message->mainType()) + message->subType());
}

void AppLink::deliver(AppMessagePtr message)
{
    ZrObject *receiver = receiver_.load();
    if (!receiver)
        return;
    if (waiters_.answer(message.get())) {
        message.release();
        return;
    }
    ScopedLock lock(hostLock_);
    if (host_)
        host_->postMessage(receiver, message.release());
}

void AppLink::movePointer(const AppMessage &message)
{
    WireReader reader = message.reader();
    const int sourceWidth = reader.u16(0);
    const int sourceHeight = reader.u16(2);
    const int x = reader.u16(4);
    const int y = reader.u16(6);
    const bool force = reader.i16(8) != 0;
    const int buttons = reader.u16(10);
    if (reader.isShort() || sourceWidth == 0 || sourceHeight == 0) {
        LINK_LOG("ReceiveCallback", "pointer position without a source size");
        return;
    }
    ScopedLock lock(hostLock_);
    int width = 0;
    int height = 0;
    if (!host_ || !host_->screenSize(&width, &height))
        return;
    const float scaleX = float(width) / float(sourceWidth);
    const float scaleY = float(height) / float(sourceHeight);
    host_->pointerMoved(int(std::round(float(x) * scaleX)), int(std::round(float(y) * scaleY)),
                        buttons, force);
}

// Requests

// Tells the host once that a request takes long, and when it is over.
class AppLink::SlowRequest
{
public:
    SlowRequest(AppLink &link, uint16_t mainType, uint16_t subType)
        : link_(link), mainType_(mainType), subType_(subType)
    {
    }
    ~SlowRequest()
    {
        if (told_)
            notify(false);
    }
    void tell()
    {
        if (!told_)
            notify(true);
        told_ = true;
    }

private:
    void notify(bool waiting)
    {
        ScopedLock lock(link_.hostLock_);
        if (link_.host_)
            link_.host_->slowRequest(mainType_, subType_, waiting);
    }

    AppLink &link_;
    uint16_t mainType_;
    uint16_t subType_;
    bool told_ = false;
};

AppMessagePtr AppLink::request(uint16_t mainType, uint16_t subType, const void *in,
                               uint32_t inLength)
{
    Question question = {mainType, subType, in, inLength, 0};
    AppMessagePtr reply;
    replies_.begin();
    {
        SlowRequest slow(*this, mainType, subType);
        Silence silence(repeatDelay_, [&slow] { slow.tell(); });
        LinkReader::Turn turn(reader_);
        turn.take();
        ask(&question, &turn);
        while (awaitReply(question, &turn, &silence, &reply) == Wait::TimedOut) {
            const uint32_t before = question.number;
            ask(&question, &turn);
            printf("[GUI]: BlockWaiting data timeout(MainType:%d, SubType:%d, seqNumber:%d), "
                   "request again, new seqNumber:%d .\n",
                   mainType, subType, int(before), int(question.number));
        }
    }
    replies_.finish([this](AppMessagePtr message) { deliver(std::move(message)); });
    return reply;
}

AppLink::Wait AppLink::awaitReply(const Question &question, LinkReader::Turn *turn,
                                  Silence *silence, AppMessagePtr *reply)
{
    if (turn->isHeld())
        return readReply(question, turn, silence, reply);
    return replies_.waitFor(question.number, question.mainType, question.subType, silence, reply);
}

AppLink::Wait AppLink::readReply(const Question &question, LinkReader::Turn *turn, Silence *silence,
                                 AppMessagePtr *reply)
{
    std::vector<AppMessage *> messages;
    while (turn->isHeld()) {
        const FrameReader::Status status = turn->read(messages);
        sortOut(messages, question, reply);
        if (*reply)
            return Wait::Found;
        if (status != FrameReader::Status::Quiet)
            silence->broken();
        else if (silence->passed())
            return Wait::TimedOut;
    }
    // The stream was lost. The client thread makes a new one, and the reply, if ever, comes there.
    return awaitReply(question, turn, silence, reply);
}

void AppLink::sortOut(std::vector<AppMessage *> &messages, const Question &question,
                      AppMessagePtr *reply)
{
    std::vector<AppMessage *> elsewhere;
    for (AppMessage *message : messages) {
        if (!*reply && message->seqNumber() == question.number &&
            message->mainType() == question.mainType && message->subType() == question.subType)
            reply->reset(message);
        // The pointer is moved at once, but never by the widget thread, which this may be.
        else if (isPointerPosition(*message) || !replies_.enter(message))
            elsewhere.push_back(message);
    }
    messages.clear();
    queue_.add(elsewhere);
}

AppMessagePtr AppLink::requestKeepingAlive(uint16_t mainType, uint16_t subType, const void *in,
                                           uint32_t inLength)
{
    while (loopWait_.load() && !stopping_.load()) {
        std::unique_ptr<LinkWaitLoop> loop;
        {
            ScopedLock lock(hostLock_);
            if (host_)
                loop = host_->makeWaitLoop();
        }
        if (!loop)
            break;
        NestedWaiter waiter;
        waiter.mainType = mainType;
        waiter.subType = subType;
        waiter.loop = loop.get();
        waiters_.enter(&waiter, [&] { return send(mainType, subType, in, inLength); });
        loop->run();
        waiters_.remove(waiter);
        if (waiter.reply)
            return std::move(waiter.reply);
    }
    return request(mainType, subType, in, inLength);
}

void AppLink::waitState(uint32_t state)
{
    replies_.waitState(state + AppMain::system);
}
