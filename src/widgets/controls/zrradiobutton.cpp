#include <zrradiobutton>

#include "widgets/style/buttonlayout.h"

ZrRadioButton::ZrRadioButton(const ZrString &text, ZrWidget *parent)
    : ZrAbstractButton(text, parent)
{
    setCheckable(true);
    setAutoExclusive(true);
}

ZrSize ZrRadioButton::sizeHint() const
{
    return indicatorButtonHint(*this, style().radioButton());
}

void ZrRadioButton::paintEvent(ZrPaintEvent *)
{
    style().drawRadioButton(this);
}
