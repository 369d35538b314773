// A button that tells what it does: its tool tip shows while the pointer or the keys rest on it.
#pragma once

#include <memory>
#include <zrpushbutton>
#include <zrtimer>

class ZrTipLabel;

class TipButton : public ZrPushButton
{
    ZR_OBJECT(TipButton, ZrPushButton)
public:
    static constexpr int TipDelayMs = 600;

    explicit TipButton(ZrWidget *parent = nullptr);
    ~TipButton() override;

    bool isTipVisible() const { return tip_ != nullptr; }

protected:
    void mousePressEvent(ZrMouseEvent *event) override;
    void keyPressEvent(ZrKeyEvent *event) override;
    void hoverEnterEvent(ZrHoverEvent *event) override;
    void hoverLeaveEvent(ZrHoverEvent *event) override;
    void focusInEvent(ZrFocusEvent *event) override;
    void focusOutEvent(ZrFocusEvent *event) override;
    void hideEvent(ZrHideEvent *event) override;

private:
    void awaitTip();
    void showTip();
    void hideTip();

    std::unique_ptr<ZrTipLabel> tip_; // while it shows
    ZrTimer delay_;
};
