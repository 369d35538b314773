#include "widgets/table/tableaxis.h"

#include <algorithm>

void TableAxis::changedFrom(int index)
{
    // What grows anywhere takes from all that stretch.
    valid_ = shares_ > 0 ? 0 : std::min(valid_, index);
}

void TableAxis::setCount(int count)
{
    const int before = this->count();
    for (int i = count; i < before; ++i)
        shares_ -= entries_[std::size_t(i)].share;
    entries_.resize(std::size_t(std::max(0, count)));
    changedFrom(std::min(before, count));
}

void TableAxis::insert(int index)
{
    entries_.insert(entries_.begin() + index, Entry());
    changedFrom(index);
}

void TableAxis::remove(int index)
{
    shares_ -= entries_[std::size_t(index)].share;
    entries_.erase(entries_.begin() + index);
    changedFrom(index);
}

void TableAxis::reorder(const std::vector<int> &order)
{
    std::vector<Entry> sorted;
    sorted.reserve(entries_.size());
    for (const int from : order)
        sorted.push_back(entries_[std::size_t(from)]);
    entries_.swap(sorted);
    changedFrom(0);
}

bool TableAxis::setDefaultSize(int pixels)
{
    if (pixels == defaultSize_)
        return false;
    defaultSize_ = pixels;
    changedFrom(0);
    return true;
}

bool TableAxis::setSize(int index, int pixels)
{
    pixels = std::max(0, pixels);
    if (!isIndex(index) || entries_[std::size_t(index)].size == pixels)
        return false;
    entries_[std::size_t(index)].size = pixels;
    changedFrom(index);
    return true;
}

bool TableAxis::setHidden(int index, bool hidden)
{
    if (!isIndex(index) || entries_[std::size_t(index)].hidden == hidden)
        return false;
    entries_[std::size_t(index)].hidden = hidden;
    changedFrom(index);
    return true;
}

bool TableAxis::setShare(int index, int share)
{
    share = std::clamp(share, 0, 1000);
    if (!isIndex(index) || entries_[std::size_t(index)].share == share)
        return false;
    shares_ += share - entries_[std::size_t(index)].share;
    entries_[std::size_t(index)].share = short(share);
    changedFrom(0);
    return true;
}

bool TableAxis::setRoom(int pixels)
{
    if (pixels == room_)
        return false;
    room_ = pixels;
    if (shares_ > 0)
        changedFrom(0);
    return true;
}

int TableAxis::size(int index) const
{
    return isIndex(index) ? edge(index + 1) - edge(index) : 0;
}

bool TableAxis::isHidden(int index) const
{
    return isIndex(index) && entries_[std::size_t(index)].hidden;
}

int TableAxis::ownSize(const Entry &entry) const
{
    if (entry.hidden)
        return 0;
    return entry.size == Unset ? defaultSize_ : entry.size;
}

// Pixels that nobody has claimed.
int TableAxis::spare() const
{
    if (shares_ == 0)
        return 0;
    int claimed = 0;
    for (const Entry &entry : entries_)
        claimed += ownSize(entry);
    return std::max(0, room_ - claimed);
}

const ZrVector<int> &TableAxis::edges() const
{
    if (valid_ == count() && edges_.size() == count() + 1)
        return edges_;
    edges_.resize(count() + 1);
    int *edge = edges_.data();
    const int spare = this->spare();
    int shares = 0; // of those that show
    for (const Entry &entry : entries_)
        shares += spare > 0 && !entry.hidden ? entry.share : 0;
    int taken = 0;
    int given = 0;
    edge[0] = 0;
    for (int i = valid_; i < count(); ++i) {
        const Entry &entry = entries_[std::size_t(i)];
        edge[i + 1] = edge[i] + ownSize(entry);
        if (shares == 0 || entry.hidden || entry.share == 0)
            continue;
        // By the running sum, so that no pixel is lost to rounding.
        taken += entry.share;
        const int upTo = int((long long)spare * taken / shares);
        edge[i + 1] += upTo - given;
        given = upTo;
    }
    valid_ = count();
    return edges_;
}

int TableAxis::at(int position) const
{
    if (position < 0)
        return -1;
    const ZrVector<int> &all = edges();
    // The last that begins at or before the position: those of no size share its beginning.
    const int *past = std::upper_bound(all.begin(), all.end(), position);
    return int(past - all.begin()) - 1;
}
