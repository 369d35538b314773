// What the App link needs of the event queue above it, which fulfils it.
#pragma once

#include <cstdint>
#include <memory>

class ZrObject;
struct AppMessage;

// A loop that keeps the interface alive while a request waits.
class LinkWaitLoop
{
public:
    virtual ~LinkWaitLoop();
    virtual void run() = 0;  // processes events until exit
    virtual void exit() = 0; // any thread
};

class LinkHost
{
public:
    virtual ~LinkHost();
    // Queues the message for the receiver as an event of type 1000, which owns it from here on. Any
    // thread; called with locks of the link held, so it must not call back into the link.
    virtual void postMessage(ZrObject *receiver, AppMessage *message) = 0;
    virtual std::unique_ptr<LinkWaitLoop> makeWaitLoop() = 0;
    // The screen in pixels; false while there is none. Any thread.
    virtual bool screenSize(int *width, int *height) = 0;
    // The pointer position that App gave, in pixels of the screen. `buttons` is App's word as it
    // came. Any thread but the widget thread.
    virtual void pointerMoved(int x, int y, int buttons, bool force) = 0;
    // A blocking request has begun to take long, or, having done so, is over. The thread that asks,
    // which handles no events meanwhile; the link must not be called back.
    virtual void slowRequest(uint16_t mainType, uint16_t subType, bool waiting) = 0;
};

// The link posts and waits through this host from now on; null takes it away, and once that call
// returns the link no longer uses the old one. Messages that arrive without a host are dropped.
void appSetLinkHost(LinkHost *host);
