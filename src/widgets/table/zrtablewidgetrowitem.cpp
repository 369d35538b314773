#include <zrtablewidgetrowitem>

#include <zrtablewidget>

ZrTableWidgetRowItem::ZrTableWidgetRowItem()
{
    row_ = this; // what is set for the row is its own look
}

ZrTableWidgetRowItem::~ZrTableWidgetRowItem() = default;

void ZrTableWidgetRowItem::setColumnCount(int count)
{
    if (int(cells_.size()) > count)
        cells_.resize(std::size_t(count));
}

ZrTableWidgetColItem *ZrTableWidgetRowItem::existingCell(int column) const
{
    return column >= 0 && column < int(cells_.size()) ? cells_[std::size_t(column)].get() : nullptr;
}

ZrTableWidgetColItem *ZrTableWidgetRowItem::cell(int column)
{
    ZrTableWidgetColItem *found = existingCell(column);
    if (found || !table_ || column < 0 || column >= table_->columnCount())
        return found;
    setCell(column, new ZrTableWidgetColItem); // taken over
    return existingCell(column);
}

void ZrTableWidgetRowItem::setCell(int column, ZrTableWidgetColItem *cell)
{
    std::unique_ptr<ZrTableWidgetColItem> owned(cell);
    if (!owned || !table_ || column < 0 || column >= table_->columnCount())
        return;
    if (int(cells_.size()) <= column)
        cells_.resize(std::size_t(column) + 1);
    owned->row_ = this;
    owned->column_ = column;
    cells_[std::size_t(column)] = std::move(owned);
    if (cell->widget())
        table_->adopt(*cell);
    cell->changed();
}

void ZrTableWidgetRowItem::setFont(const ZrFont &font)
{
    style().font.set(0, font);
    changed();
}

void ZrTableWidgetRowItem::setBackground(const ZrColor &color)
{
    style().background.set(0, color);
    changed();
}

void ZrTableWidgetRowItem::setForeground(const ZrColor &color)
{
    style().foreground.set(0, color);
    changed();
}

void ZrTableWidgetRowItem::setHeight(int height)
{
    if (table_ && index_ >= 0)
        table_->setRowHeight(index_, height);
    else if (table_)
        table_->setTitleHeight(height);
}

void ZrTableWidgetRowItem::passEnabling()
{
    for (const std::unique_ptr<ZrTableWidgetColItem> &cell : cells_)
        if (cell)
            cell->passEnabling();
}
