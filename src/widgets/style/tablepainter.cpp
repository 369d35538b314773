// A table's own part: what lies around its rows and titles, which paint themselves.
#include <zrstyle>

#include "widgets/style/boxmodel.h"
#include "widgets/style/stylepainter.h"

#include <zrpainter>
#include <zrtablewidget>

void ZrStyle::drawTable(ZrWidget *widget, const ZrTableOption *option) const
{
    const auto *table = zrPaintableAs<ZrTableWidget>(widget);
    if (!table)
        return;
    const ZrTableOption &group = option ? *option : this->table();
    const BoxModel box(*widget, group);
    ZrPainter painter(widget);
    if (const ZrColor *color = box.chain().pick(group.background))
        painter.fillRect(widget->rect(), *color);
    box.drawBorder(painter, widget->rect());
    // A current cell has the ring.
    if (widget->hasFocus() && table->currentColumn() < 0)
        box.drawRing(painter, widget->rect());
    // The corner between the titles and the row side.
    const ZrRect side = table->vHeader()->geometry();
    const ZrColor *corner = group.colors.get(Zr::TableTitleBackground);
    if (corner && table->vHeader()->isVisible())
        painter.fillRect(ZrRect(side.left(), table->hHeader()->geometry().top(), side.width(),
                                table->hHeader()->height()),
                         *corner);
}
