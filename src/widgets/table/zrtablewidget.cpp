// Rows, columns and cells.
#include <zrtablewidget>

#include "widgets/table/tableaxis.h"

#include <algorithm>
#include <numeric>
#include <zrscrollbar>

ZrTableWidget::ZrTableWidget(ZrWidget *parent)
    : ZrWidget(parent),
      viewPort_(new ZrTableWidgetViewPort(this)),        // a child
      hHeader_(new ZrTableWidgetHHeader(this)),          // a child
      vHeader_(new ZrTableWidgetVHeader(this)),          // a child
      vScrollBar_(new ZrScrollBar(Zr::Vertical, this)),  // a child
      hScrollBar_(new ZrScrollBar(Zr::Horizontal, this)) // a child
{
    setFocusPolicy(AnyFocus);
    for (ZrScrollBar *bar : {vScrollBar_, hScrollBar_}) {
        bar->hide();
        bar->setRange(0, 0);
    }
    connect(vScrollBar_, &vScrollBar_->valueChanged, this,
            zrSlot<&ZrTableWidget::scrolledVertically>);
    connect(hScrollBar_, &hScrollBar_->valueChanged, this,
            zrSlot<&ZrTableWidget::scrolledHorizontally>);
    setDefaultSizes();
}

ZrTableWidget::~ZrTableWidget()
{
    // With the widgets of the cells, so that no item has to let go of one.
    delete viewPort_;
    delete hHeader_;
}

bool ZrTableWidget::isCell(int row, int column) const
{
    return row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
}

// --- rows and columns ---

void ZrTableWidget::setRowCount(int count)
{
    count = std::max(0, count);
    if (count == rowCount())
        return;
    const bool lostCurrent = currentRow() >= count;
    rows().setCount(count);
    rowItems_.resize(std::size_t(count));
    vHeader_->hoverRow_ = -1;
    contentsChanged();
    if (lostCurrent)
        setCurrentCell(-1, -1);
}

void ZrTableWidget::setColumnCount(int count)
{
    count = std::max(0, count);
    if (count == columnCount())
        return;
    const bool lostCurrent = currentColumn() >= count;
    columns().setCount(count);
    hHeader_->setColumnCount(count);
    hHeader_->sortable_.resize(std::size_t(count));
    hHeader_->hoverCol_ = -1;
    if (hHeader_->sortColumn_ >= count)
        hHeader_->sortColumn_ = -1;
    for (const std::unique_ptr<ZrTableWidgetRowItem> &row : rowItems_)
        if (row)
            row->setColumnCount(count);
    contentsChanged();
    if (lostCurrent)
        setCurrentCell(-1, -1);
}

void ZrTableWidget::renumberFrom(int row)
{
    for (int i = row; i < rowCount(); ++i)
        if (ZrTableWidgetRowItem *item = existingRow(i))
            item->index_ = i;
}

void ZrTableWidget::insertRow(int row)
{
    if (row < 0 || row > rowCount())
        return;
    rows().insert(row);
    rowItems_.insert(rowItems_.begin() + row, nullptr);
    renumberFrom(row);
    vHeader_->hoverRow_ = -1;
    const bool moved = currentRow() >= row;
    if (moved)
        ++vHeader_->currentRow_;
    contentsChanged();
    if (moved)
        emit(this, &currentCellChanged);
}

void ZrTableWidget::removeRow(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    rows().remove(row);
    rowItems_.erase(rowItems_.begin() + row);
    renumberFrom(row);
    vHeader_->hoverRow_ = -1;
    const int current = currentRow();
    // Whoever deletes rows one after the other finds the next one current.
    const bool moved = current >= row && (current > row || current == rowCount());
    if (moved)
        --vHeader_->currentRow_;
    if (current >= row && rowCount() == 0)
        hHeader_->currentCol_ = -1;
    contentsChanged();
    if (current >= row)
        emit(this, &currentCellChanged);
}

void ZrTableWidget::setColumnTitle(int column, const ZrString &title)
{
    if (ZrTableWidgetColItem *item = hHeader_->cell(column))
        item->setText(title);
}

int ZrTableWidget::firstRowShown() const
{
    int row = 0;
    while (row < rowCount() && rows().size(row) == 0)
        ++row;
    return row < rowCount() ? row : -1;
}

// --- cells ---

ZrTableWidgetRowItem *ZrTableWidget::existingRow(int row) const
{
    return row >= 0 && row < rowCount() ? rowItems_[std::size_t(row)].get() : nullptr;
}

ZrTableWidgetColItem *ZrTableWidget::existingItem(int row, int column) const
{
    const ZrTableWidgetRowItem *item = row == -1 ? hHeader_ : existingRow(row);
    return item ? item->existingCell(column) : nullptr;
}

ZrTableWidgetRowItem *ZrTableWidget::rowItem(int row)
{
    if (row < 0 || row >= rowCount())
        return nullptr;
    std::unique_ptr<ZrTableWidgetRowItem> &item = rowItems_[std::size_t(row)];
    if (!item) {
        item = std::make_unique<ZrTableWidgetRowItem>();
        item->table_ = this;
        item->index_ = row;
    }
    return item.get();
}

ZrTableWidgetColItem *ZrTableWidget::item(int row, int column)
{
    return isCell(row, column) ? rowItem(row)->cell(column) : nullptr;
}

void ZrTableWidget::setItem(int row, int column, ZrTableWidgetColItem *item)
{
    std::unique_ptr<ZrTableWidgetColItem> owned(item);
    if (isCell(row, column))
        rowItem(row)->setCell(column, owned.release());
}

