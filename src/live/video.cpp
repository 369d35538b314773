#include "live/video.h"

#include "live/videoscreenbase.h"

#include <zrapplication>

Video::Video(VideoScreenBase *screen) : ZrObject(screen), screen_(screen) {}

void Video::setGeometry(const ZrRect &rect)
{
    if (rect == geometry_)
        return;
    oldGeometry_ = geometry_;
    geometry_ = rect;
    ZrResizeEvent resized(rect.size(), oldGeometry_.size());
    ZrApplication::notify(this, &resized);
}

void Video::setVisible(bool visible)
{
    if (visible == visible_)
        return;
    visible_ = visible;
    ZrEvent changed(visible ? ZrEvent::Show : ZrEvent::Hide);
    ZrApplication::notify(this, &changed);
}

bool Video::event(ZrEvent *event)
{
    switch (event->type()) {
    case ZrEvent::Resize:
        resizeEvent(static_cast<ZrResizeEvent *>(event));
        return true;
    case ZrEvent::Show:
        showEvent();
        return true;
    case ZrEvent::Hide:
        hideEvent();
        return true;
    default:
        return ZrObject::event(event);
    }
}

void Video::update(const ZrRegion &region)
{
    ZrRegion onScreen = region;
    onScreen.translate(geometry_.left(), geometry_.top());
    screen_->update(onScreen);
}
