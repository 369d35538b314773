#include <zrlayoutitem>

#include <algorithm>
#include <zrlayout>
#include <zrwidget>

ZrLayoutItem::~ZrLayoutItem() = default;

namespace
{

struct Span {
    int start;
    int length;
};

Span placedOnAxis(int start, int room, int length, bool atStart, bool atEnd)
{
    length = std::min(length, room);
    if (atStart)
        return {start, length};
    return {start + (atEnd ? room - length : (room - length) / 2), length};
}

} // namespace

ZrRect ZrLayoutItem::placed(const ZrRect &cell, const ZrSize &size, int alignment)
{
    const Span across = placedOnAxis(cell.left(), cell.width(), size.width(),
                                     alignment & Zr::AlignLeft, alignment & Zr::AlignRight);
    const Span down = placedOnAxis(cell.top(), cell.height(), size.height(),
                                   alignment & Zr::AlignTop, alignment & Zr::AlignBottom);
    return ZrRect(across.start, down.start, across.length, down.length);
}

ZrSize ZrLayoutItem::unlessAligned(const ZrSize &maximum) const
{
    return ZrSize(alignment_ & Zr::AlignHorizontalMask ? SizeLimit : maximum.width(),
                  alignment_ & Zr::AlignVerticalMask ? SizeLimit : maximum.height());
}

int ZrLayoutItem::unlessAligned(int expandingDirections) const
{
    return expandingDirections & ~((alignment_ & Zr::AlignHorizontalMask ? Horizontal : 0) |
                                   (alignment_ & Zr::AlignVerticalMask ? Vertical : 0));
}

// --- spacers ---

ZrSize ZrSpacerItem::minimumSize() const
{
    return ZrSize(sizePolicy_.horizontal() & ZrSizePolicy::Shrink ? 0 : width_,
                  sizePolicy_.vertical() & ZrSizePolicy::Shrink ? 0 : height_);
}

ZrSize ZrSpacerItem::maximumSize() const
{
    return ZrSize(sizePolicy_.horizontal() & ZrSizePolicy::Grow ? SizeLimit : width_,
                  sizePolicy_.vertical() & ZrSizePolicy::Grow ? SizeLimit : height_);
}

int ZrSpacerItem::expandingDirections() const
{
    return (sizePolicy_.horizontal() & ZrSizePolicy::Expand ? Horizontal : 0) |
           (sizePolicy_.vertical() & ZrSizePolicy::Expand ? Vertical : 0);
}

// --- widgets ---

namespace
{

ZrSize withoutIgnored(const ZrSize &size, ZrSizePolicy policy)
{
    return ZrSize(policy.horizontal() == ZrSizePolicy::Ignored ? 0 : size.width(),
                  policy.vertical() == ZrSizePolicy::Ignored ? 0 : size.height());
}

} // namespace

bool ZrWidgetItem::isEmpty() const
{
    return !widget_ || widget_->isHidden() || widget_->isWindow();
}

ZrSize ZrWidgetItem::marginsAround() const
{
    if (widget_->testAttribute(ZrWidget::IgnoreLayoutMargins))
        return ZrSize();
    const ZrWidget::Margins &margins = widget_->layoutMargins();
    return ZrSize(margins.left + margins.right, margins.top + margins.bottom);
}

namespace
{

ZrSize cutToItem(const ZrSize &size)
{
    constexpr int Limit = ZrLayoutItem::SizeLimit;
    return size.expandedTo(ZrSize(0, 0)).boundedTo(ZrSize(Limit, Limit));
}

} // namespace

// Each of the widget's hints is asked for once: it may have to measure its text for one.
ZrWidgetItem::Sizes ZrWidgetItem::askWidget() const
{
    if (isEmpty())
        return Sizes();
    const ZrSizePolicy policy = widget_->sizePolicy();
    const ZrSize around = marginsAround();
    const ZrSize most = widget_->maximumSize(), own = widget_->minimumSize();
    const ZrSize hint = widget_->sizeHint().expandedTo(ZrSize(0, 0));
    // A widget that may not shrink needs its hint.
    ZrSize least = widget_->minimumSizeHint().expandedTo(ZrSize(0, 0));
    if (!(policy.horizontal() & ZrSizePolicy::Shrink))
        least.setWidth(std::max(least.width(), hint.width()));
    if (!(policy.vertical() & ZrSizePolicy::Shrink))
        least.setHeight(std::max(least.height(), hint.height()));
    least = withoutIgnored(least, policy);
    const ZrSize minimum(widget_->hasMinimumWidth() ? own.width() : least.width(),
                         widget_->hasMinimumHeight() ? own.height() : least.height());

    Sizes sizes;
    sizes.hint = withoutIgnored(cutToItem(hint.boundedTo(most).expandedTo(own) + around), policy);
    sizes.minimum = cutToItem(minimum.boundedTo(most) + around);
    const ZrSize fixed = sizes.hint.expandedTo(sizes.minimum);
    ZrSize maximum = most + around;
    if (!(policy.horizontal() & ZrSizePolicy::Grow))
        maximum.setWidth(std::min(maximum.width(), fixed.width()));
    if (!(policy.vertical() & ZrSizePolicy::Grow))
        maximum.setHeight(std::min(maximum.height(), fixed.height()));
    sizes.maximum = unlessAligned(cutToItem(maximum));
    return sizes;
}

