#include "widgets/layout/zrlayoutstruct.h"

#include <algorithm>
#include <vector>

namespace
{

using Entry = ZrLayoutStruct;
// Pixels times 256. What an entry could not take in whole pixels goes to the next.
using Fixed = long long;
constexpr Fixed One = 256;

// Hands out shares in whole pixels.
class Sharing
{
public:
    int next(Fixed share)
    {
        carry_ += share;
        const Fixed pixels = (carry_ + One / 2) >> 8;
        carry_ -= pixels * One;
        return int(pixels);
    }

private:
    Fixed carry_ = 0;
};

struct Totals {
    long long stretch = 0;
    long long minimum = 0;
    long long hint = 0;
    long long spacing = 0;
    int spacers = 0;
    bool wannaGrow = false;
    bool allEmptyNonstretch = true;
};

Totals addUp(Entry *entries, int count, int spacer)
{
    Totals total;
    const Entry *previous = nullptr; // non-empty
    for (Entry *entry = entries; entry != entries + count; ++entry) {
        entry->done = false;
        total.stretch += entry->stretch;
        total.minimum += entry->minimumSize;
        total.hint += entry->smallest();
        total.wannaGrow |= entry->wantsToGrow();
        total.allEmptyNonstretch &= entry->empty && !entry->wantsToGrow();
        if (entry->empty)
            continue;
        if (previous) {
            total.spacing += spacer >= 0 ? spacer : previous->spacing;
            ++total.spacers;
        }
        previous = entry;
    }
    return total;
}

// Case 1. Finds the limit to which the greatest minima must be cut for all to fit.
void cutToFit(Entry *entries, int count, long long space)
{
    space = std::max(space, 0LL);
    std::vector<int> minima;
    minima.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i)
        minima.push_back(entries[i].minimumSize);
    std::sort(minima.begin(), minima.end());

    long long passed = 0;
    int index = 0;
    long long used = 0;
    for (; index < count; ++index) {
        used = passed + (long long)(minima[std::size_t(index)]) * (count - index);
        if (used >= space)
            break;
        passed += minima[std::size_t(index)];
    }
    const int items = std::max(count - index, 1);
    const long long deficit = used - space;
    const int limit = int(minima[std::size_t(std::min(index, count - 1))] - deficit / items);
    const int remainder = int(deficit % items);

    int rest = 0;
    for (int i = 0; i < count; ++i) {
        rest += remainder;
        int own = limit;
        if (rest >= items) {
            --own;
            rest -= items;
        }
        entries[i].size = std::max(std::min(entries[i].minimumSize, own), 0);
        entries[i].done = true;
    }
}

// Case 2. All that can give something up give up the same.
void shrinkFromHints(Entry *entries, int count, long long overdraft)
{
    int open = count;
    for (int i = 0; i < count; ++i) {
        Entry &entry = entries[i];
        if (entry.minimumSize < entry.smallest())
            continue;
        entry.size = entry.smallest();
        entry.done = true;
        --open;
    }
    for (bool pinned = true; pinned && open > 0;) {
        pinned = false;
        Sharing sharing;
        const Fixed share = overdraft * One / open;
        for (int i = 0; i < count && !pinned; ++i) {
            Entry &entry = entries[i];
            if (entry.done)
                continue;
            entry.size = entry.sizeHint - sharing.next(share);
            if (entry.size >= entry.minimumSize)
                continue;
            entry.size = entry.minimumSize;
            entry.done = true;
            overdraft -= entry.sizeHint - entry.minimumSize;
            --open;
            pinned = true;
        }
    }
}

// Case 3: the entries that still share in what is left.
class Pool
{
public:
    Pool(Entry *entries, int count, long long space, const Totals &total)
        : entries_(entries), count_(count), open_(count), left_(space), stretch_(total.stretch)
    {
        for (int i = 0; i < count_; ++i) {
            Entry &entry = entries_[i];
            const bool stands = !entry.wantsToGrow();
            if (entry.maximumSize <= entry.smallest() || (total.wannaGrow && stands) ||
                (!total.allEmptyNonstretch && entry.empty && stands))
                pin(entry, entry.smallest());
        }
    }

    // Returns what nobody may take.
    long long share()
    {
        bool pinned = true;
        while (pinned && open_ > 0) {
            handOut();
            if (deficit_ == 0 && surplus_ == 0)
                return 0;
            pinned = deficit_ >= surplus_ ? pinTooSmall() : pinTooLarge();
        }
        return left_;
    }

private:
    void pin(Entry &entry, int size)
    {
        entry.size = size;
        entry.done = true;
        left_ -= size;
        stretch_ -= entry.stretch;
        --open_;
    }

    void handOut()
    {
        surplus_ = deficit_ = 0;
        Sharing sharing;
        for (int i = 0; i < count_; ++i) {
            Entry &entry = entries_[i];
            if (entry.done)
                continue;
            const Fixed whole = left_ * One;
            entry.size =
                sharing.next(stretch_ > 0 ? whole * entry.stretch / stretch_ : whole / open_);
            deficit_ += std::max(entry.smallest() - entry.size, 0);
            surplus_ += std::max(entry.size - entry.maximumSize, 0);
        }
    }

    bool pinTooSmall()
    {
        const int before = open_;
        for (int i = 0; i < count_; ++i) {
            if (!entries_[i].done && entries_[i].size < entries_[i].smallest())
                pin(entries_[i], entries_[i].smallest());
        }
        return open_ != before;
    }

    bool pinTooLarge()
    {
        const int before = open_;
        for (int i = 0; i < count_; ++i) {
            if (!entries_[i].done && entries_[i].size > entries_[i].maximumSize)
                pin(entries_[i], entries_[i].maximumSize);
        }
        return open_ != before;
    }

    Entry *entries_;
    int count_;
    int open_;
    long long left_;
    long long stretch_;
    long long surplus_ = 0;
    long long deficit_ = 0;
};

} // namespace

void calculateGeometry(ZrVector<ZrLayoutStruct> &chain, int start, int count, int pos, int space,
                       int spacer)
{
    if (count <= 0)
        return;
    Entry *entries = chain.data() + start;
    const Totals total = addUp(entries, count, spacer);
    long long extra = 0;
    if (space < total.minimum + total.spacing) {
        long long spacing = total.spacing;
        if (spacer >= 0) {
            spacer = total.minimum > 0 ? int((long long)(space)*spacer / total.minimum) : 0;
            spacing = (long long)(spacer)*total.spacers;
        }
        cutToFit(entries, count, space - spacing);
    } else if (space < total.hint + total.spacing) {
        shrinkFromHints(entries, count, total.hint + total.spacing - space);
    } else {
        extra = Pool(entries, count, space - total.spacing, total).share();
    }

    pos += int(extra / 2);
    for (int i = 0; i < count; ++i) {
        entries[i].pos = pos;
        pos += entries[i].size;
        if (!entries[i].empty)
            pos += spacer >= 0 ? spacer : entries[i].spacing;
    }
}

long long spreadSpacing(ZrVector<ZrLayoutStruct> &chain, int spacing)
{
    long long total = 0;
    ZrLayoutStruct *previous = nullptr;
    for (ZrLayoutStruct &entry : chain) {
        entry.spacing = 0;
        if (entry.empty)
            continue;
        if (previous) {
            previous->spacing = spacing;
            total += spacing;
        }
        previous = &entry;
    }
    return total;
}
