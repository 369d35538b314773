// A cell of a video screen: an object with a rectangle of its own and no widget, so that up to 64
// of them stay off the widget tree. The screen hands it its mouse, paint, show and hide events.
#pragma once

#include <zrobject>
#include <zrrect>
#include <zrregion>
#include <zrwidgetevent>

class VideoScreenBase;

class Video : public ZrObject
{
    ZR_OBJECT(Video, ZrObject)
public:
    explicit Video(VideoScreenBase *screen);

    // Pixels of the screen widget.
    const ZrRect &geometry() const { return geometry_; }
    void setGeometry(const ZrRect &rect);
    const ZrRect &oldGeometry() const { return oldGeometry_; }
    // Pixels of the display output: where App puts the picture.
    const ZrRect &videoRect() const { return videoRect_; }
    void setVideoRect(const ZrRect &rect) { videoRect_ = rect; }
    bool isVisible() const { return visible_; }
    void setVisible(bool visible);
    bool event(ZrEvent *event) override;

    // Positions are relative to the cell.
    virtual int indexInScreen() const { return -1; }
    virtual void mousePressEvent(ZrMouseEvent *) {}
    virtual void mouseMoveEvent(ZrMouseEvent *) {}
    virtual void mouseReleaseEvent(ZrMouseEvent *) {}
    virtual void wheelEvent(ZrWheelEvent *) {}
    virtual void keyPressEvent(ZrKeyEvent *) {}
    virtual void resizeEvent(ZrResizeEvent *) {}
    virtual void hideEvent() {}
    virtual void showEvent() {}
    virtual void dropEvent(ZrEvent *) {}
    // The region in coordinates of the screen widget.
    virtual void paintEvent(const ZrRegion &) {}

    // In coordinates of the cell.
    void update(const ZrRegion &region);
    void update(const ZrRect &rect) { update(ZrRegion(rect)); }

protected:
    VideoScreenBase *screenBase() const { return screen_; }

private:
    ZrRect geometry_ = ZrRect::fromEdges(0, 0, -1, -1);
    ZrRect videoRect_ = ZrRect::fromEdges(0, 0, -1, -1);
    ZrRect oldGeometry_ = ZrRect::fromEdges(0, 0, -1, -1);
    bool visible_ = true;
    VideoScreenBase *screen_;
};
