#include "ui/controls/lineedit.h"

#include "ui/keyboard/textkeyboard.h"

Keyboard *LineEdit::makeKeyboard()
{
    return new TextKeyboard(this, echoMode() == Password ? TextKeyboard::Secret
                                                         : TextKeyboard::Open); // deletes itself
}
