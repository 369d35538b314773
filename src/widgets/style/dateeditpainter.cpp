// A day, and the sign at the field's end that tells where another one is chosen.
#include <zrstyle>

#include "widgets/style/boxmodel.h"
#include "widgets/style/drawpicture.h"
#include "widgets/style/stylepainter.h"

#include <zrdateedit>
#include <zrfontmetrics>

void ZrStyle::drawDateEdit(ZrWidget *widget, const ZrDateEditOption *group) const
{
    const auto *edit = zrPaintableAs<ZrDateEdit>(widget);
    if (!edit)
        return;
    const ZrDateEditOption &option = group ? *group : dateEdit();
    const BoxModel box(*widget, option, edit->isPopupOpen());
    ZrPainter painter(widget);
    ZrRect contents = box.draw(painter, widget->rect());
    if (edit->isPopupOpen())
        box.drawRing(painter, widget->rect());
    const ZrRect arrow = edit->arrowRect();
    if (const ZrPixmap *picture = box.chain().pick(option.downArrow)) {
        const int side = ZrFontMetrics::lineHeight(box.font());
        drawPictureInMiddle(painter, arrow, ZrSize(side, side), *picture);
    }
    contents.setRight(arrow.left() - 1);
    if (box.prepareText(painter))
        painter.drawText(contents, box.alignment(), edit->shownText());
}
