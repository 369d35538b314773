#include <zrdateedit>

#include "widgets/style/boxmodel.h"

#include <zrfontmetrics>

ZrDateEdit::ZrDateEdit(ZrWidget *parent) : ZrFrame(parent)
{
    setFocusPolicy(AnyFocus);
    setAttribute(Hover);
}

void ZrDateEdit::setDate(const ZrDate &date)
{
    if (!date.isValid())
        return;
    ZrDate within = date;
    if (maximum_.isValid() && within > maximum_)
        within = maximum_;
    if (minimum_.isValid() && within < minimum_)
        within = minimum_;
    if (within == date_)
        return;
    date_ = within;
    update();
    emit(this, &dateChanged);
}

void ZrDateEdit::setDateRange(const ZrDate &minimum, const ZrDate &maximum)
{
    minimum_ = minimum;
    maximum_ = maximum;
    setDate(date_);
}

void ZrDateEdit::setDisplayFormat(const ZrString &format)
{
    if (format == format_)
        return;
    format_ = format;
    update();
}

void ZrDateEdit::setPopupOpen(bool open)
{
    if (open == popupOpen_)
        return;
    popupOpen_ = open;
    update();
}

ZrRect ZrDateEdit::arrowRect() const
{
    return ZrRect(width() - height(), 0, height(), height());
}

ZrSize ZrDateEdit::sizeHint() const
{
    const BoxModel box(*this, style().dateEdit());
    const ZrSize around = box.surplus();
    const ZrSize text = ZrFontMetrics(shownText(), box.font()).sizeHint();
    const int line = ZrFontMetrics::lineHeight(box.font());
    const int high = line + line / 2 + around.height();
    return ZrSize(text.width() + around.width() + high, high);
}

void ZrDateEdit::paintEvent(ZrPaintEvent *)
{
    style().drawDateEdit(this);
}

void ZrDateEdit::keyPressEvent(ZrKeyEvent *event)
{
    if (event->key() != Zr::Key_Enter)
        return;
    event->accept();
    openPopup();
}

void ZrDateEdit::mousePressEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton)
        return;
    pressedHere_ = true;
    event->accept();
}

void ZrDateEdit::mouseReleaseEvent(ZrMouseEvent *event)
{
    if (!pressedHere_ || event->button() != Zr::LeftButton)
        return;
    pressedHere_ = false;
    event->accept();
    if (rect().contains(event->position()))
        openPopup();
}

void ZrDateEdit::focusInEvent(ZrFocusEvent *event)
{
    ZrFrame::focusInEvent(event);
    update();
}

void ZrDateEdit::focusOutEvent(ZrFocusEvent *event)
{
    ZrFrame::focusOutEvent(event);
    update();
}

void ZrDateEdit::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverEnterEvent(event);
    update();
}

void ZrDateEdit::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverLeaveEvent(event);
    update();
}
