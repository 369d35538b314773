// An element that counts how many of its kind are alive, so that a container that forgets or
// doubles one is found out.
#pragma once

#include <utility>

template <int padding>
class Tracked
{
public:
    Tracked(int value = 0) : value_(value) { alive++; }
    Tracked(const Tracked &other) : value_(other.value_) { alive++; }
    Tracked(Tracked &&other) noexcept : value_(std::exchange(other.value_, -1)) { alive++; }
    ~Tracked() { alive--; }
    Tracked &operator=(const Tracked &) = default;
    Tracked &operator=(Tracked &&) = default;

    bool operator==(const Tracked &o) const { return value_ == o.value_; }
    bool operator<(const Tracked &o) const { return value_ < o.value_; }
    int value() const { return value_; }
    inline static int alive = 0;

private:
    int value_;
    char filling_[padding] = {};
};

using Small = Tracked<4>;  // lives in a list's slot
using Large = Tracked<20>; // does not
