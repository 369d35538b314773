#include "widgets/zrtooltips.h"

#include <zrtiplabel>

namespace
{

class LabelView : public ZrToolTipView
{
public:
    void showToolTip(ZrWidget *widget, const ZrPoint &global) override
    {
        label_ = std::make_unique<ZrTipLabel>();
        label_->setText(widget->toolTip());
        label_->showAt(global);
    }
    void hideToolTip() override { label_.reset(); }

private:
    std::unique_ptr<ZrTipLabel> label_;
};

} // namespace

ZrToolTipView::~ZrToolTipView() = default;

ZrToolTips::ZrToolTips() : view_(std::make_unique<LabelView>())
{
    rest_.setSingleShot(true);
    rest_.setInterval(RestMs);
    connect(&rest_, &rest_.timeout, this, zrSlot<&ZrToolTips::rested>);
    shown_.setSingleShot(true);
    shown_.setInterval(ShownMs);
    connect(&shown_, &shown_.timeout, this, zrSlot<&ZrToolTips::hide>);
}

void ZrToolTips::setView(std::unique_ptr<ZrToolTipView> view)
{
    dismiss();
    view_ = view ? std::move(view) : std::make_unique<LabelView>();
}

void ZrToolTips::pointerMoved(ZrWidget *under, const ZrPoint &global)
{
    ZrWidget *owner = under;
    while (owner && owner->toolTip().isEmpty())
        owner = owner->parentWidget();
    if (isShown_ && owner && owner == owner_.get())
        return;
    await(owner, global);
}

void ZrToolTips::keysMoved(ZrWidget *focused)
{
    if (!focused->toolTip().isEmpty())
        await(focused, focused->mapToGlobal(focused->rect().center()));
}

void ZrToolTips::await(ZrWidget *owner, const ZrPoint &global)
{
    dismiss();
    owner_ = owner;
    position_ = global;
    if (owner)
        rest_.start();
}

void ZrToolTips::rested()
{
    if (!owner_ || !owner_->isVisible())
        return;
    isShown_ = true;
    shown_.start();
    view_->showToolTip(owner_.get(), position_);
}

// The owner stays: a pointer that moves on inside it does not bring back what has been read.
void ZrToolTips::hide()
{
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
