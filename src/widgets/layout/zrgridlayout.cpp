#include <zrgridlayout>

#include "widgets/layout/zrgridlayoutprivate.h"

#include <cstdio>
#include <zrwidget>

ZrGridLayout::ZrGridLayout(ZrWidget *parent) : ZrLayout(std::make_unique<ZrGridLayoutPrivate>())
{
    if (parent)
        parent->setLayout(this);
}

ZrGridLayoutPrivate &ZrGridLayout::grid() const
{
    return static_cast<ZrGridLayoutPrivate &>(data());
}

ZrGridLayoutPrivate &ZrGridLayout::cleanGrid() const
{
    ZrGridLayoutPrivate &data = grid();
    if (!data.dirty)
        return data;
    data.setupData(data.horizontalSpacing >= 0 ? data.horizontalSpacing : spacing(),
                   data.verticalSpacing >= 0 ? data.verticalSpacing : spacing());
    return data;
}

// --- items ---

void ZrGridLayout::addWidget(ZrWidget *widget, int row, int column, int rowSpan, int columnSpan,
                             int alignment)
{
    if (!isPlaceable(widget))
        return;
    addChildWidget(widget);
    auto *item = new ZrWidgetItemV2(widget); // the grid owns it
    item->setAlignment(alignment);
    addItem(item, row, column, rowSpan, columnSpan);
}

void ZrGridLayout::addLayout(ZrLayout *layout, int row, int column, int rowSpan, int columnSpan)
{
    addItem(layout, row, column, rowSpan, columnSpan);
}

void ZrGridLayout::addItem(ZrLayoutItem *item, int row, int column, int rowSpan, int columnSpan)
{
    row = std::max(row, 0);
    column = std::max(column, 0);
    const int toRow = rowSpan < 0 ? -1 : row + rowSpan - 1;
    const int toColumn = columnSpan < 0 ? -1 : column + columnSpan - 1;
    if (rowSpan == 0)
        std::puts("ZrGridLayout: Multi-cell fromRow greater than toRow");
    if (columnSpan == 0)
        std::puts("ZrGridLayout: Multi-cell fromCol greater than toCol");
    if (!adopt(item))
        return;
    grid().expandTo(std::max(row, toRow) + 1, std::max(column, toColumn) + 1);
    grid().things.append(new ZrGridBox{item, row, toRow, column, toColumn});
    invalidate();
}

void ZrGridLayout::addItem(ZrLayoutItem *item)
{
    const ZrGridLayoutPrivate &data = grid();
    if (data.things.isEmpty()) {
        addItem(item, 0, 0);
        return;
    }
    const ZrGridBox &last = *data.things.last();
    int row = last.row, column = last.col;
    if (data.addVertical) {
        column += row + 1 < rowCount() ? 0 : 1;
        row = row + 1 < rowCount() ? row + 1 : 0;
    } else {
        row += column + 1 < columnCount() ? 0 : 1;
        column = column + 1 < columnCount() ? column + 1 : 0;
    }
    addItem(item, row, column);
}

void ZrGridLayout::setAddDirection(AddDirection direction)
{
    grid().addVertical = direction == DownColumns;
}

int ZrGridLayout::count() const
{
    return grid().things.size();
}

ZrLayoutItem *ZrGridLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? grid().things.at(index)->item : nullptr;
}

ZrLayoutItem *ZrGridLayout::takeAt(int index)
{
    const std::unique_ptr<ZrGridBox> taken(grid().things.takeAt(index));
    return release(taken->item);
}

// --- rows and columns ---

void ZrGridLayout::setRowStretch(int row, int stretch)
{
    grid().expandTo(row + 1, 0);
    grid().rowStretch[row] = std::max(stretch, 0);
    invalidate();
}

void ZrGridLayout::setColumnStretch(int column, int stretch)
{
    grid().expandTo(0, column + 1);
    grid().colStretch[column] = std::max(stretch, 0);
    invalidate();
}

void ZrGridLayout::setRowMinimumHeight(int row, int height)
{
    grid().expandTo(row + 1, 0);
    grid().rowMinimum[row] = boundedSize(height);
    invalidate();
}

void ZrGridLayout::setColumnMinimumWidth(int column, int width)
{
    grid().expandTo(0, column + 1);
    grid().colMinimum[column] = boundedSize(width);
    invalidate();
}

void ZrGridLayout::setHorizontalSpacing(int spacing)
{
    grid().horizontalSpacing = spacing;
    invalidate();
}

void ZrGridLayout::setVerticalSpacing(int spacing)
{
    grid().verticalSpacing = spacing;
    invalidate();
}

int ZrGridLayout::rowCount() const
{
    return grid().rowData.size();
}

int ZrGridLayout::columnCount() const
{
    return grid().colData.size();
}

// --- the layout ---

void ZrGridLayout::setGeometry(const ZrRect &rect)
{
    if (isPlacedAt(rect))
        return;
    cleanGrid();
    grid().distribute(beginPlacement(rect));
}

ZrSize ZrGridLayout::sizeHint() const
{
    return withMargins(cleanGrid().sizeHint);
}

ZrSize ZrGridLayout::minimumSize() const
{
    return withMargins(cleanGrid().minSize);
}

ZrSize ZrGridLayout::maximumSize() const
{
    return unlessAligned(withMargins(cleanGrid().maxSize));
}

int ZrGridLayout::expandingDirections() const
{
    return unlessAligned(cleanGrid().expanding);
}

bool ZrGridLayout::hasHeightForWidth() const
{
    return cleanGrid().hasHfw;
}

int ZrGridLayout::heightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    const int room = width - marginSize().width();
    if (room != grid().hfwWidth)
        grid().calcHeightForWidth(room);
    return boundedSize(grid().hfwHeight + marginSize().height());
}

int ZrGridLayout::minimumHeightForWidth(int width) const
{
    return heightForWidth(width) < 0 ? -1
                                     : boundedSize(grid().hfwMinHeight + marginSize().height());
}

void ZrGridLayout::invalidate()
{
    grid().markDirty();
    ZrLayout::invalidate();
}
