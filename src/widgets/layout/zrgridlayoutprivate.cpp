#include "widgets/layout/zrgridlayoutprivate.h"

#include <vector>

namespace
{

int alongAxis(const ZrSize &size, ZrLayoutItem::Axis axis)
{
    return axis == ZrLayoutItem::Horizontal ? size.width() : size.height();
}

struct Sums {
    long long hint = 0, minimum = 0, maximum = 0;
    bool expansive = false;
};

// Spacing included.
Sums addUp(const ZrVector<ZrLayoutStruct> &line)
{
    Sums sums;
    for (const ZrLayoutStruct &entry : line) {
        sums.hint += entry.sizeHint + entry.spacing;
        sums.minimum += entry.minimumSize + entry.spacing;
        sums.maximum += entry.maximumSize + entry.spacing;
        sums.expansive |= entry.wantsToGrow();
    }
    if (sums.expansive)
        sums.maximum = ZrLayoutItem::SizeLimit;
    return sums;
}

} // namespace

ZrGridLayoutPrivate::~ZrGridLayoutPrivate()
{
    for (ZrGridBox *box : things) {
        destroy(box->item);
        delete box;
    }
}

void ZrGridLayoutPrivate::markDirty()
{
    dirty = true;
    hfwWidth = hfwHeight = hfwMinHeight = -1;
}

void ZrGridLayoutPrivate::expandTo(int rows, int columns)
{
    if (rows > rowData.size()) {
        rowData.resize(rows);
        rowStretch.resize(rows);
        rowMinimum.resize(rows);
    }
    if (columns > colData.size()) {
        colData.resize(columns);
        colStretch.resize(columns);
        colMinimum.resize(columns);
    }
}

ZrGridLayoutPrivate::Cells ZrGridLayoutPrivate::rowsOf(const ZrGridBox &box) const
{
    const int last = box.toRow < 0 ? rowData.size() - 1 : box.toRow;
    return {box.row, std::max(last, box.row)};
}

ZrGridLayoutPrivate::Cells ZrGridLayoutPrivate::columnsOf(const ZrGridBox &box) const
{
    const int last = box.toCol < 0 ? colData.size() - 1 : box.toCol;
    return {box.col, std::max(last, box.col)};
}

ZrGridLayoutPrivate::Cells ZrGridLayoutPrivate::cellsOf(const ZrGridBox &box,
                                                        ZrLayoutItem::Axis axis) const
{
    return axis == ZrLayoutItem::Horizontal ? columnsOf(box) : rowsOf(box);
}

void ZrGridLayoutPrivate::takeSingleCells(ZrVector<ZrLayoutStruct> &line,
                                          ZrLayoutItem::Axis axis) const
{
    std::vector<CommonMaximum> maxima(std::size_t(line.size()));
    for (const ZrGridBox *box : things) {
        const Cells cells = cellsOf(*box, axis);
        const ZrLayoutItem &item = *box->item;
        const bool empty = item.isEmpty();
        const bool expands = item.expandingDirections() & axis;
        for (int i = cells.first; i <= cells.last; ++i)
            line[i].empty &= empty;
        if (!cells.isOne())
            continue;
        ZrLayoutStruct &entry = line[cells.first];
        entry.minimumSize = std::max(entry.minimumSize, alongAxis(item.minimumSize(), axis));
        entry.sizeHint = std::max(entry.sizeHint, alongAxis(item.sizeHint(), axis));
        entry.expansive |= expands;
        maxima[std::size_t(cells.first)].add(alongAxis(item.maximumSize(), axis), expands, empty);
    }
    for (int i = 0; i < line.size(); ++i) {
        ZrLayoutStruct &entry = line[i];
        entry.sizeHint = std::max(entry.sizeHint, entry.minimumSize);
        entry.maximumSize =
            std::max(maxima[std::size_t(i)].value(ZrLayoutItem::SizeLimit), entry.minimumSize);
    }
}

// Raises cells under a spanning item to what it needs: as the cells would share that much room,
// and so within the limits of each.
void ZrGridLayoutPrivate::topUp(ZrVector<ZrLayoutStruct> &line, const Cells &cells, int minimum,
                                int hint)
{
    const int count = cells.last - cells.first + 1;
    const auto raise = [&](int needed, int ZrLayoutStruct::*field) {
        ZrVector<ZrLayoutStruct> trial = line;
        for (int i = cells.first; i <= cells.last; ++i)
            trial[i].sizeHint = std::max(trial.at(i).sizeHint, trial.at(i).minimumSize);
        long long now = 0;
        for (int i = cells.first; i <= cells.last; ++i)
            now += line.at(i).*field + (i == cells.last ? 0 : line.at(i).spacing);
        if (now >= needed)
            return;
        calculateGeometry(trial, cells.first, count, 0, needed);
        for (int i = cells.first; i <= cells.last; ++i)
            line[i].*field = std::max(line.at(i).*field, trial.at(i).size);
    };
    raise(minimum, &ZrLayoutStruct::minimumSize);
    raise(hint, &ZrLayoutStruct::sizeHint);
}

