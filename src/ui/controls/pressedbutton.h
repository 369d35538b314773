// A button that stays down until it is pressed again, or until another one of its group is.
#pragma once

#include "ui/controls/tipbutton.h"

class PressedButton : public TipButton
{
    ZR_OBJECT(PressedButton, TipButton)
public:
    explicit PressedButton(const ZrString &text = ZrString(), ZrWidget *parent = nullptr);
};
