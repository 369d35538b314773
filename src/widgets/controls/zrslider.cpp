#include <zrslider>

#include <zrfontmetrics>

ZrSlider::ZrSlider(Zr::Orientation orientation, ZrWidget *parent)
    : ZrAbstractSlider(orientation, parent)
{
}

int ZrSlider::handleLength() const
{
    const ZrSize *size = style().slider().handleSize.get(0);
    if (!size)
        return ZrFontMetrics::lineHeight(font(0));
    return orientation() == Zr::Horizontal ? size->width() : size->height();
}

// The handle keeps its shape: the groove is as thick as the handle and lies in the middle.
ZrRect ZrSlider::grooveRect() const
{
    const ZrSize *size = style().slider().handleSize.get(0);
    const int *ring = style().slider().focusRing.get(0);
    const int inset = ring ? *ring * 2 : 0;
    const ZrRect room = rect().adjusted(inset, inset, -inset, -inset);
    if (!size)
        return room;
    if (orientation() == Zr::Horizontal)
        return ZrRect(room.left(), room.top() + (room.height() - size->height()) / 2, room.width(),
                      size->height());
    return ZrRect(room.left() + (room.width() - size->width()) / 2, room.top(), size->width(),
                  room.height());
}

ZrSize ZrSlider::sizeHint() const
{
    const int across = ZrFontMetrics::lineHeight(font(0)) * 3 / 2;
    const int length = across * 6;
    return orientation() == Zr::Horizontal ? ZrSize(length, across) : ZrSize(across, length);
}

ZrSize ZrSlider::minimumSizeHint() const
{
    const int across = handleLength() + 4;
    return orientation() == Zr::Horizontal ? ZrSize(across * 2, across)
                                           : ZrSize(across, across * 2);
}

// A turn away from the hand means more, whatever the direction of the control.
void ZrSlider::wheelEvent(ZrWheelEvent *event)
{
    event->accept();
    if (event->delta() != 0)
        step(event->delta() > 0 ? 1 : -1);
}

void ZrSlider::paintEvent(ZrPaintEvent *)
{
    style().drawSlider(this);
}
