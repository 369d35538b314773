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

namespace
{

// What the items of a line need across it.
struct Across {
    int hint = 0;
    int minimum = 0;
    CommonMaximum maximum;
};

} // namespace

void ZrBoxLayoutPrivate::setupGeom(int spacing)
{
    const int axis = isHorizontal() ? ZrLayoutItem::Horizontal : ZrLayoutItem::Vertical;
    const int otherAxis = ZrLayoutItem::Horizontal + ZrLayoutItem::Vertical - axis;
    hasHfw = false;
    empty = true;
    expanding = 0;
    geomArray.resize(list.size());
    long long hint = 0, minimum = 0, maximum = 0;
    Across other;
    ZrLayoutStruct *entry = geomArray.data();
    for (const ZrBoxLayoutItem *box : list) {
        const ZrLayoutItem &item = *box->item;
        const ZrSize itemHint = item.sizeHint(), itemMinimum = item.minimumSize(),
                     itemMaximum = item.maximumSize();
        const int expands = item.expandingDirections();
        *entry = ZrLayoutStruct();
        entry->stretch = box->stretch;
        hint += entry->sizeHint = along(itemHint);
        minimum += entry->minimumSize = along(itemMinimum);
        maximum += entry->maximumSize = along(itemMaximum);
        entry->expansive = expands & axis || box->stretch > 0;
        entry->empty = item.isEmpty();
        other.hint = std::max(other.hint, across(itemHint));
        other.minimum = std::max(other.minimum, across(itemMinimum));
        other.maximum.add(across(itemMaximum), expands & otherAxis, entry->empty);
        hasHfw = hasHfw || item.hasHeightForWidth();
        empty = empty && entry->empty;
        if (entry->expansive)
            expanding |= axis;
        ++entry;
    }
    const long long spaces = spreadSpacing(geomArray, spacing);
    if (other.maximum.expands())
        expanding |= otherAxis;
    if (expanding & axis || list.isEmpty())
        maximum = ZrLayoutItem::SizeLimit;
    sizeHint = sized(boundedSize(hint + spaces), other.hint);
    minSize = sized(boundedSize(minimum + spaces), other.minimum);
    maxSize = sized(boundedSize(maximum + spaces),
                    expanding & otherAxis ? ZrLayoutItem::SizeLimit : other.maximum.value(0))
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
    ZrBoxLayoutPrivate &data = box();
    if (data.dirty)
        data.setupGeom(spacing());
    return data;
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
    cleanBox();
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

bool ZrBoxLayout::isEmpty() const
{
    return cleanBox().empty;
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
