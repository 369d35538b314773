#include "live/zrvideoscreenlayout.h"

ZrVideoScreenLayout::ZrVideoScreenLayout(int rows, int columns, ZrObject *parent)
    : ZrObject(parent),
      rows_(std::uint8_t(rows)),
      columns_(std::uint8_t(columns)),
      cellCount_(std::uint8_t(rows * columns))
{
    for (int i = 0; i < rows * columns; ++i)
        cells_.append(1);
}

void ZrVideoScreenLayout::dimensions(int &rows, int &columns) const
{
    rows = rows_;
    columns = columns_;
}

int ZrVideoScreenLayout::spanAt(int row, int column) const
{
    if (row < 0 || row >= rows_ || column < 0 || column >= columns_)
        return 0;
    return cells_.at(row * columns_ + column);
}

bool ZrVideoScreenLayout::cover(ZrVector<std::uint8_t> &cells, int index, std::uint8_t &count)
{
    if (cells.at(index) != 1)
        return false;
    cells[index] = 0;
    --count;
    return true;
}

void ZrVideoScreenLayout::merge(int row, int column, int span)
{
    const int present = spanAt(row, column);
    if (present == 0 || span <= present || row + span > rows_ || column + span > columns_)
        return;
    // On a copy: a block that meets another one leaves the matrix as it was.
    ZrVector<std::uint8_t> cells = cells_;
    for (int size = present; size < span; ++size) {
        for (int i = 0; i < size; ++i) {
            if (!cover(cells, (row + i) * columns_ + column + size, cellCount_) ||
                !cover(cells, (row + size) * columns_ + column + i, cellCount_))
                return;
        }
        if (!cover(cells, (row + size) * columns_ + column + size, cellCount_))
            return;
    }
    cells[row * columns_ + column] = std::uint8_t(span);
    cells_ = cells;
}
