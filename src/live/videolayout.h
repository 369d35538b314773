// Places the cells of one screen: from a grid and a rectangle to pixel rectangles, one in
// framebuffer pixels, where overlays are drawn, and one in pixels of the display output, where App
// puts the picture. Both come from the same grid lines, so holes and pictures agree.
#pragma once

#include <zrlist>
#include <zrobject>
#include <zrpoint>
#include <zrrect>
#include <zrregion>
#include <zrsize>

class Video;

// Nearest integer, halves upward, for negative values too.
int roundHalfUp(float value);

// What the snapping depends on: the display output, the framebuffer, and what the video hardware
// demands of a picture's position and size.
struct VideoGridMetrics {
    ZrSize displaySize;
    ZrSize screenSize;
    int positionAlign = 1;
    int sizeAlign = 1;
};

// The lines between the cells along one axis.
struct GridLines {
    ZrList<int> display;     // absolute, in display pixels
    ZrList<int> framebuffer; // relative to the grid's origin, in framebuffer pixels
};
// `origin` and `extent` in framebuffer pixels, `scale` framebuffer pixels for each display pixel.
GridLines gridLines(int origin, int extent, int count, float scale,
                    const VideoGridMetrics &metrics);

class VideoLayout : public ZrObject
{
    ZR_OBJECT(VideoLayout, ZrObject)
public:
    explicit VideoLayout(ZrObject *parent = nullptr) : ZrObject(parent) {}

    void clear() { items_.clear(); }
    void addItem(Video *video, int row, int column, int span);
    void setMetrics(const VideoGridMetrics &metrics) { metrics_ = metrics; }
    const VideoGridMetrics &metrics() const { return metrics_; }
    // Both lay out at once unless there is nothing to lay out.
    void setGeometry(const ZrRect &rect);
    void setMargins(int left, int top, int right, int bottom);
    const ZrRect &geometry() const { return geometry_; }
    void doLayout();
    // One more than the last row and column that a visible item reaches; 1 and 1 without items.
    void gridSize(int &rows, int &columns) const;
    // The first visible video at the point, or null.
    Video *videoAt(const ZrPoint &point) const;
    void paint(const ZrRegion &region) const;

private:
    struct Item {
        Video *video = nullptr; // not owned
        std::uint8_t row = 0;
        std::uint8_t column = 0;
        std::uint8_t span = 1;
    };

    ZrList<Item> items_;
    ZrRect geometry_ = ZrRect::fromEdges(0, 0, -1, -1);
    struct {
        int left = 0, top = 0, right = 0, bottom = 0;
    } margins_;
    VideoGridMetrics metrics_;
};
