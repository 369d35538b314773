// A page of a dialog on which one of a few things is chosen.
#pragma once

#include "ui/dialogs/dialogcontentbase.h"

#include <zrbuttongroup>

class ZrRadioButton;

class ChoicePage : public DialogContentBase
{
    ZR_OBJECT(ChoicePage, DialogContentBase)
public:
    explicit ChoicePage(ZrWidget *parent = nullptr) : DialogContentBase(parent) {}

    // The first one is chosen until the user says otherwise. Values are not negative.
    void addChoice(int value, const ZrString &text);
    // -1 while there is nothing to choose from.
    int value() const { return group_.checkedId(); }
    void setValue(int value);
    ZrRadioButton *choice(int value) const;

    void layoutForScale() override;
    ZrSize preferredSize() const override;

private:
    ZrButtonGroup group_;
};
