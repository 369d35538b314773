#include <zrtablewidgetviewport>

#include "widgets/table/cellfocus.h"
#include "widgets/table/tableaxis.h"

#include <algorithm>
#include <zrpainter>
#include <zrscrollbar>
#include <zrtablewidget>

namespace
{

// The bar at the leading edge of the selected row, as a share of its height.
constexpr int MarkShare = 12;

} // namespace

ZrTableWidgetViewPort::ZrTableWidgetViewPort(ZrTableWidget *table) : ZrWidget(table), owner_(*table)
{
    setAttribute(MouseTracking);
}

bool ZrTableWidgetViewPort::event(ZrEvent *event)
{
    return owner_.viewPortEvent(event) || ZrWidget::event(event);
}

std::vector<ZrTableWidgetViewPort::Row> ZrTableWidgetViewPort::visibleRows() const
{
    std::vector<Row> found;
    const TableAxis &rows = owner_.rows();
    const int offset = owner_.vScrollBar()->value();
    for (int row = std::max(0, rows.at(offset)); row < rows.count(); ++row) {
        const int top = rows.edge(row) - offset;
        if (top >= height())
            break;
        if (rows.size(row) >= 1)
            found.push_back({row, ZrRect(0, top, width(), rows.size(row))});
    }
    return found;
}

void ZrTableWidgetViewPort::paintEvent(ZrPaintEvent *event)
{
    const ZrTableOption &group = owner_.style().table();
    const std::vector<Row> rows = visibleRows();
    ZrPainter painter(this);
    // By place and not by row: what scrolls by an odd number of rows changes its ground.
    if (const ZrColor *color = group.colors.get(Zr::TableAlternateRow))
        for (std::size_t i = 1; owner_.alternatingRowColors() && i < rows.size(); i += 2)
            painter.fillRect(rows[i].rect, *color);
    const ZrRegion merged = owner_.mergedRegion();
    fillAreas(painter, group, merged);
    for (const Row &row : rows)
        if (event->region().intersects(row.rect))
            paintRow(painter, row, event->region());
    for (const ZrTableWidget::Span &span : owner_.spans_) {
        const ZrRect place = owner_.spanRect(span);
        if (event->region().intersects(place))
            paintCell(painter, span.row, span.column, place);
    }
    if (owner_.isGridVisible())
        paintGrid(painter, rows, merged);
    if (owner_.hasFocus() && owner_.currentRow() >= 0)
        paintCellFocus(painter, group,
                       owner_.cellRect(owner_.currentRow(), owner_.currentColumn()));
}

void ZrTableWidgetViewPort::fillAreas(ZrPainter &painter, const ZrTableOption &group,
                                      const ZrRegion &merged) const
{
    if (const ZrColor *color = group.colors.get(Zr::TableMergedArea))
        for (const ZrRect &rect : merged)
            painter.fillRect(rect, *color);
    const int right = owner_.columns().length() - owner_.hScrollBar()->value();
    const int bottom = owner_.rows().length() - owner_.vScrollBar()->value();
    const ZrColor *below = group.colors.get(Zr::TableBottomArea);
    if (below && bottom < height())
        painter.fillRect(ZrRect(0, bottom, width(), height() - bottom), *below);
    const ZrColor *beside = group.colors.get(Zr::TableRightArea);
    if (beside && right < width())
        painter.fillRect(ZrRect(right, 0, width() - right, bottom), *beside);
}

void ZrTableWidgetViewPort::paintRow(ZrPainter &painter, const Row &row, const ZrRegion &region)
{
    const ZrTableOption &group = owner_.style().table();
    const int state = owner_.cellState(row.index, -1);
    const ZrTableWidgetRowItem *item = owner_.existingRow(row.index);
    const ZrColor *ground = item ? item->pick(&ZrTableCellStyle::background) : nullptr;
    if (state & ZrTableWidgetColItem::Selected)
        ground = group.colors.get(Zr::TableCurrentBackground);
    else if (state & ZrTableWidgetColItem::Hovered)
        ground = group.colors.get(Zr::TableHoverBackground);
    if (ground)
        painter.fillRect(row.rect, *ground);
    const TableAxis &columns = owner_.columns();
    const int offset = owner_.hScrollBar()->value();
    for (int column = std::max(0, columns.at(offset)); column < columns.count(); ++column) {
        const ZrRect place(columns.edge(column) - offset, row.rect.top(), columns.size(column),
                           row.rect.height());
        if (place.left() >= width())
            break;
        if (!place.isEmpty() && region.intersects(place) && !owner_.spanAt(row.index, column))
            paintCell(painter, row.index, column, place);
    }
    const ZrColor *mark = owner_.style().list().mark.get(0);
    if (mark && state & ZrTableWidgetColItem::Selected)
        painter.fillRect(ZrRect(0, row.rect.top(), std::max(2, row.rect.height() / MarkShare),
                                row.rect.height()),
                         *mark);
}

void ZrTableWidgetViewPort::paintCell(ZrPainter &painter, int row, int column,
                                      const ZrRect &place) const
{
    const ZrTableOption &group = owner_.style().table();
    ZrTableWidgetColItem *item = owner_.existingItem(row, column);
    const bool byCell = owner_.selectionMode() != ZrTableWidget::SelectRow;
    const int state = byCell ? owner_.cellState(row, column) : 0;
    const ZrColor *ground =
        item && item->style_ ? item->pick(&ZrTableCellStyle::background) : nullptr;
    if (state & ZrTableWidgetColItem::Selected)
        ground = group.colors.get(Zr::TableCurrentBackground);
    else if (state & ZrTableWidgetColItem::Hovered)
        ground = group.colors.get(Zr::TableHoverBackground);
    if (ground)
        painter.fillRect(place, *ground);
    if (!item)
        return;
    // A widget stands where it was put when the table was arranged or scrolled.
    if (!item->widget())
        item->setGeometry(place.left(), place.top(), place.width(), place.height());
    item->paint(painter);
}

void ZrTableWidgetViewPort::paintGrid(ZrPainter &painter, const std::vector<Row> &rows,
                                      const ZrRegion &merged) const
{
    const ZrColor *color = owner_.style().table().colors.get(Zr::TableGrid);
    if (!color)
        return;
    if (!merged.isEmpty())
        painter.setClipRegion(ZrRegion(rect()) - merged);
    for (const Row &row : rows)
        painter.fillRect(ZrRect(0, row.rect.bottom(), width(), 1), *color);
    if (merged.isEmpty())
        return;
    painter.setClipRegion(ZrRegion(rect()));
    for (const ZrTableWidget::Span &span : owner_.spans_) {
        const ZrRect place = owner_.spanRect(span);
        painter.fillRect(ZrRect(place.left(), place.bottom(), place.width(), 1), *color);
    }
}
