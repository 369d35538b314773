#include "ui/controls/folderedit.h"

#include "ui/keyboard/textkeyboard.h"

FolderEdit::FolderEdit(ZrWidget *parent) : KeyboardField(parent)
{
    setAllowedCharacters(ZrCharacterSet::allBut(ZrString("\\:*?\"<>|")));
    setMaxBytes(PathBytes);
}

Keyboard *FolderEdit::makeKeyboard()
{
    return new TextKeyboard(this, TextKeyboard::Open); // deletes itself
}
