#include <zrboxlayout>

#include "widgets/layout/zrboxlayoutprivate.h"

#include <zrwidget>

// --- what a box works out ---

int ZrBoxLayoutItem::heightFor(int width) const
{
    return item->hasHeightForWidth() ? item->heightForWidth(width) : item->sizeHint().height();
}

int ZrBoxLayoutItem::minimumHeightFor(int width) const
{
    return item->hasHeightForWidth() ? item->minimumHeightForWidth(width)
                                     : item->minimumSize().height();
}

ZrBoxLayoutPrivate::~ZrBoxLayoutPrivate()
{
    for (ZrBoxLayoutItem *box : list) {
        destroy(box->item);
        delete box;
    }
}

void ZrBoxLayoutPrivate::markDirty()
{
    dirty = true;
    hfwWidth = hfwHeight = hfwMinHeight = -1;
}

ZrLayoutStruct ZrBoxLayoutPrivate::entryFor(const ZrBoxLayoutItem &box) const
{
    const int axis = isHorizontal() ? ZrLayoutItem::Horizontal : ZrLayoutItem::Vertical;
    ZrLayoutStruct entry;
    entry.stretch = box.stretch;
    entry.sizeHint = along(box.item->sizeHint());
    entry.minimumSize = along(box.item->minimumSize());
    entry.maximumSize = along(box.item->maximumSize());
    entry.expansive = box.item->expandingDirections() & axis || box.stretch > 0;
    entry.empty = box.item->isEmpty();
    return entry;
}

void ZrBoxLayoutPrivate::setupGeom(int spacing)
{
    if (!dirty)
        return;
    const int axis = isHorizontal() ? ZrLayoutItem::Horizontal : ZrLayoutItem::Vertical;
    const int otherAxis = ZrLayoutItem::Horizontal + ZrLayoutItem::Vertical - axis;
    hasHfw = false;
    expanding = 0;
    geomArray.resize(list.size());
    long long hint = 0, minimum = 0, maximum = 0;
    int hintAcross = 0, minimumAcross = 0;
    CommonMaximum maximumAcross;
    for (int i = 0; i < list.size(); ++i) {
        const ZrLayoutItem &item = *list.at(i)->item;
        const ZrLayoutStruct entry = geomArray[i] = entryFor(*list.at(i));
        hint += entry.sizeHint;
        minimum += entry.minimumSize;
        maximum += entry.maximumSize;
        hintAcross = std::max(hintAcross, across(item.sizeHint()));
        minimumAcross = std::max(minimumAcross, across(item.minimumSize()));
        maximumAcross.add(across(item.maximumSize()), item.expandingDirections() & otherAxis,
                          entry.empty);
        hasHfw = hasHfw || item.hasHeightForWidth();
        if (entry.expansive)
            expanding |= axis;
    }
    const long long spaces = spreadSpacing(geomArray, spacing);
    if (maximumAcross.expands())
        expanding |= otherAxis;
    if (expanding & axis || list.isEmpty())
        maximum = ZrLayoutItem::SizeLimit;
    sizeHint = sized(boundedSize(hint + spaces), hintAcross);
    minSize = sized(boundedSize(minimum + spaces), minimumAcross);
    maxSize = sized(boundedSize(maximum + spaces),
                    expanding & otherAxis ? ZrLayoutItem::SizeLimit : maximumAcross.value(0))
                  .expandedTo(minSize);
    dirty = false;
}

void ZrBoxLayoutPrivate::calcHeightForWidth(int width)
{
    int height = 0, minimum = 0;
    if (isHorizontal())
        calculateGeometry(geomArray, 0, geomArray.size(), 0, width);
    for (int i = 0; i < list.size(); ++i) {
        const ZrBoxLayoutItem &box = *list.at(i);
        const ZrLayoutStruct &entry = geomArray.at(i);
        if (isHorizontal()) {
            height = std::max(height, box.heightFor(entry.size));
            minimum = std::max(minimum, box.minimumHeightFor(entry.size));
        } else {
            height += box.heightFor(width) + entry.spacing;
            minimum += box.minimumHeightFor(width) + entry.spacing;
        }
    }
    hfwWidth = width;
    hfwHeight = height;
    hfwMinHeight = minimum;
}

void ZrBoxLayoutPrivate::askHeights(int width)
{
    for (int i = 0; i < list.size(); ++i) {
        const ZrLayoutItem &item = *list.at(i)->item;
        if (item.hasHeightForWidth())
            geomArray[i].sizeHint = geomArray[i].minimumSize = item.heightForWidth(width);
    }
}

