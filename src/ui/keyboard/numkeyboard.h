// The keyboard for digits.
#pragma once

#include "ui/keyboard/keyboard.h"

class NumKeyboard : public Keyboard
{
    ZR_OBJECT(NumKeyboard, Keyboard)
public:
    // `sign`: one more character that the field takes, such as "." or "-"; empty for none.
    explicit NumKeyboard(ZrWidget *target, const ZrString &sign = ZrString());
};
