// An event queue of its own for tests of the link.
#pragma once

#include "link/linkhost.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

class FakeHost : public LinkHost
{
public:
    struct Posted {
        uint16_t mainType, subType;
        uint32_t sequence;
        std::thread::id thread;
    };
    struct Moved {
        int x, y, buttons;
        bool force;
        std::thread::id thread;
    };

    void postMessage(ZrObject *receiver, AppMessage *message) override;
    std::unique_ptr<LinkWaitLoop> makeWaitLoop() override;
    bool screenSize(int *width, int *height) override;
    void pointerMoved(int x, int y, int buttons, bool force) override;
    void slowRequest(uint16_t, uint16_t, bool waiting) override { slow.push_back(waiting); }

    // Waits until that many have come, and returns all.
    std::vector<Posted> waitPosted(size_t count);
    std::vector<Moved> waitMoved(size_t count);
    // Ends the innermost waiting loop without a reply, once there is one.
    void exitLoop();

    std::vector<bool> slow; // what was told of slow requests, by the thread that asks
    int width = 1920;
    int height = 1080;
    ZrObject *lastReceiver = nullptr;

private:
    class Loop;
    template <typename Condition>
    std::unique_lock<std::mutex> lockedWhen(Condition condition, const char *what);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Posted> posted_;
    std::vector<Moved> moved_;
    std::vector<Loop *> loops_;
};
