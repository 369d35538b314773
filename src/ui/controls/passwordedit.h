// Password entry. Whoever takes the text wipes the copy with zrWipe().
#pragma once

#include "ui/controls/lineedit.h"

class PasswordEdit : public LineEdit
{
    ZR_OBJECT(PasswordEdit, LineEdit)
public:
    explicit PasswordEdit(ZrWidget *parent = nullptr) : LineEdit(parent) { setEchoMode(Password); }
};
