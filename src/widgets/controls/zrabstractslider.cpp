#include <zrabstractslider>

#include <algorithm>
#include <zrguard>

ZrAbstractSlider::ZrAbstractSlider(Zr::Orientation orientation, ZrWidget *parent)
    : ZrWidget(parent), orientation_(orientation)
{
    setFocusPolicy(AnyFocus);
    setAttribute(Hover);
}

// --- range and value ---

void ZrAbstractSlider::setOrientation(Zr::Orientation orientation)
{
    if (orientation == orientation_)
        return;
    orientation_ = orientation;
    update();
}

void ZrAbstractSlider::setRange(int minimum, int maximum)
{
    maximum = std::max(minimum, maximum);
    if (minimum == minimum_ && maximum == maximum_)
        return;
    minimum_ = minimum;
    maximum_ = maximum;
    update();
    setValue(value_);
}

void ZrAbstractSlider::setValue(int value)
{
    value = std::clamp(value, minimum_, maximum_);
    if (value == value_)
        return;
    const ZrRect before = handleRect();
    value_ = value;
    handleMoved(before, handleRect());
    emit(this, &valueChanged);
}

void ZrAbstractSlider::addToValue(long long change)
{
    setValue(int(std::clamp(value_ + change, (long long)minimum_, (long long)maximum_)));
}

void ZrAbstractSlider::setSingleStep(int step)
{
    singleStep_ = std::max(0, step);
}

void ZrAbstractSlider::setPageStep(int step)
{
    step = std::max(0, step);
    if (step == pageStep_)
        return;
    pageStep_ = step;
    update();
}

void ZrAbstractSlider::setInverted(bool inverted)
{
    if (inverted == inverted_)
        return;
    inverted_ = inverted;
    update();
}

// --- the handle's place ---

ZrRect ZrAbstractSlider::grooveRect() const
{
    return rect();
}

ZrRect ZrAbstractSlider::handleRect() const
{
    const ZrRect groove = grooveRect();
    const bool horizontal = orientation_ == Zr::Horizontal;
    const int room = horizontal ? groove.width() : groove.height();
    const int length = std::min(handleLength(), room);
    const long long range = (long long)maximum_ - minimum_;
    long long done = (long long)value_ - minimum_;
    if (inverted_)
        done = range - done;
    const int start = range > 0 ? int((room - length) * done / range) : 0;
    return horizontal ? ZrRect(groove.left() + start, groove.top(), length, groove.height())
                      : ZrRect(groove.left(), groove.top() + start, groove.width(), length);
}

int ZrAbstractSlider::along(const ZrPoint &point) const
{
    return orientation_ == Zr::Horizontal ? point.x() : point.y();
}

int ZrAbstractSlider::valueAt(int handleStart) const
{
    const ZrRect groove = grooveRect();
    const bool horizontal = orientation_ == Zr::Horizontal;
    const int room = (horizontal ? groove.width() : groove.height()) - handleLength();
    const long long range = (long long)maximum_ - minimum_;
    if (room <= 0)
        return minimum_;
    const int origin = horizontal ? groove.left() : groove.top();
    long long done = (std::clamp(handleStart - origin, 0, room) * range + room / 2) / room;
    if (inverted_)
        done = range - done;
    return int(minimum_ + done);
}

void ZrAbstractSlider::handleMoved(const ZrRect &before, const ZrRect &after)
{
    update(before | after);
}

// --- keys and wheel ---

void ZrAbstractSlider::keyPressEvent(ZrKeyEvent *event)
{
    const int key = event->key();
    const bool back = key == Zr::Key_Left || key == Zr::Key_Up;
    const bool acrossIt = orientation_ == Zr::Horizontal
                              ? key == Zr::Key_Up || key == Zr::Key_Down
                              : key == Zr::Key_Left || key == Zr::Key_Right;
    if (acrossIt || (!back && key != Zr::Key_Right && key != Zr::Key_Down)) {
        event->ignore();
        return;
    }
    event->accept();
    step(back != inverted_ ? -1 : 1);
}

void ZrAbstractSlider::wheelEvent(ZrWheelEvent *event)
{
    event->accept();
    if (event->delta() != 0)
        step((event->delta() > 0) != inverted_ ? -1 : 1);
}

// --- pointer ---

void ZrAbstractSlider::mousePressEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton) {
        event->ignore();
        return;
    }
    event->accept();
    const ZrRect handle = handleRect();
    const int at = along(event->position());
    const int start = along(handle.topLeft());
    const int end = along(handle.bottomRight());
    if (at >= start && at <= end) {
        sliderDown_ = true;
        grabOffset_ = at - start;
        update(handle);
    } else if (jumps_) {
        sliderDown_ = true;
        grabOffset_ = handleLength() / 2;
        dragTo(at);
    } else {
        addToValue((at < start) != inverted_ ? -pageStep_ : pageStep_);
    }
}

void ZrAbstractSlider::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    mousePressEvent(event);
}

void ZrAbstractSlider::dragTo(int position)
{
    const int before = value_;
    const ZrGuard<ZrAbstractSlider> self(this);
    setValue(valueAt(position - grabOffset_));
    if (self && value_ != before)
        emit(this, &sliderMoved);
}

void ZrAbstractSlider::mouseMoveEvent(ZrMouseEvent *event)
{
    event->setAccepted(sliderDown_);
    if (sliderDown_)
        dragTo(along(event->position()));
}

void ZrAbstractSlider::mouseReleaseEvent(ZrMouseEvent *event)
{
    event->accept();
    if (event->button() != Zr::LeftButton || !sliderDown_)
        return;
    sliderDown_ = false;
    update(handleRect());
    emit(this, &sliderReleased);
}

// --- states ---

void ZrAbstractSlider::focusInEvent(ZrFocusEvent *event)
{
    ZrWidget::focusInEvent(event);
    update();
}

void ZrAbstractSlider::focusOutEvent(ZrFocusEvent *event)
{
    ZrWidget::focusOutEvent(event);
    update();
}

void ZrAbstractSlider::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrWidget::hoverEnterEvent(event);
    update();
}

void ZrAbstractSlider::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrWidget::hoverLeaveEvent(event);
    update();
}
