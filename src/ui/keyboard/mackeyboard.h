// The keyboard for addresses in hexadecimal: MAC and IPv6.
#pragma once

#include "ui/keyboard/keyboard.h"

class MacKeyboard : public Keyboard
{
    ZR_OBJECT(MacKeyboard, Keyboard)
public:
    explicit MacKeyboard(ZrWidget *target);
};
