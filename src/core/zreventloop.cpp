#include <zreventloop>

#include <zrapplication>
#include <zrevent>

bool EventLoop::exec(int timeoutMs)
{
    timedOut_ = false;
    if (timeoutMs > 0)
        startTimer(timeoutMs, 0);
    while (running_)
        ZrApplication::instance()->processEvents();
    return !timedOut_;
}

void EventLoop::exit()
{
    ZrApplication::postEvent(this, new ZrEvent(ZrEvent::LoopExit));
}

void EventLoop::customEvent(ZrEvent *event)
{
    if (event->type() == ZrEvent::LoopExit)
        running_ = false;
}

void EventLoop::timerEvent(ZrTimerEvent *)
{
    timedOut_ = true;
    running_ = false;
}
