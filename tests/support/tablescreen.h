// A table on a virtual screen, with its signals logged by letter: a activated, c current cell, k
// clicked, d double-clicked, s sorted.
#pragma once

#include "support/entryscreen.h"
#include "support/signallog.h"

#include <zrscrollbar>
#include <zrtablewidget>

namespace zrtest
{

// One table in use: five rows and all columns in sight, the title row above them, and the vertical
// bar.
class TableScreen : public EntryScreen
{
public:
    static constexpr int RowHeight = 30;
    static constexpr int ColumnWidth = 100;
    static constexpr int Rows = 20;
    static constexpr int Columns = 4;
    static constexpr int Left = 20;
    static constexpr int Top = 20;

protected:
    void SetUp() override
    {
        ZrTableOption &group = ZrStyle::applicationStyle().tableOption();
        group.colors.set(Zr::TableCellForeground, ZrColor(232, 240, 248));
        group.colors.set(Zr::TableAlternateRow, ZrColor(40, 48, 56));
        group.colors.set(Zr::TableCurrentBackground, ZrColor(24, 64, 96));
        group.colors.set(Zr::TableCellFocusBorder, ZrColor(56, 160, 248));
        group.colors.set(Zr::TableTitleBackground, ZrColor(32, 40, 48));
        table = make(Rows);
        log.watch<'a'>(table, &table->cellActivated);
        log.watch<'c'>(table, &table->currentCellChanged);
        log.watch<'k'>(table, &table->cellClicked);
        log.watch<'d'>(table, &table->cellDoubleClicked);
        log.watch<'s'>(table, &table->sorted);
        log.take();
    }
    ZrTableWidget *make(int rows)
    {
        auto *made = new ZrTableWidget(window.get());
        made->setColumnCount(Columns);
        made->setRowCount(rows);
        made->setDefaultRowHeight(RowHeight);
        made->setTitleHeight(RowHeight);
        for (int column = 0; column < Columns; ++column)
            made->setColumnWidth(column, ColumnWidth);
        const int bar = ZrScrollBar::defaultThickness(*made);
        return show(made, ZrRect(Left, Top, Columns * ColumnWidth + bar, 6 * RowHeight));
    }
    ZrPoint cell() const { return ZrPoint(table->currentRow(), table->currentColumn()); }
    ZrPoint onScreen(int row, int column) const
    {
        return table->viewPort()->mapToGlobal(table->cellRect(row, column).center());
    }
    std::uint16_t groundOf(int row) const
    {
        const ZrPoint at = table->viewPort()->mapToGlobal(table->cellRect(row, 3).topRight());
        return screen->pixel(at.x() - 3, at.y() + 3);
    }
    template <typename Widget>
    Widget *putWidget(int row, int column, Widget *widget)
    {
        table->setCellWidget(row, column, widget);
        screen->settle();
        return widget;
    }

    SignalLog log;
    ZrTableWidget *table = nullptr;
};

} // namespace zrtest
