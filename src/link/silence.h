// How long nothing has come while a blocking request waits: soon long enough to tell the person in
// front, later long enough to ask again.
#pragma once

#include <algorithm>
#include <functional>

class Silence
{
public:
    // Milliseconds after which the person in front should be told.
    static constexpr int SlowAfter = 700;

    // `limit`: milliseconds until the question is asked again.
    Silence(int limit, std::function<void()> whenSlow)
        : limit_(limit), whenSlow_(std::move(whenSlow))
    {
    }
    // How long to wait at a time.
    static int step(int limit) { return std::min(limit, SlowAfter); }
    int step() const { return step(limit_); }
    void broken() { quiet_ = 0; }
    // A step has passed without a message; true when the limit is reached, and time starts anew.
    bool passed()
    {
        whenSlow_();
        quiet_ += step();
        if (quiet_ < limit_)
            return false;
        quiet_ = 0;
        return true;
    }

private:
    int limit_;
    int quiet_ = 0;
    std::function<void()> whenSlow_;
};