int ZrWidgetItem::expandingDirections() const
{
    if (isEmpty())
        return 0;
    const ZrSizePolicy policy = widget_->sizePolicy();
    const int inner = widget_->layout() ? widget_->layout()->expandingDirections() : 0;
    int directions = 0;
    if (policy.horizontal() & ZrSizePolicy::Expand ||
        (policy.horizontal() & ZrSizePolicy::Grow && inner & Horizontal))
        directions |= Horizontal;
    if (policy.vertical() & ZrSizePolicy::Expand ||
        (policy.vertical() & ZrSizePolicy::Grow && inner & Vertical))
        directions |= Vertical;
    return unlessAligned(directions);
}

bool ZrWidgetItem::hasHeightForWidth() const
{
    return !isEmpty() && widget_->hasHeightForWidth();
}

int ZrWidgetItem::heightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    const ZrSize margins = marginsAround();
    const int height = widget_->heightForWidth(width + margins.width());
    const int bounded = std::max(std::min(height, widget_->maximumSize().height()),
                                 widget_->minimumSize().height());
    return cutToItem(ZrSize(0, bounded + margins.height())).height();
}

ZrRect ZrWidgetItem::geometry() const
{
    return widget_ ? widget_->geometry() : ZrRect();
}

void ZrWidgetItem::setGeometry(const ZrRect &rect)
{
    if (isEmpty())
        return;
    ZrRect cell = rect;
    if (!widget_->testAttribute(ZrWidget::IgnoreLayoutMargins)) {
        const ZrWidget::Margins &margins = widget_->layoutMargins();
        cell = rect.adjusted(-margins.left, -margins.top, margins.right, margins.bottom);
    }
    ZrSize size = cell.size().boundedTo(maximumSize());
    if (alignment() == 0 && size == cell.size()) {
        widget_->setGeometry(cell);
        return;
    }
    if (alignment() & Zr::AlignHorizontalMask)
        size.setWidth(std::min(size.width(), sizeHint().width()));
    if (alignment() & Zr::AlignVerticalMask) {
        const int wanted = hasHeightForWidth() ? heightForWidth(size.width()) : sizeHint().height();
        size.setHeight(std::min(size.height(), wanted));
    }
    widget_->setGeometry(placed(cell, size, alignment()));
}

// --- widgets whose answers are kept ---

ZrWidgetItemV2::ZrWidgetItemV2(ZrWidget *widget) : ZrWidgetItem(widget)
{
    if (widget)
        widget->itemCache_ = this;
}

ZrWidgetItemV2::~ZrWidgetItemV2()
{
    if (widget() && widget()->itemCache_ == this)
        widget()->itemCache_ = nullptr;
}

void ZrWidgetItemV2::widgetDied()
{
    forgetWidget();
}

const ZrWidgetItem::Sizes &ZrWidgetItemV2::sizes() const
{
    if (sizes_.hint.width() == Unknown) {
        sizes_ = askWidget();
        heightCount_ = 0;
    }
    return sizes_;
}

ZrSize ZrWidgetItemV2::sizeHint() const
{
    return isEmpty() ? ZrSize() : sizes().hint;
}

ZrSize ZrWidgetItemV2::minimumSize() const
{
    return isEmpty() ? ZrSize() : sizes().minimum;
}

ZrSize ZrWidgetItemV2::maximumSize() const
{
    return isEmpty() ? ZrSize() : sizes().maximum;
}

int ZrWidgetItemV2::heightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    sizes(); // forgets the heights of before
    for (int i = 0; i < std::min(heightCount_, HeightsKept); ++i) {
        if (heights_[i].width == width)
            return heights_[i].height;
    }
    const int height = ZrWidgetItem::heightForWidth(width);
    heights_[heightCount_ % HeightsKept] = {width, height};
    ++heightCount_;
    return height;
}
