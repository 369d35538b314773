#include "widgets/zrtooltips.h"

ZrToolTipView::~ZrToolTipView() = default;

ZrToolTips::ZrToolTips()
{
    rest_.setSingleShot(true);
    rest_.setInterval(RestMs);
    connect(&rest_, &rest_.timeout, this, zrSlot<&ZrToolTips::pointerRested>);
    shown_.setSingleShot(true);
    shown_.setInterval(ShownMs);
    connect(&shown_, &shown_.timeout, this, zrSlot<&ZrToolTips::hide>);
}

void ZrToolTips::setView(std::unique_ptr<ZrToolTipView> view)
{
    dismiss();
    view_ = std::move(view);
}

void ZrToolTips::pointerMoved(ZrWidget *under, const ZrPoint &global)
{
    ZrWidget *owner = under;
    while (owner && owner->toolTip().isEmpty())
        owner = owner->parentWidget();
    position_ = global;
    if (isShown_ && owner && owner == owner_.get())
        return;
    dismiss();
    owner_ = owner;
    if (owner && view_)
        rest_.start();
}

void ZrToolTips::pointerRested()
{
    if (!owner_ || !owner_->isVisible() || !view_)
        return;
    isShown_ = true;
    shown_.start();
    view_->showToolTip(owner_.get(), position_);
}

// The owner stays: a pointer that moves on inside it does not bring back what has been read.
void ZrToolTips::hide()
{
    if (view_)
        view_->hideToolTip();
}

void ZrToolTips::dismiss()
{
    rest_.stop();
    shown_.stop();
    owner_ = nullptr;
    if (isShown_) {
        isShown_ = false;
        hide();
    }
}

void ZrToolTips::widgetHidden(const ZrWidget *widget)
{
    if (owner_ && widget->isAncestorOf(owner_.get()))
        dismiss();
}
