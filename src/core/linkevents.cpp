#include "core/linkevents.h"

#include "link/appmessage.h"
#include "link/linkhost.h"

#include <zrapplication>
#include <zreventloop>

AppMessageEvent::AppMessageEvent(AppMessage *message)
    : CEvent(ZrEvent::MessageFromApp, message->toData())
{
}

const AppMessage *AppMessageEvent::message() const
{
    return data() ? AppMessage::fromData(data()) : nullptr;
}

namespace
{

SlowRequestSign slowRequestSign = nullptr;

class WaitLoop : public LinkWaitLoop
{
public:
    void run() override { loop_.exec(); }
    void exit() override { loop_.exit(); }

private:
    EventLoop loop_;
};

class ApplicationLinkHost : public LinkHost
{
public:
    void postMessage(ZrObject *receiver, AppMessage *message) override
    {
        ZrApplication::postEvent(receiver, new AppMessageEvent(message));
    }
    std::unique_ptr<LinkWaitLoop> makeWaitLoop() override { return std::make_unique<WaitLoop>(); }
    bool screenSize(int *width, int *height) override
    {
        // Written before the link learns of this host, and again only while the display is closed.
        const ZrRect &desktop = ZrApplication::instance()->desktopRect();
        *width = desktop.width();
        *height = desktop.height();
        return !desktop.isEmpty();
    }
    void pointerMoved(int x, int y, int buttons, bool force) override
    {
        if (ZrPointerInput *pointer = ZrApplication::instance()->pointer())
            pointer->inject(x, y, buttons, force);
    }
    void slowRequest(uint16_t mainType, uint16_t, bool waiting) override
    {
        if (slowRequestSign)
            slowRequestSign(mainType, waiting);
    }
};

ApplicationLinkHost host;

} // namespace

void connectLinkEvents()
{
    appSetLinkHost(&host);
}

void setSlowRequestSign(SlowRequestSign sign)
{
    slowRequestSign = sign;
}

void disconnectLinkEvents()
{
    appSetLinkHost(nullptr);
}
