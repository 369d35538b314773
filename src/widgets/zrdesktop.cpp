#include "widgets/zrdesktop.h"

#include <cstdlib>
#include <zrscreen>
#include <zrwidget>

ZrDesktop *ZrDesktop::instance_ = nullptr;

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

ZrDesktop::ZrDesktop()
{
    instance_ = this;
    doubleClickTimer_.setSingleShot(true);
    doubleClickTimer_.setInterval(DoubleClickMs);
}

ZrDesktop::~ZrDesktop()
{
    instance_ = nullptr;
}

// --- focus ---

ZrWidget *ZrDesktop::focusWidget()
{
    return instance_ ? instance_->focus_ : nullptr;
}

void ZrDesktop::setFocusWidget(ZrWidget *widget, int reason)
{
    ZrDesktop *desktop = instance_;
    if (!desktop || widget == desktop->focus_)
        return;
    if (desktop->focus_ && reason == Zr::NeverStealFocus)
        return;
    if (ZrWidget *holder = desktop->focus_) {
        desktop->focus_ = nullptr;
        ZrFocusEvent out(ZrEvent::FocusOut, reason);
        ZrApplication::notify(holder, &out);
    }
    if (!widget || widget->focusPolicy() == ZrWidget::NoFocus || !widget->isVisible() ||
        !widget->isEnabled())
        return;
    if (widget->focusPolicy() == ZrWidget::KeyFocus &&
        (reason == Zr::MouseFocus || reason == Zr::ActiveWindowFocus))
        return;
    ZrFocusEvent in(ZrEvent::FocusIn, reason);
    ZrApplication::notify(widget, &in);
    // A subclass refuses the focus by clearing the bit in its handler.
    if (widget->hasFocus())
        desktop->focus_ = widget;
}

// --- windows ---

int ZrDesktop::layerOf(const ZrWidget *window)
{
    if (window->isPopup())
        return 2;
    return window->testAttribute(ZrWidget::StayOnTop) ? 1 : 0;
}

ZrWidget *ZrDesktop::activeWindow()
{
    return instance_ && !instance_->windows_.isEmpty() ? instance_->windows_.last() : nullptr;
}

ZrWidget *ZrDesktop::activePopup()
{
    ZrWidget *top = activeWindow();
    return top && top->isPopup() ? top : nullptr;
}

void ZrDesktop::closePopups()
{
    while (ZrWidget *popup = activePopup()) {
        if (!popup->close())
            return;
        windows_.removeAll(popup);
    }
}

void ZrDesktop::focusTopWindow(ZrWidget *before)
{
    ZrWidget *top = activeWindow();
    if (top == before)
        return;
    setFocusWidget(top ? top->firstFocusable() : nullptr, Zr::ActiveWindowFocus);
}

void ZrDesktop::setActiveWindow(ZrWidget *widget)
{
    ZrDesktop *desktop = instance_;
    if (!desktop)
        return;
    ZrWidget *before = activeWindow();
    ZrList<ZrWidget *> &windows = desktop->windows_;
    if (!widget) {
        for (int i = windows.size() - 1; i >= 0; --i) {
            if (!windows.at(i)->isVisible())
                windows.removeAt(i);
        }
        desktop->focusTopWindow(before);
        return;
    }
    ZrWidget *window = widget->window();
    if (window->testAttribute(ZrWidget::MouseTransparent))
        return;
    if (!window->isPopup())
        desktop->closePopups();
    windows.removeAll(window);
    int place = 0;
    while (place < windows.size() && layerOf(windows.at(place)) <= layerOf(window))
        ++place;
    windows.insert(place, window);
    desktop->focusTopWindow(before);
}

void ZrDesktop::pushModal(ZrWidget *widget)
{
    if (instance_)
        instance_->modals_.append(widget);
}

void ZrDesktop::popModal(ZrWidget *widget)
{
    if (instance_)
        instance_->modals_.removeAll(widget);
}

ZrWidget *ZrDesktop::modalWidget()
{
    return instance_ && !instance_->modals_.isEmpty() ? instance_->modals_.last() : nullptr;
}

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

// --- pointer ---

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

ZrWidget *ZrDesktop::routed(ZrWidget *hit) const
{
    if (grab_)
        return grab_;
    ZrWidget *over = activePopup();
    if (!over)
        over = modalWidget();
    // Inside the window in force the widget that was hit gets the event; outside, the window
    // itself.
    if (!over || (hit && over->isAncestorOf(hit)))
        return hit;
    return over;
}

