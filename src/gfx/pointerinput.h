// The pointer as the application knows it: the watcher thread, the cursor that it moves at once,
// and the events that it posts.
#pragma once

#include <atomic>
#include <zrapplication>
#include <zrmousewatcher>

class PointerInput : public ZrPointerInput, public ZrMouseHandler
{
public:
    PointerInput() : watcher_(this) {}
    ~PointerInput() override { watcher_.stop(); }

    void start(const ZrRect &bounds) override;
    void setBounds(const ZrRect &bounds) override;
    void setSpeed(int speed) override { watcher_.setSpeed(speed); }
    void idleTick(int seconds) override;
    void inject(int x, int y, int buttons, bool force) override;
    void mouseMoved(const ZrPoint &position, int buttons, int wheel) override;

    ZrMouseWatcher &watcher() { return watcher_; }

private:
    ZrMouseWatcher watcher_;
    std::atomic<int> tick_{0};
    std::atomic<int> lastMoveTick_{0};
    std::atomic<bool> isIdle_{false}; // the pointer was hidden because the mouse rested
};
