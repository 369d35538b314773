// Where pointer events go, and what the pointer looks like there.
#include "widgets/zrdesktop.h"

#include <cstdlib>
#include <zrguard>
#include <zrscreen>
#include <zrwidget>

namespace
{

constexpr int ButtonBits[] = {Zr::LeftButton, Zr::RightButton, Zr::MiddleButton};
// A hand moves a little between the two presses of a double click.
constexpr int DoubleClickPixels = 8;

bool near(const ZrPoint &left, const ZrPoint &right)
{
    return std::abs(left.x() - right.x()) <= DoubleClickPixels &&
           std::abs(left.y() - right.y()) <= DoubleClickPixels;
}

} // namespace

void ZrDesktop::grabPointer(ZrWidget *widget)
{
    if (instance_)
        instance_->grab_ = widget;
}

ZrPoint ZrDesktop::pointerPosition()
{
    return instance_ ? instance_->position_ : ZrPoint();
}

ZrWidget *ZrDesktop::widgetUnderPointer()
{
    return instance_ ? instance_->underPointer_ : nullptr;
}

ZrWidget *ZrDesktop::widgetAt(const ZrPoint &global)
{
    if (!ZrScreen::instance())
        return nullptr;
    const ZrList<ZrObject *> windows = ZrScreen::instance()->topLevels();
    for (int i = windows.size() - 1; i >= 0; --i) {
        auto *window = static_cast<ZrWidget *>(windows.at(i));
        if (!window->isVisible() || window->testAttribute(ZrWidget::MouseTransparent) ||
            !window->geometry().contains(global))
            continue;
        return window->childAt(window->mapFromGlobal(global));
    }
    return nullptr;
}

// --- routing ---

ZrWidget *ZrDesktop::windowInForce() const
{
    if (ZrWidget *popup = activePopup())
        return popup;
    if (ZrWidget *modal = modalWidget())
        return modal;
    ZrWidget *active = activeWindow();
    return active && active->testAttribute(ZrWidget::StayOnTop) ? active : nullptr;
}

ZrWidget *ZrDesktop::routed(ZrWidget *hit) const
{
    if (grab_)
        return grab_;
    // Inside the window in force the widget that was hit gets the event; outside, the window
    // itself.
    ZrWidget *over = windowInForce();
    return !over || (hit && over->isAncestorOf(hit)) ? hit : over;
}

ZrWidget *ZrDesktop::hoverTarget() const
{
    ZrWidget *hit = widgetAt(position_);
    return routed(hit) == hit ? hit : nullptr;
}

void ZrDesktop::deliverClimbing(ZrWidget *widget, ZrMouseEvent &event) const
{
    for (ZrGuard<ZrWidget> receiver(widget); receiver;) {
        const ZrGuard<ZrWidget> next(receiver->parentWidget());
        event.setPosition(receiver->mapFromGlobal(event.globalPosition()));
        ZrApplication::notify(receiver.get(), &event);
        if (event.isAccepted())
            return;
        receiver = next.get();
    }
}

void ZrDesktop::rawPointer(const ZrRawMouseEvent &event)
{
    const bool hasMoved = !(event.position == position_);
    const int before = buttons_;
    position_ = event.position;
    buttons_ = event.buttons;
    if (hasMoved)
        moved(before);
    for (const int bit : ButtonBits) {
        if ((event.buttons & bit) && !(before & bit))
            press(bit, event.buttons);
        if (!(event.buttons & bit) && (before & bit))
            release(bit, event.buttons);
    }
    if (event.wheel != 0)
        wheel(event.wheel, event.buttons);
}

bool ZrDesktop::isDoubleClick(const ZrWidget *target, int button)
{
    const bool second = doubleClickTimer_.isActive() && target == lastPressed_ &&
                        button == lastPressButton_ && near(position_, lastPressPosition_);
    if (second)
        doubleClickTimer_.stop(); // a third press begins anew
    else
        doubleClickTimer_.start();
    return second;
}

void ZrDesktop::press(int button, int held)
{
    toolTips_.dismiss();
    const ZrGuard<ZrWidget> target(routed(widgetAt(position_)));
    if (!target)
        return;
    const int type =
        isDoubleClick(target.get(), button) ? ZrEvent::MouseDoubleClick : ZrEvent::MousePress;
    lastPressed_ = target.get();
    lastPressButton_ = button;
    lastPressPosition_ = position_;
    pressed_ = target.get();
    if (!windowInForce() && target->window() != activeWindow())
        setActiveWindow(target.get());
    ZrMouseEvent event(type, position_, position_, button, held);
    deliverClimbing(target.get(), event);
}

