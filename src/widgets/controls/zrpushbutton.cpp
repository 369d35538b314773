#include <zrpushbutton>

#include "widgets/style/buttonlayout.h"

ZrPushButton::ZrPushButton(const ZrString &text, ZrWidget *parent) : ZrAbstractButton(text, parent)
{
}

ZrSize ZrPushButton::sizeHint() const
{
    return pushButtonHint(*this, style().pushButton());
}

void ZrPushButton::paintEvent(ZrPaintEvent *)
{
    style().drawPushButton(this);
}
