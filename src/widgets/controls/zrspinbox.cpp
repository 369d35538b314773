#include <zrspinbox>

#include "widgets/style/boxmodel.h"
#include "widgets/style/buttonlayout.h"

#include <algorithm>

ZrSpinBox::ZrSpinBox(ZrWidget *parent) : ZrFrame(parent)
{
    setFocusPolicy(AnyFocus);
    setAttribute(Hover);
    connect(&repeatTimer_, &repeatTimer_.timeout, this, zrSlot<&ZrSpinBox::repeat>);
}

void ZrSpinBox::setRange(int minimum, int maximum)
{
    maximum = std::max(minimum, maximum);
    if (minimum == minimum_ && maximum == maximum_)
        return;
    minimum_ = minimum;
    maximum_ = maximum;
    update();
    setValue(value_);
}

void ZrSpinBox::setValue(int value)
{
    value = std::clamp(value, minimum_, maximum_);
    if (value == value_)
        return;
    value_ = value;
    update();
    emit(this, &valueChanged);
}

void ZrSpinBox::setSingleStep(int step)
{
    singleStep_ = std::max(0, step);
}

void ZrSpinBox::setSuffix(const ZrString &suffix)
{
    if (suffix == suffix_)
        return;
    suffix_ = suffix;
    update();
}

ZrString ZrSpinBox::text() const
{
    return ZrString::number(value_) + suffix_;
}

// --- stepping ---

bool ZrSpinBox::canStep(Arrow arrow) const
{
    return isEnabled() && (arrow == UpArrow ? value_ < maximum_ : value_ > minimum_);
}

void ZrSpinBox::step(Arrow arrow)
{
    const long long change = arrow == UpArrow ? singleStep_ : -singleStep_;
    setValue(int(std::clamp(value_ + change, (long long)minimum_, (long long)maximum_)));
}

void ZrSpinBox::repeat()
{
    repeatTimer_.start(RepeatMs);
    step(pressedArrow_);
}

void ZrSpinBox::letGo()
{
    repeatTimer_.stop();
    if (pressedArrow_ == NoArrow)
        return;
    const ZrRect arrow = arrowRect(pressedArrow_);
    pressedArrow_ = NoArrow;
    update(arrow);
}

// --- geometry ---

ZrRect ZrSpinBox::arrowRect(Arrow arrow) const
{
    const ZrRect box = rect().adjusted(1, 1, -1, -1);
    const int across = std::min(box.height(), box.width() / 2);
    const int upper = box.height() / 2;
    const int left = box.right() - across + 1;
    return arrow == UpArrow ? ZrRect(left, box.top(), across, upper)
                            : ZrRect(left, box.top() + upper, across, box.height() - upper);
}

ZrSize ZrSpinBox::sizeHint() const
{
    const BoxModel box(*this, style().spinBox());
    const int height = lineControlHeight(box.font());
    const int widest = std::max(textWidth(ZrString::number(minimum_) + suffix_, box.font()),
                                textWidth(ZrString::number(maximum_) + suffix_, box.font()));
    return ZrSize(widest + box.surplus().width() + height, height);
}

// --- events ---

void ZrSpinBox::paintEvent(ZrPaintEvent *)
{
    style().drawSpinBox(this);
}

void ZrSpinBox::keyPressEvent(ZrKeyEvent *event)
{
    const bool up = event->key() == Zr::Key_Up;
    event->setAccepted(up || event->key() == Zr::Key_Down);
    if (event->isAccepted())
        step(up ? UpArrow : DownArrow);
}

void ZrSpinBox::wheelEvent(ZrWheelEvent *event)
{
    event->accept();
    if (event->delta() != 0)
        step(event->delta() > 0 ? UpArrow : DownArrow);
}

void ZrSpinBox::mousePressEvent(ZrMouseEvent *event)
{
    event->setAccepted(event->button() == Zr::LeftButton);
    if (!event->isAccepted())
        return;
    for (const Arrow arrow : {UpArrow, DownArrow}) {
        if (!arrowRect(arrow).contains(event->position()))
            continue;
        pressedArrow_ = arrow;
        update(arrowRect(arrow));
        repeatTimer_.start(RepeatDelayMs);
        step(arrow);
        return;
    }
}

void ZrSpinBox::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    mousePressEvent(event);
}

void ZrSpinBox::mouseReleaseEvent(ZrMouseEvent *event)
{
    event->accept();
    letGo();
}

void ZrSpinBox::hideEvent(ZrHideEvent *)
{
    letGo();
}

void ZrSpinBox::focusInEvent(ZrFocusEvent *event)
{
    ZrFrame::focusInEvent(event);
    update();
}

void ZrSpinBox::focusOutEvent(ZrFocusEvent *event)
{
    ZrFrame::focusOutEvent(event);
    update();
}

void ZrSpinBox::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverEnterEvent(event);
    update();
}

void ZrSpinBox::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverLeaveEvent(event);
    update();
}
