#include <zrlayout>

#include "widgets/layout/zrlayoutprivate.h"

#include <cstdio>
#include <zrapplication>
#include <zrevent>
#include <zrwidget>

ZrLayout::ZrLayout(std::unique_ptr<ZrLayoutPrivate> data) : private_(std::move(data)) {}

ZrLayout::~ZrLayout()
{
    if (ZrLayout *around = holder()) {
        for (int i = around->count() - 1; i >= 0; --i) {
            if (around->itemAt(i) == this)
                around->takeAt(i);
        }
    } else if (ZrWidget *owner = parentWidget()) {
        owner->layout_ = nullptr;
    }
    private_.reset(); // the items, while this is still a layout
}

// --- items ---

int ZrLayout::indexOf(const ZrWidget *widget) const
{
    for (int i = 0; i < count(); ++i) {
        if (itemAt(i)->widget() == widget)
            return i;
    }
    return -1;
}

bool ZrLayout::isEmpty() const
{
    for (int i = 0; i < count(); ++i) {
        if (!itemAt(i)->isEmpty())
            return false;
    }
    return true;
}

ZrWidget *ZrLayout::parentWidget() const
{
    const ZrLayout *top = this;
    while (top->holder())
        top = top->holder();
    ZrObject *owner = top->parent();
    return owner && owner->isWidgetType() ? static_cast<ZrWidget *>(owner) : nullptr;
}

bool ZrLayout::isPlaceable(const ZrWidget *widget)
{
    if (!widget)
        std::puts("Cannot add null widge.");
    return widget != nullptr;
}

void ZrLayout::addChildWidget(ZrWidget *widget)
{
    if (widget->testAttribute(ZrWidget::PlacedByLayout)) {
        const ZrWidget *parent = widget->parentWidget();
        if (parent && parent->layout_)
            parent->layout_->removeWidget(widget);
        else if (widget->itemCache_ && widget->itemCache_->holder())
            widget->itemCache_->holder()->removeWidget(widget);
    }
    ZrWidget *owner = parentWidget();
    if (owner && widget->parentWidget() != owner)
        widget->setParent(owner);
    widget->setAttribute(ZrWidget::PlacedByLayout);
}

bool ZrLayout::addChildLayout(ZrLayout *layout)
{
    if (layout->parent() || layout->holder() || layout == this) {
        std::puts("ZrLayout::addLayout: the layout already has a parent");
        return false;
    }
    layout->setParent(this);
    return true;
}

bool ZrLayout::adopt(ZrLayoutItem *item)
{
    if (!item)
        return false;
    if (ZrLayout *inner = item->layout()) {
        if (!addChildLayout(inner))
            return false;
    } else if (item->holder_) {
        return false;
    } else if (item->widget()) {
        addChildWidget(item->widget());
    }
    item->holder_ = this;
    if (ZrWidget *owner = parentWidget(); owner && item->layout())
        item->layout()->reparentWidgets(owner);
    return true;
}

ZrLayoutItem *ZrLayout::release(ZrLayoutItem *item)
{
    item->holder_ = nullptr;
    if (ZrLayout *inner = item->layout())
        inner->setParent(nullptr);
    invalidate();
    return item;
}

bool ZrLayout::removeWidget(const ZrWidget *widget)
{
    for (int i = 0; i < count(); ++i) {
        ZrLayoutItem *item = itemAt(i);
        if (item->widget() == widget) {
            item->widget()->setAttribute(ZrWidget::PlacedByLayout, false);
            delete takeAt(i);
            return true;
        }
        if (item->layout() && item->layout()->removeWidget(widget))
            return true;
    }
    return false;
}

void ZrLayout::becomeLayoutOf(ZrWidget *owner)
{
    setParent(owner);
    reparentWidgets(owner);
}

void ZrLayout::reparentWidgets(ZrWidget *owner)
{
    for (int i = 0; i < count(); ++i) {
        ZrLayoutItem *item = itemAt(i);
        if (ZrLayout *inner = item->layout())
            inner->reparentWidgets(owner);
        else if (item->widget() && item->widget()->parentWidget() != owner)
            item->widget()->setParent(owner);
    }
    invalidate(); // widgets without a parent do not tell their layout of changes
}

// --- spacing and margins ---

void ZrLayout::setSpacing(int spacing)
{
    if (spacing == spacing_)
        return;
    spacing_ = spacing;
    invalidateInheritors();
}