void ZrGridLayoutPrivate::setupLine(ZrVector<ZrLayoutStruct> &line, ZrLayoutItem::Axis axis,
                                    int spacing)
{
    const bool isColumns = axis == ZrLayoutItem::Horizontal;
    for (int i = 0; i < line.size(); ++i) {
        line[i] = ZrLayoutStruct();
        line[i].stretch = (isColumns ? colStretch : rowStretch).at(i);
        line[i].minimumSize = (isColumns ? colMinimum : rowMinimum).at(i);
    }
    takeSingleCells(line, axis);
    spreadSpacing(line, spacing);
    for (const ZrGridBox *box : things) {
        const Cells cells = cellsOf(*box, axis);
        if (!cells.isOne() && !box->item->isEmpty()) {
            topUp(line, cells, alongAxis(box->item->minimumSize(), axis),
                  alongAxis(box->item->sizeHint(), axis));
        }
    }
}

void ZrGridLayoutPrivate::setupData(int across, int down)
{
    setupLine(colData, ZrLayoutItem::Horizontal, across);
    setupLine(rowData, ZrLayoutItem::Vertical, down);
    hasHfw = false;
    for (const ZrGridBox *box : things)
        hasHfw |= box->item->hasHeightForWidth();
    const Sums columns = addUp(colData), rows = addUp(rowData);
    sizeHint = ZrSize(boundedSize(columns.hint), boundedSize(rows.hint));
    minSize = ZrSize(boundedSize(columns.minimum), boundedSize(rows.minimum));
    maxSize = ZrSize(boundedSize(columns.maximum), boundedSize(rows.maximum));
    expanding = (columns.expansive ? ZrLayoutItem::Horizontal : 0) |
                (rows.expansive ? ZrLayoutItem::Vertical : 0);
    dirty = false;
}

int ZrGridLayoutPrivate::widthOf(const Cells &columns) const
{
    const ZrLayoutStruct &last = colData.at(columns.last);
    return last.pos + last.size - colData.at(columns.first).pos;
}

// The rows as they are when the columns have the sizes of colData.
ZrVector<ZrLayoutStruct> ZrGridLayoutPrivate::rowsForColumns() const
{
    ZrVector<ZrLayoutStruct> rows = rowData;
    for (const bool single : {true, false}) {
        for (const ZrGridBox *box : things) {
            const ZrLayoutItem &item = *box->item;
            const Cells cells = rowsOf(*box);
            if (!item.hasHeightForWidth() || cells.isOne() != single)
                continue;
            const int width = widthOf(columnsOf(*box));
            const int hint = item.heightForWidth(width);
            const int minimum = item.minimumHeightForWidth(width);
            if (!single) {
                topUp(rows, cells, minimum, hint);
                continue;
            }
            ZrLayoutStruct &row = rows[cells.first];
            row.sizeHint = std::max(row.sizeHint, hint);
            row.minimumSize = std::max(row.minimumSize, minimum);
            row.maximumSize = std::max(row.maximumSize, row.minimumSize);
        }
    }
    return rows;
}

void ZrGridLayoutPrivate::calcHeightForWidth(int width)
{
    calculateGeometry(colData, 0, colData.size(), 0, width);
    const ZrVector<ZrLayoutStruct> rows = rowsForColumns();
    hfwRows.resize(rows.size());
    for (int i = 0; i < rows.size(); ++i)
        hfwRows[i] = {rows.at(i).minimumSize, rows.at(i).sizeHint, rows.at(i).maximumSize};
    const Sums sums = addUp(rows);
    hfwWidth = width;
    hfwHeight = boundedSize(sums.hint);
    hfwMinHeight = boundedSize(sums.minimum);
}

void ZrGridLayoutPrivate::distribute(const ZrRect &room)
{
    if (colData.isEmpty() || rowData.isEmpty())
        return;
    ZrVector<ZrLayoutStruct> rows = rowData;
    if (hasHfw) {
        if (hfwWidth != room.width())
            calcHeightForWidth(room.width());
        for (int i = 0; i < rows.size(); ++i) {
            const ZrGridLayoutSizeTriple &needed = hfwRows.at(i);
            rows[i].minimumSize = needed.minimum;
            rows[i].sizeHint = needed.hint;
            rows[i].maximumSize = needed.maximum;
        }
    }
    calculateGeometry(colData, 0, colData.size(), room.left(), room.width());
    calculateGeometry(rows, 0, rows.size(), room.top(), room.height());
    // Handlers of the widgets may change the grid under way: from values, by index.
    const ZrVector<ZrLayoutStruct> columns = colData;
    for (int i = 0; i < things.size(); ++i) {
        const Cells across = columnsOf(*things.at(i)), down = rowsOf(*things.at(i));
        if (across.last >= columns.size() || down.last >= rows.size())
            continue;
        const ZrLayoutStruct &right = columns.at(across.last), &bottom = rows.at(down.last);
        things.at(i)->item->setGeometry(
            ZrRect::fromEdges(columns.at(across.first).pos, rows.at(down.first).pos,
                              right.pos + right.size - 1, bottom.pos + bottom.size - 1));
    }
}