void ZrTableWidget::setText(int row, int column, const ZrString &text)
{
    if (ZrTableWidgetColItem *cell = item(row, column))
        cell->setText(text);
}

ZrString ZrTableWidget::text(int row, int column) const
{
    const ZrTableWidgetColItem *cell = isCell(row, column) ? existingItem(row, column) : nullptr;
    return cell ? cell->text() : ZrString();
}

void ZrTableWidget::setCellWidget(int row, int column, ZrWidget *widget)
{
    if (ZrTableWidgetColItem *cell = item(row, column))
        cell->setWidget(widget);
}

ZrWidget *ZrTableWidget::cellWidget(int row, int column) const
{
    const ZrTableWidgetColItem *cell = isCell(row, column) ? existingItem(row, column) : nullptr;
    return cell ? cell->widget() : nullptr;
}

ZrTableCellStyle &ZrTableWidget::cellStyle()
{
    contentsChanged(); // when the caller has written
    return cellStyle_;
}

// --- spans ---

void ZrTableWidget::setSpan(int row, int column, int rows, int columns)
{
    if (!isCell(row, column))
        return;
    const auto sameOrigin = [row, column](const Span &span) {
        return span.row == row && span.column == column;
    };
    spans_.erase(std::remove_if(spans_.begin(), spans_.end(), sameOrigin), spans_.end());
    if (rows > 1 || columns > 1)
        spans_.push_back({row, column, std::max(1, rows), std::max(1, columns)});
    contentsChanged();
}

const ZrTableWidget::Span *ZrTableWidget::spanAt(int row, int column) const
{
    for (const Span &span : spans_)
        if (span.holds(row, column))
            return &span;
    return nullptr;
}

ZrRect ZrTableWidget::spanRect(const Span &span) const
{
    const int right = std::min(span.column + span.columns, columnCount());
    const int bottom = std::min(span.row + span.rows, rowCount());
    return ZrRect::fromEdges(columns().edge(std::min(span.column, right)),
                             rows().edge(std::min(span.row, bottom)), columns().edge(right) - 1,
                             rows().edge(bottom) - 1)
        .translated(-hScrollBar_->value(), -vScrollBar_->value());
}

// In coordinates of the view port.
ZrRegion ZrTableWidget::mergedRegion() const
{
    ZrRegion merged;
    for (const Span &span : spans_)
        merged += spanRect(span) & viewPort_->rect();
    return merged;
}

// --- states ---

int ZrTableWidget::cellState(int row, int column) const
{
    const bool wholeRow = selectionMode_ == SelectRow || column < 0;
    const auto holds = [=](int theRow, int theColumn) {
        if (row < 0)
            return theRow < 0 && column == theColumn && column >= 0;
        return row == theRow && (selectionMode_ == SelectRow || column == theColumn);
    };
    int flags = 0;
    const ZrTableWidgetRowItem *item = existingRow(row);
    if (!isEnabled() || (item && !item->enabled_))
        flags |= ZrTableWidgetColItem::Disabled;
    else if (holds(vHeader_->hoverRow_, hHeader_->hoverCol_))
        flags |= ZrTableWidgetColItem::Hovered;
    if (row == currentRow() && column == currentColumn() && column >= 0)
        flags |= ZrTableWidgetColItem::Current;
    const bool selects = selectionMode_ == SelectRow || (selectionMode_ == SelectCell && !wholeRow);
    if (selects && row >= 0 && holds(currentRow(), currentColumn()))
        flags |= ZrTableWidgetColItem::Selected;
    return flags;
}

void ZrTableWidget::setAlternatingRowColors(bool alternating)
{
    if (alternating == alternating_)
        return;
    alternating_ = alternating;
    viewPort_->update();
}

void ZrTableWidget::setGridVisible(bool visible)
{
    if (visible == gridVisible_)
        return;
    gridVisible_ = visible;
    viewPort_->update();
}

void ZrTableWidget::setSelectionMode(SelectionMode mode)
{
    if (mode == selectionMode_)
        return;
    selectionMode_ = mode;
    viewPort_->update();
}

// --- order ---

void ZrTableWidget::sortByColumn(int column, Zr::SortOrder order)
{
    if (column < 0 || column >= columnCount())
        return;
    static const ZrTableWidgetColItem nothing;
    const auto cellOf = [this, column](int row) -> const ZrTableWidgetColItem & {
        const ZrTableWidgetColItem *cell = existingItem(row, column);
        return cell ? *cell : nothing;
    };
    std::vector<int> places(rowItems_.size());
    std::iota(places.begin(), places.end(), 0);
    std::stable_sort(places.begin(), places.end(), [&cellOf, order](int left, int right) {
        return order == Zr::Ascending ? cellOf(left).sortsBefore(cellOf(right))
                                      : cellOf(right).sortsBefore(cellOf(left));
    });
    std::vector<std::unique_ptr<ZrTableWidgetRowItem>> sortedItems;
    sortedItems.reserve(places.size());
    for (const int from : places)
        sortedItems.push_back(std::move(rowItems_[std::size_t(from)]));
    rowItems_.swap(sortedItems);
    rows().reorder(places);
    renumberFrom(0);
    hHeader_->sortColumn_ = column;
    hHeader_->sortOrder_ = order;
    vHeader_->hoverRow_ = -1;
    const int before = currentRow();
    if (before >= 0)
        vHeader_->currentRow_ =
            int(std::find(places.begin(), places.end(), before) - places.begin());
    contentsChanged();
    const ZrGuard<ZrTableWidget> self(this);
    emit(this, &sorted);
    if (self && currentRow() != before)
        emit(this, &currentCellChanged);
}
