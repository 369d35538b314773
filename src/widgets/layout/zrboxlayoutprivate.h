// The items of a box and what was worked out from them.
#pragma once

#include "widgets/layout/zrlayoutprivate.h"

#include <memory>
#include <zrboxlayout>
#include <zrlist>

struct ZrBoxLayoutItem {
    ZrLayoutItem *item; // owned by the box
    int stretch;

    int heightFor(int width) const;
    int minimumHeightFor(int width) const;
};

class ZrBoxLayoutPrivate : public ZrLayoutPrivate
{
public:
    explicit ZrBoxLayoutPrivate(ZrBoxLayout::Direction d) : direction(d) {}
    ~ZrBoxLayoutPrivate() override;

    bool isHorizontal() const { return direction <= ZrBoxLayout::RightToLeft; }
    bool isReversed() const
    {
        return direction == ZrBoxLayout::RightToLeft || direction == ZrBoxLayout::BottomToTop;
    }
    int along(const ZrSize &size) const { return isHorizontal() ? size.width() : size.height(); }
    int across(const ZrSize &size) const { return isHorizontal() ? size.height() : size.width(); }
    ZrSize sized(int alongIt, int acrossIt) const
    {
        return isHorizontal() ? ZrSize(alongIt, acrossIt) : ZrSize(acrossIt, alongIt);
    }

    void markDirty();
    // Fills geomArray and the sizes, without margins; no longer dirty.
    void setupGeom(int spacing);
    // Fills hfwHeight and hfwMinHeight for items that stand in `width` pixels.
    void calcHeightForWidth(int width);
    // The entries of a column whose height follows from its width.
    void askHeights(int width);
    void place(const ZrRect &room);

    ZrList<ZrBoxLayoutItem *> list;
    ZrVector<ZrLayoutStruct> geomArray;
    int hfwWidth = -1; // -1 while unknown
    int hfwHeight = -1;
    int hfwMinHeight = -1;
    ZrSize sizeHint;
    ZrSize minSize;
    ZrSize maxSize;
    int expanding = 0; // a sum of ZrLayoutItem::Axis
    bool hasHfw = false;
    bool empty = true;
    bool dirty = true;
    ZrBoxLayout::Direction direction;
};
