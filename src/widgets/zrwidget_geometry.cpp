// Place, size and limits.
#include <zrwidget>

#include <algorithm>
#include <cstdio>
#include <zrapplication>
#include <zrlayout>

void ZrWidget::setGeometry(const ZrRect &geometry)
{
    if (geometry == geometry_)
        return;
    const ZrSize before = size();
    update();
    const ZrRect old = geometry_;
    geometry_ = geometry;
    width_ = geometry.right() - geometry.left() + 1;
    height_ = geometry.bottom() - geometry.top() + 1;
    update();
    if (width_ != before.width() || height_ != before.height() || old.right() < old.left()) {
        ZrResizeEvent resized(size(), before);
        ZrApplication::notify(this, &resized);
    }
}

void ZrWidget::move(const ZrPoint &topLeft)
{
    setGeometry(ZrRect::fromEdges(topLeft.x(), topLeft.y(), topLeft.x() + width_ - 1,
                                  topLeft.y() + height_ - 1));
}

void ZrWidget::resize(const ZrSize &size)
{
    setAttribute(ResizedByRequest);
    setGeometry(ZrRect::fromEdges(geometry_.left(), geometry_.top(),
                                  geometry_.left() + size.width() - 1,
                                  geometry_.top() + size.height() - 1));
}

void ZrWidget::adjustSize()
{
    const ZrSize hint = sizeHint();
    if (hint.width() >= 0 && hint.height() >= 0)
        resize(hint);
}

namespace
{

// Cuts what is too large and what is negative, with a line for each.
void limit(int &width, int &height, const char *impossible)
{
    if (width > ZrWidget::MaximumSize || height > ZrWidget::MaximumSize) {
        std::puts("Warning: exceed the max size.");
        width = std::min(width, ZrWidget::MaximumSize);
        height = std::min(height, ZrWidget::MaximumSize);
    }
    if (width < 0 || height < 0) {
        std::puts(impossible);
        width = std::max(width, 0);
        height = std::max(height, 0);
    }
}

} // namespace

void ZrWidget::setMinimumSize(int width, int height)
{
    if (isWindow() && ZrApplication::instance() && ZrApplication::instance()->display()) {
        const ZrRect &desktop = ZrApplication::instance()->desktopRect();
        width = std::min(width, desktop.width());
        height = std::min(height, desktop.height());
    }
    limit(width, height, "Warning: setMinimumSize_helper: the size is not possible.");
    if (width == minWidth_ && height == minHeight_)
        return;
    minWidth_ = width;
    minHeight_ = height;
    setFlag(MinimumWidthSet, width != 0);
    setFlag(MinimumHeightSet, height != 0);
    const bool resizedByRequest = testAttribute(ResizedByRequest);
    if (width_ < width || height_ < height)
        resize(ZrSize(std::max(width_, width), std::max(height_, height)));
    setAttribute(ResizedByRequest, resizedByRequest);
    updateGeometry();
}

void ZrWidget::setMaximumSize(int width, int height)
{
    limit(width, height, "Warning: setMaximumSize_helper: the size is not possible.");
    if (width == maxWidth_ && height == maxHeight_)
        return;
    maxWidth_ = width;
    maxHeight_ = height;
    setFlag(MaximumWidthSet, width != MaximumSize);
    setFlag(MaximumHeightSet, height != MaximumSize);
    const bool resizedByRequest = testAttribute(ResizedByRequest);
    if (width_ > width || height_ > height)
        resize(ZrSize(std::min(width_, width), std::min(height_, height)));
    setAttribute(ResizedByRequest, resizedByRequest);
    updateGeometry();
}

// The other side keeps its value and whether it was set explicitly.

void ZrWidget::setMinimumWidth(int width)
{
    const bool explicitHeight = widgetFlags_ & MinimumHeightSet;
    setMinimumSize(width, minHeight_);
    setFlag(MinimumHeightSet, explicitHeight);
}

void ZrWidget::setMinimumHeight(int height)
{
    const bool explicitWidth = widgetFlags_ & MinimumWidthSet;
    setMinimumSize(minWidth_, height);
    setFlag(MinimumWidthSet, explicitWidth);
}

void ZrWidget::setMaximumWidth(int width)
{
    const bool explicitHeight = widgetFlags_ & MaximumHeightSet;
    setMaximumSize(width, maxHeight_);
    setFlag(MaximumHeightSet, explicitHeight);
}

void ZrWidget::setMaximumHeight(int height)
{
    const bool explicitWidth = widgetFlags_ & MaximumWidthSet;
    setMaximumSize(maxWidth_, height);
    setFlag(MaximumWidthSet, explicitWidth);
}

void ZrWidget::setFixedSize(int width, int height)
{
    setMinimumSize(width, height);
    setMaximumSize(width, height);
    if (width != MaximumSize || height != MaximumSize)
        resize(ZrSize(width, height));
}

void ZrWidget::setFixedWidth(int width)
{
    setMinimumWidth(width);
    setMaximumWidth(width);
}

void ZrWidget::setFixedHeight(int height)
{
    setMinimumHeight(height);
    setMaximumHeight(height);
}

void ZrWidget::setContentsMargins(int left, int top, int right, int bottom)
{
    const Margins margins{left, top, right, bottom};
    if (margins == contentsMargins_)
        return;
    contentsMargins_ = margins;
    if (layout_)
        layout_->invalidate();
    update();
}

ZrRect ZrWidget::contentsRect() const
{
    return ZrRect::fromEdges(contentsMargins_.left, contentsMargins_.top,
                             width_ - contentsMargins_.right, height_ - contentsMargins_.bottom);
}

ZrPoint ZrWidget::mapToWindow(const ZrPoint &point) const
{
    ZrPoint mapped = point;
    for (const ZrWidget *widget = this; widget->parentWidget(); widget = widget->parentWidget())
        mapped = ZrPoint(mapped.x() + widget->pos().x(), mapped.y() + widget->pos().y());
    return mapped;
}

ZrPoint ZrWidget::mapToGlobal(const ZrPoint &point) const
{
    const ZrPoint inWindow = mapToWindow(point);
    const ZrPoint corner = window()->pos();
    return ZrPoint(inWindow.x() + corner.x(), inWindow.y() + corner.y());
}

ZrPoint ZrWidget::mapFromGlobal(const ZrPoint &point) const
{
    const ZrPoint origin = mapToGlobal(ZrPoint(0, 0));
    return ZrPoint(point.x() - origin.x(), point.y() - origin.y());
}
