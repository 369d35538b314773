// The rows, or the columns, of a table along their direction: how long each is and where it begins.
#pragma once

#include <vector>
#include <zrvector>

class TableAxis
{
public:
    int count() const { return int(entries_.size()); }
    void setCount(int count);
    void insert(int index);
    void remove(int index);
    // Place i takes what stood at order[i]; every index occurs once.
    void reorder(const std::vector<int> &order);

    // The setters tell whether anything changed; an index out of range changes nothing.
    // Pixels of what has no size of its own.
    bool setDefaultSize(int pixels);
    bool setSize(int index, int pixels);
    bool setHidden(int index, bool hidden);
    // What is left of the room goes to those with a share, in proportion; they are never smaller
    // than their size.
    bool setShare(int index, int share);
    bool setRoom(int pixels);

    // 0 for what is hidden or out of range.
    int size(int index) const;
    bool isHidden(int index) const;
    // The beginning of each, and one entry past the last.
    const ZrVector<int> &edges() const;
    int edge(int index) const { return edges().at(index); }
    int length() const { return edge(count()); }
    // The one that covers the position; -1 before the first, count() past the last.
    int at(int position) const;

private:
    struct Entry {
        int size = Unset;
        short share = 0;
        bool hidden = false;
    };
    static constexpr int Unset = -1;

    bool isIndex(int index) const { return index >= 0 && index < count(); }
    void changedFrom(int index);
    int ownSize(const Entry &entry) const;
    int spare() const;

    std::vector<Entry> entries_;
    int defaultSize_ = 0;
    int room_ = 0;
    int shares_ = 0;
    // Computed when asked for, from the first that is out of date.
    mutable ZrVector<int> edges_{0};
    mutable int valid_ = 0; // so many entries of edges_ behind the first hold
};
