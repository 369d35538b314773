// The application's widget side: window stack, focus, and where pointer and key events go.
//
// Pointer data comes in raw, from the mouse thread by way of the event queue; what leaves are
// press, release, double click, move, wheel, enter, leave and hover events in each receiver's
// coordinates. Handlers may delete any widget, their own included. Widget thread only.
#pragma once

#include "widgets/zrtooltips.h"

#include <optional>
#include <zrapplication>
#include <zrcursor>
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
    // With null, windows that are hidden, or none any more, leave the list.
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

    // The view is told which widget's tip to show and where, and when to hide it. Null: the common
    // one.
    static void setToolTipView(std::unique_ptr<ZrToolTipView> view);
    // The user acts by other means than the pointer.
    static void dismissToolTip();

    // What widgets tell: one has another cursor, is hidden with all in it, is being destroyed.
    static void cursorChanged(const ZrWidget *widget);
    static void widgetHidden(ZrWidget *widget);
    static void forgetWidget(ZrWidget *widget);
    // Shows the cursor of the widget under the pointer again after somebody else set one.
    static void restoreCursor();

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
    bool isDoubleClick(const ZrWidget *target, int button);
    // The window that takes the mouse from all others, if any.
    ZrWidget *windowInForce() const;
    // Where a mouse event that hits `hit` really goes.
    ZrWidget *routed(ZrWidget *hit) const;
    // What the pointer counts as being over: nothing, where events would go elsewhere.
    ZrWidget *hoverTarget() const;
    void enterWidget(ZrWidget *widget);
    void leaveUpTo(const ZrWidget *widget);
    void enterBelow(ZrWidget *widget, const ZrWidget *ancestor);
    void sendCrossing(ZrWidget *widget, bool enters) const;
    void showCursor();
    void deliverClimbing(ZrWidget *widget, ZrMouseEvent &event) const;
    void closePopups();
    void focusTopWindow(const ZrWidget *before);
    static int layerOf(const ZrWidget *window);
    template <typename List>
    static void removeDead(List &list, const ZrObject *object);

    static ZrDesktop *instance_;

    ZrList<ZrWidget *> windows_; // visible ones, bottom first
    ZrList<ZrWidget *> modals_;
    ZrWidget *focus_ = nullptr;
    ZrWidget *underPointer_ = nullptr;
    ZrWidget *pressed_ = nullptr; // was hit by the press; gets moves and the release
    ZrWidget *grab_ = nullptr;
    ZrWidget *lastPressed_ = nullptr; // for the double click
    ZrPoint position_;
    ZrPoint lastPressPosition_;
    int buttons_ = 0;
    int lastPressButton_ = 0;
    std::optional<ZrCursor> cursor_; // on the screen; unset when somebody else set it
    ZrTimer doubleClickTimer_;
    ZrToolTips toolTips_;
};
