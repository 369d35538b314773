// What the kinds of layouts keep, and the arithmetic they share.
#pragma once

#include "widgets/layout/zrlayoutstruct.h"

#include <algorithm>
#include <zrlayoutitem>

class ZrLayoutPrivate
{
public:
    virtual ~ZrLayoutPrivate() = default;

protected:
    // Deletes an item that its layout owns.
    static void destroy(ZrLayoutItem *item)
    {
        item->holder_ = nullptr;
        delete item;
    }
};

inline int boundedSize(long long size)
{
    return int(std::clamp(size, 0LL, (long long)(ZrLayoutItem::SizeLimit)));
}

// The maximum of several items beside each other: the least of those that do not expand; as soon
// as one expands, the greatest of those that do. Items that are empty have no say.
class CommonMaximum
{
public:
    void add(int maximum, bool expands, bool empty)
    {
        if (empty)
            return;
        if (!any_ || expands != expands_) {
            if (any_ && expands_)
                return;
            maximum_ = maximum;
            expands_ = expands;
        } else {
            maximum_ = expands_ ? std::max(maximum_, maximum) : std::min(maximum_, maximum);
        }
        any_ = true;
    }
    int value(int withoutItems) const { return any_ ? maximum_ : withoutItems; }
    bool expands() const { return expands_; }

private:
    int maximum_ = 0;
    bool expands_ = false;
    bool any_ = false;
};
