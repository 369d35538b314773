// A widget towards its own layout and towards the one that places it.
#include <zrwidget>

#include <cstdio>
#include <zrapplication>
#include <zrlayout>

bool ZrWidget::Margins::operator==(const Margins &other) const
{
    return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
}

ZrSize ZrWidget::sizeHint() const
{
    return layout_ ? layout_->totalSizeHint() : ZrSize(-1, -1);
}

ZrSize ZrWidget::minimumSizeHint() const
{
    return layout_ ? layout_->totalMinimumSize() : ZrSize(-1, -1);
}

bool ZrWidget::hasHeightForWidth() const
{
    return layout_ ? layout_->hasHeightForWidth() : sizePolicy_.hasHeightForWidth();
}

int ZrWidget::heightForWidth(int width) const
{
    return layout_ ? layout_->totalHeightForWidth(width) : -1;
}

void ZrWidget::setSizePolicy(ZrSizePolicy policy)
{
    if (policy == sizePolicy_)
        return;
    sizePolicy_ = policy;
    updateGeometry();
}

void ZrWidget::setLayoutMargins(int left, int top, int right, int bottom)
{
    const Margins margins{left, top, right, bottom};
    if (margins == layoutMargins_)
        return;
    layoutMargins_ = margins;
    updateGeometry();
}

void ZrWidget::updateGeometry(bool force)
{
    if (itemCache_)
        itemCache_->invalidate();
    if (!force && maxWidth_ == minWidth_ && maxHeight_ == minHeight_)
        return;
    if (!isWindow() && !isHidden())
        askForLayout(parentWidget());
}

// The parent's children have to be placed anew.
void ZrWidget::askForLayout(ZrWidget *parent)
{
    if (!parent)
        return;
    if (itemCache_ && itemCache_->holder())
        itemCache_->holder()->invalidate(); // and so up to the parent's own layout
    else if (parent->layout_)
        parent->layout_->invalidate();
    else if (parent->isVisible())
        ZrApplication::postEvent(parent, new ZrEvent(ZrEvent::LayoutRequest));
}

void ZrWidget::setLayout(ZrLayout *layout)
{
    if (!layout) {
        std::puts("ZrWidget::setLayout: Cannot set layout to 0");
        return;
    }
    if (layout_) {
        if (layout_ != layout)
            std::puts("ZrWidget::setLayout: Attempting to set ZrLayout, which already has a "
                      "layout");
        return;
    }
    if (ZrObject *before = layout->parent(); before && before != this) {
        if (!before->isWidgetType()) {
            std::puts("ZrWidget::setLayout: Attempting to set ZrLayout, when the ZrLayout already "
                      "has a parent");
            return;
        }
        static_cast<ZrWidget *>(before)->layout_ = nullptr;
    }
    layout_ = layout;
    layout->becomeLayoutOf(this);
    // Only a layout that was active once follows requests, and nobody will show this widget again.
    if (isVisible())
        layout->activate();
}

void ZrWidget::offerToLayouts(const ZrEvent &event)
{
    if (event.type() != ZrEvent::Resize && event.type() != ZrEvent::LayoutRequest)
        return; // layouts follow no other
    if (layout_)
        layout_->widgetEvent(event);
    else
        forEachChildWidget([&event](ZrWidget &child) { child.offerToLayouts(event); });
}

void ZrWidget::activateLayouts()
{
    if (layout_)
        layout_->activate();
    forEachChildWidget([](ZrWidget &child) { child.activateLayouts(); });
}

void ZrWidget::takeMinimumFromLayout(const ZrSize &needed)
{
    const int width = hasMinimumWidth() ? minWidth_ : needed.width();
    const int height = hasMinimumHeight() ? minHeight_ : needed.height();
    if (hasNoSizeYet()) {
        minWidth_ = width;
        minHeight_ = height;
        return;
    }
    // What the layout needs is not what somebody asked for.
    const std::uint16_t flags = widgetFlags_;
    setMinimumSize(width, height);
    setFlag(MinimumWidthSet, flags & MinimumWidthSet);
    setFlag(MinimumHeightSet, flags & MinimumHeightSet);
}

void ZrWidget::leaveLayout()
{
    if (itemCache_ && itemCache_->holder())
        itemCache_->holder()->removeWidget(this);
    if (itemCache_) // of somebody who keeps the item outside of a layout
        itemCache_->widgetDied();
    itemCache_ = nullptr;
}
