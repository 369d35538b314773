#include <zrtimer>

#include <zrapplication>
#include <zrevent>

void ZrTimer::start()
{
    stop();
    timerId_ = startTimer(int(interval_));
}

void ZrTimer::start(std::uint32_t ms)
{
    interval_ = ms;
    start();
}

void ZrTimer::stop()
{
    if (timerId_ == 0)
        return;
    killTimer(timerId_);
    timerId_ = 0;
}

void ZrTimer::timerEvent(ZrTimerEvent *event)
{
    // An event of an earlier run may still be waiting when the timer was stopped or restarted.
    if (event->timerId() != timerId_ || timerId_ == 0)
        return;
    if (singleShot_)
        stop();
    emit(this, &timeout);
}

ZrSingleShotTimer *ZrSingleShotTimer::instance_ = nullptr;

ZrSingleShotTimer::~ZrSingleShotTimer()
{
    instance_ = nullptr;
}

void ZrSingleShotTimer::singleShot(int ms, ZrObject *receiver, ZrSlotFunction slot)
{
    if (!receiver || !slot)
        return;
    if (!instance_)
        instance_ = new ZrSingleShotTimer(ZrApplication::instance()); // owned by the application
    instance_->arm(ms, receiver, slot);
}

void ZrSingleShotTimer::arm(int ms, ZrObject *receiver, ZrSlotFunction slot)
{
    const unsigned id = startTimer(ms, 0);
    receivers_.insert(id, receiver);
    slots_.insert(id, slot);
    connect(receiver, &receiver->destroyed, this, receiverDestroyed);
}

void ZrSingleShotTimer::receiverDestroyed(ZrObject *receiver, ZrObject *self, ZrSlotList *)
{
    auto *service = static_cast<ZrSingleShotTimer *>(self);
    for (const std::uint32_t id : service->receivers_.keys()) {
        if (service->receivers_.value(id) != receiver)
            continue;
        service->receivers_.remove(id);
        service->slots_.remove(id);
        service->killTimer(id);
    }
}

void ZrSingleShotTimer::timerEvent(ZrTimerEvent *event)
{
    const std::uint32_t id = event->timerId();
    ZrObject *receiver = receivers_.value(id);
    const ZrSlotFunction slot = slots_.value(id);
    receivers_.remove(id);
    slots_.remove(id);
    if (!receiver || !slot)
        return;
    if (!receivers_.values().contains(receiver))
        disconnect(receiver, &receiver->destroyed, this, receiverDestroyed);
    slot(this, receiver, nullptr);
}
