// When tool tips come and go, and how they are shown unless somebody has another view.
#pragma once

#include <memory>
#include <zrguard>
#include <zrpoint>
#include <zrtimer>
#include <zrwidget>

// Shows the tip of one widget at a time.
class ZrToolTipView
{
public:
    virtual ~ZrToolTipView();
    // The widget's tool tip, for a pointer that rests at a point of the screen.
    virtual void showToolTip(ZrWidget *widget, const ZrPoint &global) = 0;
    virtual void hideToolTip() = 0;
};

// A tip shows once the pointer has rested on a widget that has one, or on a child of it, or the
// keys have, and until it has been read, the pointer leaves or the user acts.
class ZrToolTips : public ZrObject
{
    ZR_OBJECT(ZrToolTips, ZrObject)
public:
    static constexpr int RestMs = 700;
    static constexpr int ShownMs = 10000;

    ZrToolTips();
    // Null: a ZrTipLabel, which is what is there at first.
    void setView(std::unique_ptr<ZrToolTipView> view);

    // No button is held; null over nothing.
    void pointerMoved(ZrWidget *under, const ZrPoint &global);
    // Who comes by keys has no pointer to rest on the widget.
    void keysMoved(ZrWidget *focused);
    // No tip until the pointer or the keys move again.
    void dismiss();
    // The widget and all in it are not to be seen any more.
    void widgetHidden(const ZrWidget *widget);

private:
    void await(ZrWidget *owner, const ZrPoint &global);
    void rested();
    void hide();

    std::unique_ptr<ZrToolTipView> view_;
    ZrTimer rest_;
    ZrTimer shown_;
    ZrGuard<ZrWidget> owner_; // of the tip that shows or is waited for
    ZrPoint position_;
    bool isShown_ = false;
};
