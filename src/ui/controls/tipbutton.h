// A button that tells what it does: its tool tip shows while the pointer or the keys rest on it.
#pragma once

#include <zrpushbutton>

class TipButton : public ZrPushButton
{
    ZR_OBJECT(TipButton, ZrPushButton)
public:
    using ZrPushButton::ZrPushButton;
};
