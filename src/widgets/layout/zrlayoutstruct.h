// One line of a box or a grid, and the routine that divides room among its entries.
#pragma once

#include <zrlayoutitem>
#include <zrvector>

// What an entry asks for, and, from `done` on, what it got. Pixels along the line.
struct ZrLayoutStruct {
    int stretch = 0;
    int sizeHint = 0;
    int maximumSize = ZrLayoutItem::SizeLimit;
    int minimumSize = 0;
    bool expansive = false;
    bool empty = true;
    int spacing = 0; // behind it
    bool done = false;
    int pos = 0;
    int size = 0;

    // What it gets before there is room to share: a stretch replaces the hint.
    int smallest() const { return stretch > 0 ? minimumSize : sizeHint; }
    bool wantsToGrow() const { return stretch > 0 || expansive; }
};

// Gives `count` entries from `start` on their size and position: `space` pixels from `pos` on. A
// `spacer` below 0 means each entry's own spacing. Three cases:
//   - less room than the minima: the greatest entries are cut first, to one common limit;
//   - less than the hints: all give up an equal share of what is missing, down to their minimum;
//   - otherwise what is left goes to entries with a stretch in proportion, else to expansive ones,
//     else to all, up to their maxima; what nobody may take stands half before the line and half
//     behind it.
// No size is negative. Shares are 64-bit fixed point with 8 bits of fraction, each entry rounded to
// the nearest pixel with what was left over by the one before, so that sums come out exact.
void calculateGeometry(ZrVector<ZrLayoutStruct> &chain, int start, int count, int pos, int space,
                       int spacer = -1);

// Sets each entry's spacing: `spacing` between non-empty neighbours, 0 elsewhere. Returns the sum.
long long spreadSpacing(ZrVector<ZrLayoutStruct> &chain, int spacing);
