// A widget that shows video cells: finds the cell under the pointer and hands events to it.
#pragma once

#include "live/videolayout.h"

#include <zrwidget>

class VideoScreenBase : public ZrWidget
{
    ZR_OBJECT(VideoScreenBase, ZrWidget)
public:
    explicit VideoScreenBase(ZrWidget *parent = nullptr);

    VideoLayout &layout() { return layout_; }
    const VideoLayout &layout() const { return layout_; }

protected:
    // Behind the cell's own handler; the cell is null where there is none.
    virtual void videoPressed(int button, Video *video);
    virtual void videoMoved(int button, Video *video);
    virtual void videoReleased(int button, Video *video);
    virtual void videoDoubleClicked(int button, Video *video);
    virtual void updateStyle();

    void paintEvent(ZrPaintEvent *event) override;
    void mousePressEvent(ZrMouseEvent *event) override;
    void mouseMoveEvent(ZrMouseEvent *event) override;
    void mouseReleaseEvent(ZrMouseEvent *event) override;
    void mouseDoubleClickEvent(ZrMouseEvent *event) override;
    void wheelEvent(ZrWheelEvent *event) override;
    void resizeEvent(ZrResizeEvent *event) override;

private:
    Video *target(const ZrPoint &point) const;

    VideoLayout layout_;
    Video *pressedVideo_ = nullptr; // has the mouse until the release
    bool inDoubleClick_ = false;    // the release that ends a double click is no click of its own
};
