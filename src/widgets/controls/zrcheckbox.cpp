#include <zrcheckbox>

#include "widgets/style/buttonlayout.h"

ZrCheckBox::ZrCheckBox(const ZrString &text, ZrWidget *parent) : ZrAbstractButton(text, parent)
{
    setCheckable(true);
}

ZrSize ZrCheckBox::sizeHint() const
{
    return indicatorButtonHint(*this, style().checkBox());
}

void ZrCheckBox::paintEvent(ZrPaintEvent *)
{
    style().drawCheckBox(this);
}
