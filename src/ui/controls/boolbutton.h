// A switch: on or off, told by the knob's side as well as by colour.
#pragma once

#include <zrpushbutton>

class BoolButton : public ZrPushButton
{
    ZR_OBJECT(BoolButton, ZrPushButton)
public:
    explicit BoolButton(ZrWidget *parent = nullptr);

    ZrSize sizeHint() const override;

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    const ZrPixmap &shownPicture() const;
};
