#include "link/appcalls.h"

#include "link/applink.h"
#include "platform/boardpath.h"

#include <algorithm>

namespace
{

AppLink *otherLink = nullptr;

AppLink &processLink()
{
    if (otherLink)
        return *otherLink;
    // Its threads run until the process ends, so it is never destroyed.
    static auto *link = new AppLink(boardPath("/dev/IPC_UI"));
    return *link;
}

size_t copyBody(const AppMessage *message, void *out, size_t capacity)
{
    const size_t count = message ? std::min(size_t(message->bodyLength()), capacity) : 0;
    if (count)
        memcpy(out, message->body(), count);
    return count;
}

} // namespace

void appUseLink(AppLink *link)
{
    otherLink = link;
}

void appSetLinkHost(LinkHost *host)
{
    processLink().setHost(host);
}

void appLinkStart(ZrObject *receiver)
{
    processLink().start(receiver);
}

void appSetReceiver(ZrObject *receiver)
{
    processLink().setReceiver(receiver);
}

void appSetLoopWait(bool flag)
{
    processLink().setLoopWait(flag);
}

uint32_t appSend(uint16_t mainType, uint16_t subType, const void *body, uint32_t length)
{
    return processLink().send(mainType, subType, body, length);
}

int UI_IPC_ClientSendReqMsg(const AppMsgHead *head, const void *body)
{
    return processLink().sendMessage(head, body);
}

AppMessagePtr appRequest(uint16_t mainType, uint16_t subType, const void *in, uint32_t inLength)
{
    return processLink().request(mainType, subType, in, inLength);
}

size_t appRequest(uint16_t mainType, uint16_t subType, void *out, size_t capacity, const void *in,
                  uint32_t inLength)
{
    const AppMessagePtr reply = processLink().request(mainType, subType, in, inLength);
    return copyBody(reply.get(), out, capacity);
}

ZrVector<uint8_t> appRequestData(uint16_t mainType, uint16_t subType, void *out, size_t capacity,
                                 const void *in, uint32_t inLength)
{
    const AppMessagePtr reply = processLink().requestKeepingAlive(mainType, subType, in, inLength);
    ZrVector<uint8_t> body;
    if (out) {
        copyBody(reply.get(), out, capacity);
    } else if (reply && reply->bodyLength() > 0) {
        body.resize(int(reply->bodyLength()));
        memcpy(body.data(), reply->body(), reply->bodyLength());
    }
    return body;
}

void appWaitState(uint32_t state)
{
    processLink().waitState(state);
}
