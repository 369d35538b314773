#include "live/videolayout.h"

#include "live/video.h"

#include <algorithm>

int roundHalfUp(float value)
{
    if (value >= 0)
        return int(value + 0.5f);
    const float floor = float(int(value - 1));
    return int(floor) + int(value - floor + 0.5f);
}

GridLines gridLines(int origin, int extent, int count, float scale, const VideoGridMetrics &metrics)
{
    const int displayOrigin = int(float(origin) / scale);
    const int displayExtent = int(float(extent) / scale);
    const float pitch = float(displayExtent) / float(count);
    const int halfSize = std::max(metrics.sizeAlign / 2, 1);
    const int position = std::max(metrics.positionAlign, 1);
    const int size = std::max(metrics.sizeAlign, 1);
    GridLines lines;
    for (int i = 0; i <= count; ++i) {
        int line = displayOrigin;
        if (i > 0)
            line = int(float(i) * pitch + float(displayOrigin)) / halfSize * halfSize;
        if (line % position != 0) {
            // Inner lines move towards the end, the last one stays inside the display.
            line = i < count ? (line + position - 1) / position * position : line / size * size;
        }
        lines.display.append(line);
        lines.framebuffer.append(roundHalfUp(float(line) * scale - float(origin)));
    }
    return lines;
}

void VideoLayout::addItem(Video *video, int row, int column, int span)
{
    Item item;
    item.video = video;
    item.row = std::uint8_t(row);
    item.column = std::uint8_t(column);
    item.span = std::uint8_t(span);
    items_.append(item);
}

void VideoLayout::setGeometry(const ZrRect &rect)
{
    geometry_ = rect;
    if (!items_.isEmpty())
        doLayout();
}

void VideoLayout::setMargins(int left, int top, int right, int bottom)
{
    margins_ = {left, top, right, bottom};
    if (!items_.isEmpty())
        doLayout();
}

void VideoLayout::gridSize(int &rows, int &columns) const
{
    rows = 1;
    columns = 1;
    for (const Item &item : items_) {
        if (!item.video->isVisible())
            continue;
        rows = std::max(rows, item.row + item.span);
        columns = std::max(columns, item.column + item.span);
    }
}

namespace
{

// The rectangle between the lines of a block of cells; its corners are inclusive.
ZrRect between(const ZrList<int> &x, const ZrList<int> &y, int row, int column, int span)
{
    return ZrRect::fromEdges(x.at(column), y.at(row), x.at(column + span) - 1,
                             y.at(row + span) - 1);
}

} // namespace

void VideoLayout::doLayout()
{
    const int x = geometry_.left() + margins_.left;
    const int y = geometry_.top() + margins_.top;
    const int width = geometry_.right() - margins_.right - x + 1;
    const int height = geometry_.bottom() - margins_.bottom - y + 1;
    const ZrSize &display = metrics_.displaySize;
    if (display.width() <= 0 || display.height() <= 0)
        return;
    int rows = 0;
    int columns = 0;
    gridSize(rows, columns);
    const float scaleX = float(metrics_.screenSize.width()) / float(display.width());
    const float scaleY = float(metrics_.screenSize.height()) / float(display.height());
    const GridLines across = gridLines(x, width, columns, scaleX, metrics_);
    const GridLines down = gridLines(y, height, rows, scaleY, metrics_);
    for (const Item &item : items_) {
        if (!item.video->isVisible())
            continue;
        item.video->setGeometry(
            between(across.framebuffer, down.framebuffer, item.row, item.column, item.span));
        item.video->setVideoRect(
            between(across.display, down.display, item.row, item.column, item.span));
    }
}

Video *VideoLayout::videoAt(const ZrPoint &point) const
{
    for (const Item &item : items_) {
        if (item.video->isVisible() && item.video->geometry().contains(point))
            return item.video;
    }
    return nullptr;
}

void VideoLayout::paint(const ZrRegion &region) const
{
    for (const Item &item : items_) {
        if (item.video->isVisible())
            item.video->paintEvent(region);
    }
}
