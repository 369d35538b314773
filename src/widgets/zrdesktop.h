// The application's widget side: window stack, focus, and where pointer and key events go.
//
// Pointer data comes in raw, from the mouse thread by way of the event queue; what leaves are
// press, release, double click, move, wheel, enter, leave and hover events in each receiver's
// coordinates. Widget thread only.
#pragma once

#include <zrapplication>
#include <zrlist>
#include <zrtimer>
#include <zrwidgetevent>

class ZrWidget;

class ZrDesktop : public ZrWidgetRouter
{
public:
    ZrDesktop();
    ~ZrDesktop() override;
    static ZrDesktop *instance() { return instance_; }

    // Focus: see ZrWidget::setFocus for who may have it. Null takes it from its holder.
    static ZrWidget *focusWidget();
    static void setFocusWidget(ZrWidget *widget, int reason);

    // Windows, bottom first, by layer: normal windows, those that stay on top, popups.
    static ZrWidget *activeWindow();
    // With null, windows that have been hidden leave the list.
    static void setActiveWindow(ZrWidget *window);
    static ZrWidget *activePopup();

    // Modal windows take the mouse from all others; the last pushed is in force.
    static void pushModal(ZrWidget *widget);
    static void popModal(ZrWidget *widget);
    static ZrWidget *modalWidget();
    // All mouse events go to the widget until it is released by null.
    static void grabPointer(ZrWidget *widget);

    static ZrPoint pointerPosition();
    static ZrWidget *widgetUnderPointer();
    // The topmost widget at a point of the screen that takes the mouse.
    static ZrWidget *widgetAt(const ZrPoint &global);
    static void forgetWidget(ZrWidget *widget);

    // Milliseconds between two presses of a double click.
    static constexpr int DoubleClickMs = 400;

    void rawPointer(const ZrRawMouseEvent &event) override;
    void dispatch(ZrObject *widget, ZrEvent *event) override;
    void forget(ZrObject *object) override;

private:
    void press(int button, int held);
    void release(int button, int held);
    void moved(int held);
    void wheel(int delta, int held);
    // Where a mouse event that hits `hit` really goes: to the grabbing widget, or to the modal one.
    ZrWidget *routed(ZrWidget *hit) const;
    void enterWidget(ZrWidget *widget);
    void deliverClimbing(ZrWidget *widget, ZrMouseEvent &event);
    void closePopups();
    void focusTopWindow(ZrWidget *before);
    static int layerOf(const ZrWidget *window);
    template <typename List>
    static void removeDead(List &list, const ZrObject *object);

    // A delivery on its way up the parents; the next receiver is cleared when it dies.
    struct Climb {
        ZrWidget *next;
        Climb *outer;
    };

    static ZrDesktop *instance_;

    ZrList<ZrWidget *> windows_; // visible ones, bottom first
    ZrList<ZrWidget *> modals_;
    ZrWidget *focus_ = nullptr;
    ZrWidget *underPointer_ = nullptr;
    ZrWidget *pressed_ = nullptr; // took the press; gets moves and the release
    ZrWidget *grab_ = nullptr;
    ZrWidget *lastPressed_ = nullptr; // for the double click
    ZrPoint position_;
    ZrPoint lastPressPosition_;
    int buttons_ = 0;
    int lastPressButton_ = 0;
    Climb *climbs_ = nullptr;
    ZrTimer doubleClickTimer_;
};
