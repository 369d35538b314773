#include "widgets/table/cellfocus.h"

void paintCellFocus(ZrPainter &painter, const ZrTableOption &group, const ZrRect &cell)
{
    const ZrColor *color = group.colors.get(Zr::TableCellFocusBorder);
    const int *ring = group.focusRing.get(0);
    const int thick = ring ? *ring : 1;
    if (!color || cell.isEmpty())
        return;
    const int w = cell.width();
    const int h = cell.height();
    painter.fillRect(ZrRect(cell.left(), cell.top(), w, thick), *color);
    painter.fillRect(ZrRect(cell.left(), cell.bottom() - thick + 1, w, thick), *color);
    painter.fillRect(ZrRect(cell.left(), cell.top(), thick, h), *color);
    painter.fillRect(ZrRect(cell.right() - thick + 1, cell.top(), thick, h), *color);
}
