// The line edit of the system: text of any language, from the keyboard for text.
#pragma once

#include "ui/controls/keyboardfield.h"

class LineEdit : public KeyboardField
{
    ZR_OBJECT(LineEdit, KeyboardField)
public:
    explicit LineEdit(ZrWidget *parent = nullptr) : KeyboardField(parent) {}

protected:
    Keyboard *makeKeyboard() override;
};
