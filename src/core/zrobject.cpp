#include <zrobject>

#include "core/zrtimercore.h"

#include <cstring>
#include <zrapplication>
#include <zrevent>
#include <zrguard>

bool zrSameName(const char *left, const char *right)
{
    return std::strcmp(left, right) == 0;
}

ZrObject::ZrObject(ZrObject *parent) : signalMapper_(this)
{
    ZrObject::setParent(parent);
}

ZrObject::~ZrObject()
{
    clearGuards();
    deleteChildren();
    detachFromParent();
    ZrApplication *application = ZrApplication::instance();
    if (application)
        application->forget(this);
    emit(this, &destroyed);
    if (!application)
        return;
    if (timerCount_ > 0)
        application->timerCore()->unregisterTimers(this);
    if (postedEvents() > 0 || application->hasEventsInHand())
        ZrApplication::removePostedEvents(this);
    if (hasQueuedSignals_)
        application->dropQueuedSignals(this);
}

void ZrObject::clearGuards()
{
    while (ZrGuardLink *guard = guards_)
        guard->detach();
}

void ZrObject::deleteChildren()
{
    // A child's handlers may delete a sibling, so the list is read anew at each step.
    while (!children_.isEmpty()) {
        ZrObject *child = children_.first();
        children_.removeFirst();
        child->parent_ = nullptr;
        delete child;
    }
}

void ZrObject::detachFromParent()
{
    if (!parent_)
        return;
    const int index = parent_->children_.indexOf(this);
    if (index >= 0)
        parent_->children_.removeAt(index);
    parent_ = nullptr;
}

void ZrObject::setParent(ZrObject *parent)
{
    if (parent == parent_)
        return;
    detachFromParent();
    parent_ = parent;
    if (parent_)
        parent_->children_.append(this);
}

ZrString ZrObject::className() const
{
    return ZrString("ZrObject");
}

bool ZrObject::inherits(const char *name) const
{
    return zrSameName(name, "ZrObject");
}

bool ZrObject::event(ZrEvent *event)
{
    switch (event->type()) {
    case ZrEvent::QueuedSignal: {
        auto *queued = static_cast<ZrQueuedSignalEvent *>(event);
        queued->function(queued->sender, queued->receiver, nullptr);
        return true;
    }
    case ZrEvent::Broadcast:
        broadcastEvent(event);
        return true;
    case ZrEvent::Timer:
        timerEvent(static_cast<ZrTimerEvent *>(event));
        return true;
    default:
        return false;
    }
}

void ZrObject::customEvent(ZrEvent *) {}

bool ZrObject::eventFilter(ZrObject *, ZrEvent *)
{
    return false;
}

void ZrObject::timerEvent(ZrTimerEvent *) {}

void ZrObject::broadcastEvent(ZrEvent *event)
{
    for (int i = 0; i < children_.size(); ++i)
        ZrApplication::notify(children_.at(i), event);
}

bool ZrObject::connect(ZrObject *sender, ZrSignal *signal, ZrObject *receiver,
                       ZrSlotFunction function, Delivery delivery)
{
    if (!sender || !signal || !receiver || !function)
        return false;
    return sender->signalMapper_.connect(signal, receiver, function, delivery);
}

bool ZrObject::disconnect(ZrObject *sender, ZrSignal *signal, ZrObject *receiver,
                          ZrSlotFunction function)
{
    if (!sender || !signal || !receiver)
        return false;
    return sender->signalMapper_.disconnect(signal, receiver, function);
}

bool ZrObject::disconnect(ZrObject *sender, ZrObject *receiver)
{
    return sender && receiver && sender->signalMapper_.disconnectReceiver(receiver) > 0;
}

bool ZrObject::blockSignals(bool blocked)
{
    const bool before = signalsBlocked_;
    signalsBlocked_ = blocked;
    return before;
}

void ZrObject::deleteLater()
{
    ZrApplication::postEvent(this, new ZrEvent(ZrEvent::DeferredDelete));
}

void ZrObject::installEventFilter(ZrObject *filter)
{
    if (!filter)
        return;
    eventFilters_.removeAll(nullptr);
    eventFilters_.removeAll(filter);
    eventFilters_.prepend(filter);
    connect(filter, &filter->destroyed, this, filterDestroyed);
}

void ZrObject::removeEventFilter(ZrObject *filter)
{
    const int index = filter ? eventFilters_.indexOf(filter) : -1;
    if (index < 0)
        return;
    // A delivery may be walking the list: the place stays, empty.
    eventFilters_[index] = nullptr;
    disconnect(filter, &filter->destroyed, this, filterDestroyed);
}

void ZrObject::filterDestroyed(ZrObject *filter, ZrObject *watched, ZrSlotList *)
{
    const int index = watched->eventFilters_.indexOf(filter);
    if (index >= 0)
        watched->eventFilters_[index] = nullptr;
}

unsigned ZrObject::startTimer(int ms, int repeats)
{
    ++timerCount_;
    return ZrApplication::instance()->timerCore()->registerTimer(ms, this, repeats);
}

void ZrObject::killTimer(unsigned id)
{
    if (ZrApplication::instance()->timerCore()->unregisterTimer(id) && timerCount_ > 0)
        --timerCount_;
}

void ZrObject::raiseChild(ZrObject *child)
{
    children_.removeAll(child);
    children_.append(child);
}

void ZrObject::lowerChild(ZrObject *child)
{
    children_.removeAll(child);
    children_.prepend(child);
}
