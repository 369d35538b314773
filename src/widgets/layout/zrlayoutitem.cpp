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

ZrSize ZrWidgetItem::cutToItem(const ZrSize &size) const
{
    return size.expandedTo(ZrSize(0, 0)).boundedTo(ZrSize(SizeLimit, SizeLimit));
}

ZrSize ZrWidgetItem::sizeHint() const
{
    if (isEmpty())
        return ZrSize();
    const ZrSize bounded = widget_->sizeHint()
                               .expandedTo(ZrSize(0, 0))
                               .boundedTo(widget_->maximumSize())
                               .expandedTo(widget_->minimumSize());
    return withoutIgnored(cutToItem(bounded + marginsAround()), widget_->sizePolicy());
}

ZrSize ZrWidgetItem::minimumSize() const
{
    if (isEmpty())
        return ZrSize();
    // A widget that may not shrink needs its hint.
    const ZrSizePolicy policy = widget_->sizePolicy();
    const ZrSize least = widget_->minimumSizeHint();
    const ZrSize hint = widget_->sizeHint();
    const bool shrinksAcross = policy.horizontal() & ZrSizePolicy::Shrink;
    const bool shrinksDown = policy.vertical() & ZrSizePolicy::Shrink;
    const int width = shrinksAcross ? least.width() : std::max(least.width(), hint.width());
    const int height = shrinksDown ? least.height() : std::max(least.height(), hint.height());
    const ZrSize wanted = withoutIgnored(ZrSize(width, height), policy);
    const ZrSize own = widget_->minimumSize();
    const ZrSize minimum(widget_->hasMinimumWidth() ? own.width() : wanted.width(),
                         widget_->hasMinimumHeight() ? own.height() : wanted.height());
    return cutToItem(minimum.expandedTo(ZrSize(0, 0)).boundedTo(widget_->maximumSize()) +
                     marginsAround());
}

ZrSize ZrWidgetItem::maximumSize() const
{
    if (isEmpty())
        return ZrSize();
    const ZrSizePolicy policy = widget_->sizePolicy();
    ZrSize maximum = widget_->maximumSize() + marginsAround();
    const ZrSize fixed = sizeHint().expandedTo(minimumSize());
    if (!(policy.horizontal() & ZrSizePolicy::Grow))
        maximum.setWidth(std::min(maximum.width(), fixed.width()));
    if (!(policy.vertical() & ZrSizePolicy::Grow))
        maximum.setHeight(std::min(maximum.height(), fixed.height()));
    return unlessAligned(cutToItem(maximum));
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

void ZrWidgetItemV2::askWidget() const
{
    if (sizeHint_.width() != Unknown)
        return;
    heightCount_ = 0;
    minimumSize_ = ZrWidgetItem::minimumSize();
    sizeHint_ = ZrWidgetItem::sizeHint();
    maximumSize_ = ZrWidgetItem::maximumSize(); // from the two above
}

ZrSize ZrWidgetItemV2::sizeHint() const
{
    if (isEmpty())
        return ZrSize();
    askWidget();
    return sizeHint_;
}

ZrSize ZrWidgetItemV2::minimumSize() const
{
    if (isEmpty())
        return ZrSize();
    askWidget();
    return minimumSize_;
}

ZrSize ZrWidgetItemV2::maximumSize() const
{
    if (isEmpty())
        return ZrSize();
    askWidget();
    return maximumSize_;
}

int ZrWidgetItemV2::heightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    askWidget();
    for (int i = 0; i < std::min(heightCount_, HeightsKept); ++i) {
        if (heights_[i].width == width)
            return heights_[i].height;
    }
    const int height = ZrWidgetItem::heightForWidth(width);
    heights_[heightCount_ % HeightsKept] = {width, height};
    ++heightCount_;
    return height;
}
