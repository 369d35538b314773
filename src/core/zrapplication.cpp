#include <zrapplication>

#include "core/linkevents.h"
#include "core/zrpostqueue.h"
#include "core/zrtimercore.h"

#include <cstdio>
#include <cstdlib>
#include <zrfontmetrics>

ZrDisplay::~ZrDisplay() = default;
ZrPointerInput::~ZrPointerInput() = default;
ZrWidgetRouter::~ZrWidgetRouter() = default;

ZrApplication *ZrApplication::instance_ = nullptr;

namespace
{

constexpr int IdleTickMs = 1000;

ZrString &displayDevice()
{
    static ZrString device;
    return device;
}

ZrString chosenDevice()
{
    ZrString device = displayDevice();
    if (device.isEmpty()) {
        if (const char *node = std::getenv("ZR_FBDEV_NODE"))
            device = ZrString(node);
    }
    return device.isEmpty() ? ZrString("/dev/fb0") : device;
}

} // namespace

ZrApplicationParts &ZrApplication::parts()
{
    static ZrApplicationParts parts;
    return parts;
}

void ZrApplication::setDisplayDevice(const ZrString &device)
{
    displayDevice().append(device);
}

ZrApplication::ZrApplication(int, char **)
    : queue_(std::make_unique<ZrPostQueue>()), timerCore_(std::make_unique<ZrTimerCore>())
{
    instance_ = this;
    if (parts().makeRouter)
        router_ = parts().makeRouter();
    if (parts().makeDisplay)
        openDisplay();
    if (parts().makePointer) {
        pointer_ = parts().makePointer();
        pointer_->start(desktopRect_);
    }
    connectLinkEvents();
    timerCore_->start();
    idleTimer_ = startTimer(IdleTickMs);
}

ZrApplication::~ZrApplication()
{
    disconnectLinkEvents();
    // The children use everything below, so they go first.
    deleteChildren();
    pointer_.reset();
    timerCore_->stop();
    timerCore_->unregisterTimers(this);
    display_.reset();
    removePostedEvents(this);
    queue_.reset();
    router_.reset();
    instance_ = nullptr;
}

void ZrApplication::openDisplay()
{
    device_ = chosenDevice();
    display_ = parts().makeDisplay();
    const ZrByteArray name = device_.toUtf8();
    if (!display_->open(device_)) {
        std::printf("[GUI-FRAMEWORK]: open (%s) failed, set \"ZR_FBDEV_NODE\" env or call "
                    "ZrApplication::setDisplayDevice() !!!\n",
                    name.constData());
        std::exit(1);
    }
    std::printf("[GUI-FRAMEWORK]: open fbdev(%s) success !\n", name.constData());
    desktopRect_ = display_->rect();
}

void ZrApplication::setCursorTimeout(int seconds)
{
    if (display_)
        display_->setCursorTimeout(seconds);
}

void ZrApplication::closeDisplay()
{
    if (!display_)
        return;
    display_->close();
    ZrFontMetrics::clearFontCache();
}

void ZrApplication::reopenDisplay()
{
    if (!display_)
        return;
    const ZrRect before = desktopRect_;
    display_->open(device_);
    desktopRect_ = display_->rect();
    display_->markAllDirty();
    if (desktopRect_.width() != before.width() || desktopRect_.height() != before.height()) {
        ZrEvent changed(ZrEvent::Broadcast);
        notify(this, &changed);
        for (ZrObject *window : display_->topLevels()) {
            ZrEvent windowChanged(ZrEvent::Broadcast);
            notify(window, &windowChanged);
        }
    }
    if (pointer_)
        pointer_->setBounds(desktopRect_);
}

int ZrApplication::exec()
{
    if (running_)
        return 1;
    running_ = true;
    while (running_)
        processEvents();
    return 0;
}

void ZrApplication::processEvents()
{
    const ZrPostedEvent posted = queue_->take();
    std::unique_ptr<ZrEvent> event(posted.event);
    dispatch(posted.receiver, event.get());
}

bool ZrApplication::processPending()
{
    bool any = false;
    for (ZrPostedEvent posted; queue_->takePending(posted); any = true) {
        std::unique_ptr<ZrEvent> event(posted.event);
        dispatch(posted.receiver, event.get());
    }
    return any;
}

void ZrApplication::postEvent(ZrObject *receiver, ZrEvent *event)
{
    if (!receiver || !instance_ || !instance_->queue_) {
        delete event;
        return;
    }
    instance_->queue_->post(receiver, event);
}

void ZrApplication::removePostedEvents(ZrObject *receiver)
{
    if (instance_ && instance_->queue_)
        instance_->queue_->removeFor(receiver);
}

bool ZrApplication::hasEventsInHand() const
{
    return queue_ && queue_->hasInHand();
}

void ZrApplication::dropQueuedSignals(ZrObject *sender)
{
    if (queue_)
        queue_->removeQueuedSignals(sender);
}

namespace
{

bool offerToFilters(const ZrList<ZrObject *> &filters, ZrObject *receiver, ZrEvent *event)
{
    // By index and size anew: a filter may install and remove filters.
    for (int i = 0; i < filters.size(); ++i) {
        ZrObject *filter = filters.at(i);
        if (filter && filter->eventFilter(receiver, event)) {
            event->accept();
            return true;
        }
    }
    return false;
}

} // namespace

bool ZrApplication::notify(ZrObject *receiver, ZrEvent *event)
{
    if (!receiver)
        return false;
    if (event->type() >= ZrEvent::FirstCustom) {
        receiver->customEvent(event);
        return true;
    }
    if (instance_ && offerToFilters(instance_->eventFilters_, receiver, event))
        return true;
    if (receiver != instance_ && offerToFilters(receiver->eventFilters_, receiver, event))
        return true;
    return receiver->event(event);
}

void ZrApplication::dispatch(ZrObject *receiver, ZrEvent *event)
{
    if (!receiver)
        return;
    if (event->type() >= ZrEvent::FirstCustom) {
        receiver->customEvent(event);
    } else if (event->type() == ZrEvent::DeferredDelete) {
        delete receiver;
    } else if (receiver == this && event->type() == ZrEvent::RawMouse) {
        if (router_)
            router_->rawPointer(*static_cast<ZrRawMouseEvent *>(event));
    } else if (receiver->isWidgetType() && router_) {
        router_->dispatch(receiver, event);
    } else {
        notify(receiver, event);
    }
}

void ZrApplication::forget(ZrObject *object)
{
    if (router_)
        router_->forget(object);
}

void ZrApplication::timerEvent(ZrTimerEvent *event)
{
    if (event->timerId() != idleTimer_)
        return;
    ++idleSeconds_;
    if (pointer_)
        pointer_->idleTick(idleSeconds_);
}
