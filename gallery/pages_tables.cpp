// Tables: one with widgets in its cells, one long.
#include "pages.h"

#include "ui/controls/boolbutton.h"
#include "ui/controls/lineedit.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrcheckbox>
#include <zrcombobox>
#include <zrpushbutton>
#include <zrtablewidget>
#include <zrtranslation>

namespace
{

// Units.
constexpr float RowHeight = 42;
constexpr float TitleHeight = 38;
constexpr int CellMargin = 30; // in 255ths: 5 of 42 units
constexpr int SideMargin = 10;
constexpr int LongRows = 10000;
constexpr int LongRowsInSight = 9;
constexpr float LongRowHeight = 34;

enum Column {
    CheckColumn,
    ChannelColumn,
    NameColumn,
    StateColumn,
    SwitchColumn,
    PlaceColumn,
    EditColumn,
    HiddenColumn,
    Columns
};

struct ColumnKind {
    int title; // 0: none
    float width;
};
constexpr ColumnKind Kinds[Columns] = {
    {0, 48},
    {Text::Channel, 136},
    {Text::Name, 160},
    {Text::State, 136},
    {Text::Recording, 148},
    {Text::NamePosition, 180},
    {0, 128},
    {Text::Size, 100},
};

// One row cannot be changed, as that of a camera that is gone.
constexpr int DisabledRow = 3;
constexpr int SelectedRow = 1;
constexpr int Channels = 5;

template <typename Widget>
Widget *put(ZrTableWidget *table, int row, int column, Widget *widget)
{
    table->item(row, column)->setMargin(ZrSides(CellMargin, SideMargin, CellMargin, SideMargin));
    table->setCellWidget(row, column, widget);
    return widget;
}

ZrTableWidget *makeTable(GalleryPage &page, Pose pose)
{
    auto *table = page.add(new ZrTableWidget, GalleryPage::WideWidth, pose);
    table->setDefaultRowHeight(unitsY(RowHeight));
    table->setTitleHeight(unitsY(TitleHeight));
    return table;
}

void fillRow(ZrTableWidget *table, int row)
{
    put(table, row, CheckColumn, new ZrCheckBox)->setChecked(row == 0);
    table->setText(row, ChannelColumn, tr(Text::ChannelNumber).arg(row * 4 + 1));
    put(table, row, NameColumn, new LineEdit)->setText(tr(Text::GalleryEntryNumber).arg(row + 1));
    table->setText(row, StateColumn, tr(row == DisabledRow ? Text::Offline : Text::Online));
    put(table, row, SwitchColumn, new BoolButton)->setChecked(row % 2 == 0);
    auto *place = put(table, row, PlaceColumn, new ZrComboBox);
    for (const int corner : {Text::TopLeft, Text::LowerLeft, Text::LowerRight})
        place->addItem(tr(corner));
    place->setCurrentIndex(1);
    put(table, row, EditColumn, new ZrPushButton(tr(Text::Edit)));
    table->setText(row, HiddenColumn, ZrString("%1").arg(row));
}

} // namespace

void fillTables(GalleryPage &page)
{
    page.beginWideRow(TitleHeight + Channels * RowHeight + 2);
    ZrTableWidget *form = makeTable(page, Pose::AsItIs);
    form->setSelectionMode(ZrTableWidget::SelectRow);
    form->setAlternatingRowColors(true);
    form->setColumnCount(Columns);
    form->setRowCount(Channels);
    for (int column = 0; column < Columns; ++column) {
        form->setColumnWidth(column, unitsX(Kinds[column].width));
        if (Kinds[column].title != 0)
            form->setColumnTitle(column, tr(Kinds[column].title));
    }
    form->hHeader()->cell(SwitchColumn)->setAlignment(Zr::AlignCenter);
    form->setColumnShare(NameColumn, 1);
    form->setColumnHidden(HiddenColumn, true);
    form->hHeader()->setSortable(ChannelColumn, true);
    form->hHeader()->setSortable(StateColumn, true);
    for (int row = 0; row < Channels; ++row)
        fillRow(form, row);
    form->sortByColumn(ChannelColumn, Zr::Ascending);
    form->rowItem(DisabledRow)->setEnabled(false);
    form->setCurrentCell(SelectedRow, ChannelColumn);

    page.beginWideRow(TitleHeight + LongRowsInSight * LongRowHeight + 2);
    ZrTableWidget *all = makeTable(page, Pose::Focused);
    constexpr int LongColumns = 4;
    all->setColumnCount(LongColumns);
    all->setRowCount(LongRows);
    all->setDefaultRowHeight(unitsY(LongRowHeight));
    for (int column = 0; column < LongColumns; ++column) {
        all->setColumnShare(column, 1);
        all->hHeader()->setSortable(column, true);
        all->setColumnTitle(column, tr(Text::GalleryColumn).arg(column + 1));
        for (int row = 0; row < LongRows; ++row)
            all->setText(row, column,
                         tr(Text::GalleryRow)
                             .arg(column == 0 ? row + 1 : (row * 7919 + column * 331) % LongRows));
    }
    all->setCurrentCell(2, 1);
}