void ZrLayout::invalidateInheritors()
{
    for (int i = 0; i < count(); ++i) {
        ZrLayout *inner = itemAt(i)->layout();
        if (inner && inner->spacing_ < 0)
            inner->invalidateInheritors();
    }
    invalidate();
}

int ZrLayout::spacing() const
{
    if (spacing_ >= 0)
        return spacing_;
    return holder() ? holder()->spacing() : DefaultSpacing;
}

void ZrLayout::setContentsMargins(int left, int top, int right, int bottom)
{
    left_ = left;
    top_ = top;
    right_ = right;
    bottom_ = bottom;
    invalidate();
}

ZrSize ZrLayout::marginSize() const
{
    return ZrSize(left_ + right_, top_ + bottom_);
}

ZrSize ZrLayout::withMargins(const ZrSize &size) const
{
    const ZrSize sum = size + marginSize();
    return ZrSize(boundedSize(sum.width()), boundedSize(sum.height()));
}

ZrRect ZrLayout::beginPlacement(const ZrRect &rect)
{
    rect_ = rect;
    isPlaced_ = true;
    if (alignment() == 0)
        return rect.adjusted(left_, top_, -right_, -bottom_);
    ZrSize size = rect.size();
    if (alignment() & Zr::AlignHorizontalMask)
        size.setWidth(std::min(size.width(), sizeHint().width()));
    if (alignment() & Zr::AlignVerticalMask)
        size.setHeight(hasHeightForWidth() ? heightForWidth(size.width()) : sizeHint().height());
    return placed(rect, size, alignment()).adjusted(left_, top_, -right_, -bottom_);
}

// --- activation ---

void ZrLayout::invalidate()
{
    isPlaced_ = false;
    if (holder())
        holder()->invalidate();
    else if (ZrWidget *owner = parentWidget())
        requestActivation(owner);
}

void ZrLayout::requestActivation(ZrWidget *owner)
{
    isActivated_ = false;
    if (!isRequested_) {
        isRequested_ = true;
        ZrApplication::postEvent(owner, new ZrEvent(ZrEvent::LayoutRequest));
    }
    // What the owner needs has changed too, for the layout that places it.
    if (!owner->isWindow())
        owner->updateGeometry();
}

bool ZrLayout::activate()
{
    if (holder())
        return holder()->activate();
    ZrWidget *owner = parentWidget();
    if (!owner)
        return false;
    wasActivated_ = isActivated_ = true;
    isRequested_ = false;
    if (owner->isWindow())
        owner->takeMinimumFromLayout(totalMinimumSize());
    // An owner that never had a size gets its hint when it is shown, and then the items their
    // places.
    if (!owner->hasNoSizeYet())
        setGeometry(ownerRect(owner));
    return true;
}

void ZrLayout::widgetEvent(const ZrEvent &event)
{
    ZrWidget *owner = parentWidget();
    if (event.type() == ZrEvent::LayoutRequest) {
        isRequested_ = false;
        if (wasActivated_ && owner && owner->isVisible())
            activate();
    } else if (event.type() == ZrEvent::Resize && wasActivated_ && owner) {
        if (isActivated_)
            setGeometry(ownerRect(owner));
        else
            activate();
    }
}

ZrRect ZrLayout::ownerRect(const ZrWidget *owner) const
{
    return owner->testAttribute(ZrWidget::LayoutOnWholeRect) ? owner->rect()
                                                             : owner->contentsRect();
}

ZrSize ZrLayout::ownerMargins() const
{
    const ZrWidget *owner = parentWidget();
    if (!owner || owner->testAttribute(ZrWidget::LayoutOnWholeRect))
        return ZrSize();
    const ZrWidget::Margins &margins = owner->contentsMargins();
    return ZrSize(margins.left + margins.right, margins.top + margins.bottom);
}

ZrSize ZrLayout::totalSizeHint() const
{
    ZrSize hint = sizeHint();
    if (hasHeightForWidth())
        hint.setHeight(heightForWidth(hint.width()));
    return hint + ownerMargins();
}

ZrSize ZrLayout::totalMinimumSize() const
{
    return minimumSize() + ownerMargins();
}

int ZrLayout::totalHeightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    const ZrSize margins = ownerMargins();
    return heightForWidth(width - margins.width()) + margins.height();
}
