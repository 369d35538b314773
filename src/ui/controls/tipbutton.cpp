#include "ui/controls/tipbutton.h"

#include <zrtiplabel>

TipButton::TipButton(ZrWidget *parent) : ZrPushButton(parent)
{
    delay_.setSingleShot(true);
    connect(&delay_, &delay_.timeout, this, zrSlot<&TipButton::showTip>);
}

TipButton::~TipButton() = default;

void TipButton::awaitTip()
{
    if (!toolTip().isEmpty() && !tip_)
        delay_.start(TipDelayMs);
}

void TipButton::showTip()
{
    if (!isVisible())
        return;
    tip_ = std::make_unique<ZrTipLabel>();
    tip_->setText(toolTip());
    tip_->showAt(mapToGlobal(ZrPoint(width() / 2, height() / 2)));
}

void TipButton::hideTip()
{
    delay_.stop();
    tip_.reset();
}

void TipButton::mousePressEvent(ZrMouseEvent *event)
{
    hideTip();
    ZrPushButton::mousePressEvent(event);
}

void TipButton::keyPressEvent(ZrKeyEvent *event)
{
    hideTip();
    ZrPushButton::keyPressEvent(event);
}

void TipButton::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrPushButton::hoverEnterEvent(event);
    awaitTip();
}

void TipButton::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrPushButton::hoverLeaveEvent(event);
    hideTip();
}

// Who comes by keys has no pointer to rest on the button.
void TipButton::focusInEvent(ZrFocusEvent *event)
{
    ZrPushButton::focusInEvent(event);
    if (event->reason() == Zr::KeyManagerFocus)
        awaitTip();
}

void TipButton::focusOutEvent(ZrFocusEvent *event)
{
    ZrPushButton::focusOutEvent(event);
    hideTip();
}

void TipButton::hideEvent(ZrHideEvent *)
{
    hideTip();
}
