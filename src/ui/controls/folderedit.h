// The path of a folder. Characters that file systems of memory sticks refuse cannot be typed.
#pragma once

#include "ui/controls/keyboardfield.h"

class FolderEdit : public KeyboardField
{
    ZR_OBJECT(FolderEdit, KeyboardField)
public:
    static constexpr int PathBytes = 255;

    explicit FolderEdit(ZrWidget *parent = nullptr);

protected:
    Keyboard *makeKeyboard() override;
};
