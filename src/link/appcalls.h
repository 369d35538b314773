// The four ways of talking to App. One link for the process stands behind these functions.
//
// Bodies are packed records, sent with their exact length; see WireWriter. Sends may come from any
// thread; requests and waits from the widget thread. A send waits until the link is connected, and
// waits for ever once the connection is gone and could not be made anew.
#pragma once

#include "link/appmessage.h"
#include "link/linkhost.h"

#include <cstddef>
#include <cstdint>
#include <zrvector>

class AppLink;

// Connects to "/dev/IPC_UI" under the board root, on threads of its own. Once. With a null receiver
// (at start-up) only the types of what App sends on its own are noted, for appWaitState.
void appLinkStart(ZrObject *receiver);
// Messages from App become events of this object from now on. Null does nothing.
void appSetReceiver(ZrObject *receiver);
// Whether appRequestData waits in a nested event loop.
void appSetLoopWait(bool flag);

// Sends and forgets. The number of the message, whether or not it could be sent.
uint32_t appSend(uint16_t mainType, uint16_t subType, const void *body = nullptr,
                 uint32_t length = 0);
// Sends a message whose head is all made. 0, or -1 when the head is null or App is not there.
int UI_IPC_ClientSendReqMsg(const AppMsgHead *head, const void *body);

// Asks, and blocks the thread until App answers; asks again every ten seconds without a message,
// and never gives up. What else arrives meanwhile is delivered before it returns.
AppMessagePtr appRequest(uint16_t mainType, uint16_t subType, const void *in = nullptr,
                         uint32_t inLength = 0);
// The same with the body of the reply copied to `out`, of which at most `capacity` bytes are
// written: a longer body is cut, behind a shorter one `out` stays as it was. The number of bytes
// copied.
size_t appRequest(uint16_t mainType, uint16_t subType, void *out, size_t capacity, const void *in,
                  uint32_t inLength);
// As appRequest, but with the interface alive while App takes its time, once appSetLoopWait has
// been set: events are handled inside this call, so the caller must expect anything to have
// changed behind it. With `out` null the result is the body of the reply, else it is empty.
ZrVector<uint8_t> appRequestData(uint16_t mainType, uint16_t subType, void *out, size_t capacity,
                                 const void *in = nullptr, uint32_t inLength = 0);
// Blocks until App has sent message 1000 with this sub type, without limit; returns at once if it
// came before. Only while no receiver is set.
void appWaitState(uint32_t state);

// The link behind these functions becomes another, of which the caller keeps the ownership; null
// goes back to the process's own. For tests, before anything is called on other threads.
void appUseLink(AppLink *link);
