#include "ui/controls/textedit.h"

#include "ui/keyboard/textkeyboard.h"

void TextEdit::openKeyboard()
{
    if (!isReadOnly() && !isServed())
        (new TextKeyboard(this, TextKeyboard::Open))->open(); // deletes itself
}

void TextEdit::keyPressEvent(ZrKeyEvent *event)
{
    if (event->key() == Zr::Key_Enter && !isReadOnly() && (isServed() || !typedHere_)) {
        event->accept();
        openKeyboard();
        return;
    }
    typedHere_ = typedHere_ || (!isServed() && !event->text().isEmpty());
    ZrTextEdit::keyPressEvent(event);
}

void TextEdit::mouseReleaseEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton)
        return ZrTextEdit::mouseReleaseEvent(event);
    event->accept();
    openKeyboard();
}

void TextEdit::focusOutEvent(ZrFocusEvent *event)
{
    typedHere_ = false;
    ZrTextEdit::focusOutEvent(event);
}
