// The cells of a grid and what was worked out from them.
#pragma once

#include "widgets/layout/zrlayoutprivate.h"

#include <memory>
#include <zrgridlayout>
#include <zrlist>

// An item and the cells it covers; a negative end reaches to the last row or column.
struct ZrGridBox {
    ZrLayoutItem *item; // owned by the grid
    int row;
    int toRow;
    int col;
    int toCol;
};

// What a row needs at a certain width of the grid.
struct ZrGridLayoutSizeTriple {
    int minimum;
    int hint;
    int maximum;
};

class ZrGridLayoutPrivate : public ZrLayoutPrivate
{
public:
    ~ZrGridLayoutPrivate() override;

    void markDirty();
    void expandTo(int rows, int columns);
    // Fills rowData, colData and the sizes, without margins; no longer dirty.
    void setupData(int horizontalSpacing, int verticalSpacing);
    // Fills hfwRows and the heights for columns in `width` pixels.
    void calcHeightForWidth(int width);
    void distribute(const ZrRect &room);

    ZrVector<ZrLayoutStruct> rowData;
    ZrVector<ZrLayoutStruct> colData;
    ZrVector<int> rowStretch;
    ZrVector<int> colStretch;
    ZrVector<int> rowMinimum;
    ZrVector<int> colMinimum;
    ZrList<ZrGridBox *> things;
    ZrVector<ZrGridLayoutSizeTriple> hfwRows;
    int hfwWidth = -1; // -1 while unknown
    int hfwHeight = -1;
    int hfwMinHeight = -1;
    ZrSize sizeHint;
    ZrSize minSize;
    ZrSize maxSize;
    int expanding = 0; // a sum of ZrLayoutItem::Axis
    int horizontalSpacing = -1;
    int verticalSpacing = -1;
    bool addVertical = false;
    bool hasHfw = false;
    bool dirty = true;

private:
    // A thing's part on one axis.
    struct Cells {
        int first;
        int last;
        bool isOne() const { return first == last; }
    };
    Cells rowsOf(const ZrGridBox &box) const;
    Cells columnsOf(const ZrGridBox &box) const;
    Cells cellsOf(const ZrGridBox &box, ZrLayoutItem::Axis axis) const;

    void setupLine(ZrVector<ZrLayoutStruct> &line, ZrLayoutItem::Axis axis, int spacing);
    void takeSingleCells(ZrVector<ZrLayoutStruct> &line, ZrLayoutItem::Axis axis) const;
    static void topUp(ZrVector<ZrLayoutStruct> &line, const Cells &cells, int minimum, int hint);
    ZrVector<ZrLayoutStruct> rowsForColumns() const;
    int widthOf(const Cells &columns) const;
};
