#include "live/videoscreenbase.h"

#include "live/video.h"

VideoScreenBase::VideoScreenBase(ZrWidget *parent) : ZrWidget(parent) {}

void VideoScreenBase::videoPressed(int, Video *) {}
void VideoScreenBase::videoMoved(int, Video *) {}
void VideoScreenBase::videoReleased(int, Video *) {}
void VideoScreenBase::videoDoubleClicked(int, Video *) {}
void VideoScreenBase::updateStyle() {}

namespace
{

// The event as the cell sees it, in its own coordinates.
ZrMouseEvent relativeTo(const Video &video, const ZrMouseEvent &event)
{
    const ZrPoint at(event.position().x() - video.geometry().left(),
                     event.position().y() - video.geometry().top());
    return ZrMouseEvent(event.type(), at, event.globalPosition(), event.button(), event.buttons());
}

} // namespace

void VideoScreenBase::paintEvent(ZrPaintEvent *event)
{
    layout_.paint(event->region());
}

Video *VideoScreenBase::target(const ZrPoint &point) const
{
    return pressedVideo_ ? pressedVideo_ : layout_.videoAt(point);
}

void VideoScreenBase::mousePressEvent(ZrMouseEvent *event)
{
    event->accept();
    pressedVideo_ = layout_.videoAt(event->position());
    if (pressedVideo_) {
        ZrMouseEvent inCell = relativeTo(*pressedVideo_, *event);
        pressedVideo_->mousePressEvent(&inCell);
    }
    videoPressed(event->button(), pressedVideo_);
}

void VideoScreenBase::mouseMoveEvent(ZrMouseEvent *event)
{
    Video *video = target(event->position());
    if (video) {
        ZrMouseEvent inCell = relativeTo(*video, *event);
        video->mouseMoveEvent(&inCell);
    }
    videoMoved(event->button(), video);
}

void VideoScreenBase::mouseReleaseEvent(ZrMouseEvent *event)
{
    event->accept();
    if (inDoubleClick_) {
        inDoubleClick_ = false;
        return;
    }
    Video *video = target(event->position());
    pressedVideo_ = nullptr;
    if (video) {
        ZrMouseEvent inCell = relativeTo(*video, *event);
        video->mouseReleaseEvent(&inCell);
    }
    videoReleased(event->button(), video);
}

void VideoScreenBase::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    event->accept();
    inDoubleClick_ = true;
    videoDoubleClicked(event->button(), layout_.videoAt(event->position()));
}

void VideoScreenBase::wheelEvent(ZrWheelEvent *event)
{
    Video *video = layout_.videoAt(event->position());
    if (!video)
        return;
    event->accept();
    ZrWheelEvent inCell(ZrPoint(event->position().x() - video->geometry().left(),
                                event->position().y() - video->geometry().top()),
                        event->globalPosition(), event->delta(), event->buttons());
    video->wheelEvent(&inCell);
}

void VideoScreenBase::resizeEvent(ZrResizeEvent *)
{
    layout_.setGeometry(rect());
}
