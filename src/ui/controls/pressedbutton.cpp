#include "ui/controls/pressedbutton.h"

#include "ui/scale.h"

namespace
{

constexpr float PaddingUnits = 4; // short texts, close together

} // namespace

PressedButton::PressedButton(const ZrString &text, ZrWidget *parent) : TipButton(parent)
{
    setText(text);
    setCheckable(true);
    style().pushButtonOption().padding.set(
        0, ZrSides(0, unitsX(PaddingUnits), 0, unitsX(PaddingUnits)));
}