void ZrDesktop::release(int button, int held)
{
    ZrWidget *target = pressed_ && !grab_ ? pressed_ : routed(widgetAt(position_));
    if (held == 0)
        pressed_ = nullptr;
    // What was pressed and is gone from the screen since has nothing to let go of.
    if (target && target->isVisible()) {
        ZrMouseEvent event(ZrEvent::MouseRelease, position_, position_, button, held);
        deliverClimbing(target, event);
    }
    if (held == 0)
        enterWidget(hoverTarget());
}

void ZrDesktop::moved(int held)
{
    if (!pressed_) {
        enterWidget(hoverTarget());
        toolTips_.pointerMoved(underPointer_, position_);
    }
    ZrWidget *target = pressed_ && !grab_ ? pressed_ : routed(widgetAt(position_));
    if (!target || (held == 0 && !target->testAttribute(ZrWidget::MouseTracking)))
        return;
    ZrMouseEvent event(ZrEvent::MouseMove, target->mapFromGlobal(position_), position_, 0, held);
    ZrApplication::notify(target, &event);
}

void ZrDesktop::wheel(int delta, int held)
{
    toolTips_.dismiss();
    ZrWheelEvent event(position_, position_, delta, held);
    deliverClimbing(routed(widgetAt(position_)), event);
}

// Mouse events that somebody posted to a widget.
void ZrDesktop::dispatch(ZrObject *widget, ZrEvent *event)
{
    const int type = event->type();
    if (type < ZrEvent::MousePress || type > ZrEvent::Wheel) {
        ZrApplication::notify(widget, event);
        return;
    }
    auto *mouse = static_cast<ZrMouseEvent *>(event);
    ZrWidget *target = routed(static_cast<ZrWidget *>(widget));
    if (type == ZrEvent::MouseMove || type == ZrEvent::MouseDoubleClick) {
        mouse->setPosition(target->mapFromGlobal(mouse->globalPosition()));
        ZrApplication::notify(target, mouse);
    } else {
        deliverClimbing(target, *mouse);
    }
}

// --- enter and leave ---

void ZrDesktop::sendCrossing(ZrWidget *widget, bool enters) const
{
    const ZrGuard<ZrWidget> self(widget);
    ZrEvent crossing(enters ? ZrEvent::Enter : ZrEvent::Leave);
    ZrApplication::notify(widget, &crossing);
    if (!self || !self->testAttribute(ZrWidget::Hover))
        return;
    ZrHoverEvent hover(enters ? ZrEvent::HoverEnter : ZrEvent::HoverLeave,
                       widget->mapFromGlobal(position_));
    ZrApplication::notify(widget, &hover);
}

void ZrDesktop::leaveUpTo(const ZrWidget *widget)
{
    ZrGuard<ZrWidget> left(underPointer_);
    while (left && !left->isAncestorOf(widget)) {
        const ZrGuard<ZrWidget> up(left->parentWidget());
        sendCrossing(left.get(), false);
        left = up.get();
    }
}

void ZrDesktop::enterBelow(ZrWidget *widget, const ZrWidget *ancestor)
{
    if (!widget || widget == ancestor)
        return;
    const ZrGuard<ZrWidget> self(widget);
    enterBelow(widget->parentWidget(), ancestor);
    if (self)
        sendCrossing(widget, true);
}

void ZrDesktop::enterWidget(ZrWidget *widget)
{
    if (widget == underPointer_)
        return;
    // Leave goes up to the common ancestor, enter comes down from it.
    const ZrWidget *common = underPointer_;
    while (common && !common->isAncestorOf(widget))
        common = common->parentWidget();
    const ZrGuard<ZrWidget> entered(widget);
    leaveUpTo(widget);
    underPointer_ = entered.get();
    enterBelow(entered.get(), common);
    showCursor();
}

// --- cursor and tool tips ---

void ZrDesktop::showCursor()
{
    const ZrCursor wanted = underPointer_ ? underPointer_->cursor() : ZrCursor();
    if (cursor_ && *cursor_ == wanted)
        return;
    cursor_ = wanted;
    if (ZrScreen *screen = ZrScreen::instance())
        screen->setCursor(wanted);
}

void ZrDesktop::restoreCursor()
{
    if (!instance_)
        return;
    instance_->cursor_.reset();
    instance_->showCursor();
}

void ZrDesktop::cursorChanged(const ZrWidget *widget)
{
    if (instance_ && instance_->underPointer_ && widget->isAncestorOf(instance_->underPointer_))
        instance_->showCursor();
}

void ZrDesktop::setToolTipView(std::unique_ptr<ZrToolTipView> view)
{
    if (instance_)
        instance_->toolTips_.setView(std::move(view));
}

void ZrDesktop::dismissToolTip()
{
    if (instance_)
        instance_->toolTips_.dismiss();
}
