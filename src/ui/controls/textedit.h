// A text of many lines with a keyboard on the screen: Enter and a click open it, and its Enter ends
// the entry. A real keyboard's Enter, after text that it typed, begins a new line.
#pragma once

#include <zrtextedit>

class TextEdit : public ZrTextEdit
{
    ZR_OBJECT(TextEdit, ZrTextEdit)
public:
    using ZrTextEdit::ZrTextEdit;

protected:
    void keyPressEvent(ZrKeyEvent *event) override;
    void mouseReleaseEvent(ZrMouseEvent *event) override;
    void focusOutEvent(ZrFocusEvent *event) override;

private:
    void openKeyboard();

    bool typedHere_ = false; // since it got the focus, without the keyboard on the screen
};
