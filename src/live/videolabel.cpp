#include "live/videolabel.h"

#include "live/video.h"

#include <algorithm>

namespace
{

constexpr int CellMargin = 3;

} // namespace

VideoLabel::VideoLabel(Video *owner, ZrWidget *screen) : ZrLabel(screen), owner_(owner)
{
    setAttribute(MouseTransparent);
    hide();
}

void VideoLabel::setWanted(bool wanted)
{
    wanted_ = wanted;
    setVisible(wanted_ && owner_->isVisible());
}

void VideoLabel::setOwnerVisible(bool visible)
{
    setVisible(visible && wanted_);
}

void VideoLabel::fitToText()
{
    const ZrSize hint = sizeHint();
    const int widest = std::max(owner_->geometry().width() - CellMargin, 0);
    resize(ZrSize(std::min(hint.width(), widest), hint.height()));
}
