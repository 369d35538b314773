// Waiting for a condition in tests.
#pragma once

#include <chrono>
#include <thread>

// Long enough for a loaded machine under a sanitizer; only ever reached by a failing test.
constexpr int kDeadlineMs = 20000;

// Looks again until the condition holds; false when it never does.
template <typename Condition>
bool eventually(Condition condition, int milliseconds = kDeadlineMs)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