void ZrDesktop::deliverClimbing(ZrWidget *widget, ZrMouseEvent &event)
{
    // A handler may delete any widget, or run a nested loop with deliveries of its own.
    Climb climb{widget, climbs_};
    climbs_ = &climb;
    while (ZrWidget *receiver = climb.next) {
        climb.next = receiver->parentWidget();
        event.setPosition(receiver->mapFromGlobal(event.globalPosition()));
        ZrApplication::notify(receiver, &event);
        if (event.isAccepted())
            break;
    }
    climbs_ = climb.outer;
}

void ZrDesktop::press(int button, int held)
{
    ZrWidget *target = routed(widgetAt(position_));
    if (!target)
        return;
    const bool second = doubleClickTimer_.isActive() && target == lastPressed_ &&
                        button == lastPressButton_ && near(position_, lastPressPosition_);
    if (second)
        doubleClickTimer_.stop(); // a third press begins anew
    else
        doubleClickTimer_.start();
    lastPressed_ = target;
    lastPressButton_ = button;
    lastPressPosition_ = position_;
    pressed_ = target;
    if (!target->isPopup() && target->window() != activeWindow() && !modalWidget())
        setActiveWindow(target);
    ZrMouseEvent event(second ? ZrEvent::MouseDoubleClick : ZrEvent::MousePress, position_,
                       position_, button, held);
    deliverClimbing(target, event);
}

void ZrDesktop::release(int button, int held)
{
    ZrWidget *target = pressed_ ? pressed_ : routed(widgetAt(position_));
    if (held == 0)
        pressed_ = nullptr;
    ZrMouseEvent event(ZrEvent::MouseRelease, position_, position_, button, held);
    deliverClimbing(target, event);
}

void ZrDesktop::moved(int held)
{
    ZrWidget *hit = widgetAt(position_);
    ZrWidget *target = pressed_ ? pressed_ : routed(hit);
    if (!pressed_)
        enterWidget(target == hit ? hit : nullptr);
    if (!target || (held == 0 && !target->testAttribute(ZrWidget::MouseTracking)))
        return;
    ZrMouseEvent event(ZrEvent::MouseMove, target->mapFromGlobal(position_), position_, 0, held);
    ZrApplication::notify(target, &event);
}

void ZrDesktop::wheel(int delta, int held)
{
    ZrWheelEvent event(position_, position_, delta, held);
    deliverClimbing(routed(widgetAt(position_)), event);
}

namespace
{

void sendEnterOrLeave(ZrWidget *widget, bool enter, const ZrPoint &global)
{
    ZrEvent crossing(enter ? ZrEvent::Enter : ZrEvent::Leave);
    ZrApplication::notify(widget, &crossing);
    if (!widget->testAttribute(ZrWidget::Hover))
        return;
    ZrHoverEvent hover(enter ? ZrEvent::HoverEnter : ZrEvent::HoverLeave,
                       widget->mapFromGlobal(global));
    ZrApplication::notify(widget, &hover);
}

} // namespace

void ZrDesktop::enterWidget(ZrWidget *widget)
{
    if (widget == underPointer_)
        return;
    ZrWidget *left = underPointer_;
    underPointer_ = widget;
    // Leave goes up to the common ancestor, enter comes down from it.
    for (; left && !left->isAncestorOf(widget); left = left->parentWidget())
        sendEnterOrLeave(left, false, position_);
    ZrList<ZrWidget *> entered;
    for (ZrWidget *step = widget; step && step != left; step = step->parentWidget())
        entered.prepend(step);
    for (ZrWidget *step : entered)
        sendEnterOrLeave(step, true, position_);
}

// --- events of the queue ---

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

// --- the dead ---

template <typename List>
void ZrDesktop::removeDead(List &list, const ZrObject *object)
{
    for (int i = list.size() - 1; i >= 0; --i) {
        if (static_cast<const ZrObject *>(list.at(i)) == object)
            list.removeAt(i);
    }
}

void ZrDesktop::forgetWidget(ZrWidget *widget)
{
    if (instance_)
        instance_->forget(widget);
}

void ZrDesktop::forget(ZrObject *object)
{
    removeDead(windows_, object);
    removeDead(modals_, object);
    for (ZrWidget **place : {&focus_, &underPointer_, &pressed_, &grab_, &lastPressed_}) {
        if (static_cast<ZrObject *>(*place) == object)
            *place = nullptr;
    }
    for (Climb *climb = climbs_; climb; climb = climb->outer) {
        if (static_cast<ZrObject *>(climb->next) == object)
            climb->next = nullptr;
    }
}