void ZrBoxLayoutPrivate::place(const ZrRect &room)
{
    const int start = isHorizontal() ? room.left() : room.top();
    const int space = along(room.size());
    if (hasHfw && !isHorizontal())
        askHeights(room.width());
    calculateGeometry(geomArray, 0, geomArray.size(), start, space);
    // Handlers of the widgets may change the box under way: from values, by index.
    const ZrVector<ZrLayoutStruct> entries = geomArray;
    for (int i = 0; i < entries.size() && i < list.size(); ++i) {
        const ZrLayoutStruct &entry = entries.at(i);
        const int pos =
            isReversed() ? start + (start + space) - (entry.pos + entry.size) : entry.pos;
        list.at(i)->item->setGeometry(isHorizontal()
                                          ? ZrRect(pos, room.top(), entry.size, room.height())
                                          : ZrRect(room.left(), pos, room.width(), entry.size));
    }
}

// --- the layout ---

ZrBoxLayout::ZrBoxLayout(Direction direction, ZrWidget *parent)
    : ZrLayout(std::make_unique<ZrBoxLayoutPrivate>(direction))
{
    if (parent)
        parent->setLayout(this);
}

ZrBoxLayoutPrivate &ZrBoxLayout::box() const
{
    return static_cast<ZrBoxLayoutPrivate &>(data());
}

const ZrBoxLayoutPrivate &ZrBoxLayout::cleanBox() const
{
    box().setupGeom(spacing());
    return box();
}

void ZrBoxLayout::addWidget(ZrWidget *widget, int stretch, int alignment)
{
    if (!isPlaceable(widget))
        return;
    addChildWidget(widget);
    auto *item = new ZrWidgetItemV2(widget); // the box owns it
    item->setAlignment(alignment);
    insertItem(-1, item, stretch);
}

void ZrBoxLayout::addLayout(ZrLayout *layout, int stretch)
{
    insertItem(-1, layout, stretch);
}

void ZrBoxLayout::addSpacing(int size)
{
    const ZrSize gap = box().sized(size, 0);
    insertItem(-1,
               new ZrSpacerItem(gap.width(), gap.height(),
                                box().isHorizontal()
                                    ? ZrSizePolicy(ZrSizePolicy::Fixed, ZrSizePolicy::Minimum)
                                    : ZrSizePolicy(ZrSizePolicy::Minimum, ZrSizePolicy::Fixed)));
}

void ZrBoxLayout::addStretch(int stretch)
{
    insertItem(-1,
               new ZrSpacerItem(0, 0,
                                box().isHorizontal()
                                    ? ZrSizePolicy(ZrSizePolicy::Expanding, ZrSizePolicy::Minimum)
                                    : ZrSizePolicy(ZrSizePolicy::Minimum, ZrSizePolicy::Expanding)),
               stretch);
}

void ZrBoxLayout::insertItem(int index, ZrLayoutItem *item, int stretch)
{
    if (!adopt(item))
        return;
    ZrList<ZrBoxLayoutItem *> &list = box().list;
    if (index < 0 || index > list.size())
        index = list.size();
    list.insert(index, new ZrBoxLayoutItem{item, std::max(stretch, 0)});
    invalidate();
}

void ZrBoxLayout::setStretch(int index, int stretch)
{
    if (index < 0 || index >= count())
        return;
    box().list.at(index)->stretch = std::max(stretch, 0);
    invalidate();
}

void ZrBoxLayout::setDirection(Direction direction)
{
    if (direction == box().direction)
        return;
    box().direction = direction;
    invalidate();
}

ZrBoxLayout::Direction ZrBoxLayout::direction() const
{
    return box().direction;
}

int ZrBoxLayout::count() const
{
    return box().list.size();
}

ZrLayoutItem *ZrBoxLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? box().list.at(index)->item : nullptr;
}

ZrLayoutItem *ZrBoxLayout::takeAt(int index)
{
    const std::unique_ptr<ZrBoxLayoutItem> taken(box().list.takeAt(index));
    return release(taken->item);
}

void ZrBoxLayout::setGeometry(const ZrRect &rect)
{
    if (isPlacedAt(rect))
        return;
    box().setupGeom(spacing());
    box().place(beginPlacement(rect));
}

ZrSize ZrBoxLayout::sizeHint() const
{
    return withMargins(cleanBox().sizeHint);
}

ZrSize ZrBoxLayout::minimumSize() const
{
    return withMargins(cleanBox().minSize);
}

ZrSize ZrBoxLayout::maximumSize() const
{
    return unlessAligned(withMargins(cleanBox().maxSize));
}

int ZrBoxLayout::expandingDirections() const
{
    return unlessAligned(cleanBox().expanding);
}

bool ZrBoxLayout::hasHeightForWidth() const
{
    return cleanBox().hasHfw;
}

int ZrBoxLayout::heightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    const int room = width - marginSize().width();
    if (room != box().hfwWidth)
        box().calcHeightForWidth(room);
    return boundedSize(box().hfwHeight + marginSize().height());
}

int ZrBoxLayout::minimumHeightForWidth(int width) const
{
    return heightForWidth(width) < 0 ? -1 : boundedSize(box().hfwMinHeight + marginSize().height());
}

void ZrBoxLayout::invalidate()
{
    box().markDirty();
    ZrLayout::invalidate();
}
