// One split mode: a matrix of cells, some of them merged.
#pragma once

#include <zrobject>
#include <zrvector>

class ZrVideoScreenLayout : public ZrObject
{
    ZR_OBJECT(ZrVideoScreenLayout, ZrObject)
public:
    ZrVideoScreenLayout(int rows, int columns, ZrObject *parent);

    int cellCount() const { return cellCount_; }
    void dimensions(int &rows, int &columns) const;
    // 1 a plain cell, 0 covered by a merged block, n the top left of a block of n x n; 0 outside.
    int spanAt(int row, int column) const;
    bool isMerged() const { return cellCount_ != rows_ * columns_; }
    // Grows the block at (row, column) to span x span. What does not fit the matrix changes
    // nothing.
    void merge(int row, int column, int span);

private:
    static bool cover(ZrVector<std::uint8_t> &cells, int index, std::uint8_t &count);

    std::uint8_t rows_;
    std::uint8_t columns_;
    ZrVector<std::uint8_t> cells_; // row-major
    std::uint8_t cellCount_;
};
