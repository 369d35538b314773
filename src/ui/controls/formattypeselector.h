// What a format is to erase from a disk.
#pragma once

#include "ui/controls/choicepage.h"

class FormatTypeSelector : public ChoicePage
{
    ZR_OBJECT(FormatTypeSelector, ChoicePage)
public:
    // Sets of what is erased.
    enum Type { Recordings = 1, AiData = 2, Everything = Recordings | AiData };

    explicit FormatTypeSelector(ZrWidget *parent = nullptr);

    Type type() const { return Type(value()); }
};
