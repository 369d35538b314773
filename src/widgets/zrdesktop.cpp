// Focus, the stack of windows, and the dead.
#include "widgets/zrdesktop.h"

#include <algorithm>
#include <zrguard>
#include <zrscreen>
#include <zrwidget>

ZrDesktop *ZrDesktop::instance_ = nullptr;

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

namespace
{

bool mayHaveFocus(const ZrWidget *widget, int reason)
{
    if (!widget || widget->focusPolicy() == ZrWidget::NoFocus || !widget->isVisible() ||
        !widget->isEnabled())
        return false;
    return widget->focusPolicy() != ZrWidget::KeyFocus ||
           (reason != Zr::MouseFocus && reason != Zr::ActiveWindowFocus);
}

} // namespace

void ZrDesktop::setFocusWidget(ZrWidget *widget, int reason)
{
    ZrDesktop *desktop = instance_;
    if (!desktop || widget == desktop->focus_)
        return;
    if (desktop->focus_ && reason == Zr::NeverStealFocus)
        return;
    desktop->toolTips_.dismiss();
    const ZrGuard<ZrWidget> next(widget);
    if (ZrWidget *holder = desktop->focus_) {
        desktop->focus_ = nullptr;
        ZrFocusEvent out(ZrEvent::FocusOut, reason);
        ZrApplication::notify(holder, &out);
    }
    // A handler that gave the focus to somebody meanwhile has the last word.
    if (desktop->focus_ || !mayHaveFocus(next.get(), reason))
        return;
    ZrFocusEvent in(ZrEvent::FocusIn, reason);
    ZrApplication::notify(next.get(), &in);
    // A subclass refuses the focus by clearing the bit in its handler.
    if (next && next->hasFocus() && !desktop->focus_)
        desktop->focus_ = next.get();
    if (next && desktop->focus_ == next.get() && reason == Zr::KeyManagerFocus)
        desktop->toolTips_.keysMoved(next.get());
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

// From the top; one that refuses to close stays.
void ZrDesktop::closePopups()
{
    const ZrList<ZrWidget *> before = windows_;
    for (int i = before.size() - 1; i >= 0; --i) {
        ZrWidget *window = before.at(i);
        if (windows_.contains(window) && window->isPopup())
            window->close();
    }
}

void ZrDesktop::focusTopWindow(const ZrWidget *before)
{
    ZrWidget *top = activeWindow();
    if (top != before)
        setFocusWidget(top ? top->firstFocusable() : nullptr, Zr::ActiveWindowFocus);
}

void ZrDesktop::setActiveWindow(ZrWidget *widget)
{
    ZrDesktop *desktop = instance_;
    if (!desktop)
        return;
    ZrList<ZrWidget *> &windows = desktop->windows_;
    if (!widget) {
        const ZrWidget *before = activeWindow();
        for (int i = windows.size() - 1; i >= 0; --i) {
            if (!windows.at(i)->isVisible() || !windows.at(i)->isWindow())
                windows.removeAt(i);
        }
        // Attributes may have moved a window to another layer.
        std::stable_sort(windows.begin(), windows.end(), [](ZrWidget *left, ZrWidget *right) {
            return layerOf(left) < layerOf(right);
        });
        desktop->focusTopWindow(before);
        return;
    }
    const ZrGuard<ZrWidget> window(widget->window());
    if (window->testAttribute(ZrWidget::MouseTransparent))
        return;
    if (!window->isPopup())
        desktop->closePopups();
    if (!window || !window->isVisible())
        return;
    const ZrWidget *before = activeWindow();
    windows.removeAll(window.get());
    int place = 0;
    while (place < windows.size() && layerOf(windows.at(place)) <= layerOf(window.get()))
        ++place;
    windows.insert(place, window.get());
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

// --- the hidden and the dead ---

void ZrDesktop::widgetHidden(ZrWidget *widget)
{
    ZrDesktop *desktop = instance_;
    if (!desktop)
        return;
    desktop->toolTips_.widgetHidden(widget);
    // A widget that is shown again later must not look as if the pointer were still on it.
    if (desktop->underPointer_ && widget->isAncestorOf(desktop->underPointer_))
        desktop->enterWidget(desktop->hoverTarget());
}

void ZrDesktop::forgetWidget(ZrWidget *widget)
{
    ZrDesktop *desktop = instance_;
    if (!desktop)
        return;
    desktop->toolTips_.widgetHidden(widget);
    const ZrWidget *before = activeWindow();
    desktop->forget(widget);
    if (before != widget)
        return;
    // A window that goes without being closed leaves the focus to the next one.
    if (desktop->focus_ && widget->isAncestorOf(desktop->focus_))
        desktop->focus_ = nullptr;
    desktop->focusTopWindow(before);
}

template <typename List>
void ZrDesktop::removeDead(List &list, const ZrObject *object)
{
    for (int i = list.size() - 1; i >= 0; --i) {
        if (static_cast<const ZrObject *>(list.at(i)) == object)
            list.removeAt(i);
    }
}

void ZrDesktop::forget(ZrObject *object)
{
    removeDead(windows_, object);
    removeDead(modals_, object);
    for (ZrWidget **place : {&focus_, &underPointer_, &pressed_, &grab_, &lastPressed_}) {
        if (static_cast<ZrObject *>(*place) == object)
            *place = nullptr;
    }
}
