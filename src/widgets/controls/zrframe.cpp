#include <zrframe>

ZrFrame::ZrFrame(ZrWidget *parent) : ZrWidget(parent) {}

void ZrFrame::setFrameWidth(int width)
{
    if (width == frameWidth_)
        return;
    frameWidth_ = width;
    setContentsMargins(width, width, width, width);
    update(contentsRect());
}

void ZrFrame::setFrameColor(const ZrColor &color)
{
    if (color == frameColor_)
        return;
    frameColor_ = color;
    update();
}

void ZrFrame::setFocusFrame(bool shown)
{
    if (shown == focusFrame_)
        return;
    focusFrame_ = shown;
    update();
}

void ZrFrame::paintEvent(ZrPaintEvent *)
{
    style().drawFrame(this);
}
