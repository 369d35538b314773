// A line that is only read. The pointer's tip tells the whole of it.
#pragma once

#include "ui/controls/lineedit.h"

class LineTextDisplayer : public LineEdit
{
    ZR_OBJECT(LineTextDisplayer, LineEdit)
public:
    explicit LineTextDisplayer(ZrWidget *parent = nullptr) : LineEdit(parent)
    {
        setReadOnly(true);
        setFocusPolicy(NoFocus);
        connect(this, &textChanged, this, zrSlot<&LineTextDisplayer::tellWhole>);
    }

private:
    void tellWhole() { setToolTip(text()); }
};
