#include "link/fakehost.h"

#include "link/appmessage.h"
#include "support/deadline.h"

#include <gtest/gtest.h>

#include <algorithm>

class FakeHost::Loop : public LinkWaitLoop
{
public:
    explicit Loop(FakeHost &host) : host_(host)
    {
        std::lock_guard<std::mutex> lock(host_.mutex_);
        host_.loops_.push_back(this);
        host_.changed_.notify_all();
    }
    ~Loop() override
    {
        std::lock_guard<std::mutex> lock(host_.mutex_);
        host_.loops_.erase(std::find(host_.loops_.begin(), host_.loops_.end(), this));
    }
    void run() override
    {
        EXPECT_TRUE(eventually([this] {
            std::lock_guard<std::mutex> lock(mutex_);
            return over_;
        }));
    }
    void exit() override
    {
        std::lock_guard<std::mutex> lock(mutex_);
        over_ = true;
    }

private:
    FakeHost &host_;
    std::mutex mutex_;
    bool over_ = false;
};

void FakeHost::postMessage(ZrObject *receiver, AppMessage *message)
{
    std::lock_guard<std::mutex> lock(mutex_);
    lastReceiver = receiver;
    posted_.push_back({message->mainType(), message->subType(), message->seqNumber(),
                       std::this_thread::get_id()});
    changed_.notify_all();
    AppMessage::release(message);
}

std::unique_ptr<LinkWaitLoop> FakeHost::makeWaitLoop()
{
    return std::make_unique<Loop>(*this);
}

bool FakeHost::screenSize(int *screenWidth, int *screenHeight)
{
    *screenWidth = width;
    *screenHeight = height;
    return true;
}

void FakeHost::pointerMoved(int x, int y, int buttons, bool force)
{
    std::lock_guard<std::mutex> lock(mutex_);
    moved_.push_back({x, y, buttons, force, std::this_thread::get_id()});
    changed_.notify_all();
}

// Locked, once the condition holds under the lock.
template <typename Condition>
std::unique_lock<std::mutex> FakeHost::lockedWhen(Condition condition, const char *what)
{
    std::unique_lock<std::mutex> lock(mutex_);
    EXPECT_TRUE(changed_.wait_for(lock, std::chrono::milliseconds(kDeadlineMs), condition)) << what;
    return lock;
}

std::vector<FakeHost::Posted> FakeHost::waitPosted(size_t count)
{
    const auto lock = lockedWhen([&] { return posted_.size() >= count; }, "messages are missing");
    return posted_;
}

std::vector<FakeHost::Moved> FakeHost::waitMoved(size_t count)
{
    const auto lock = lockedWhen([&] { return moved_.size() >= count; }, "moves are missing");
    return moved_;
}

void FakeHost::exitLoop()
{
    const auto lock = lockedWhen([&] { return !loops_.empty(); }, "nobody waits");
    if (!loops_.empty())
        loops_.back()->exit();
}
