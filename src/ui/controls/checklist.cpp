#include "ui/controls/checklist.h"

#include "ui/pictures.h"
#include "ui/scale.h"

#include <zrguard>

namespace
{

constexpr float RowUnits = 38;

const ZrPixmap &indicator(bool checked)
{
    return picture(checked ? "images/checkbox-checked.png" : "images/checkbox-uncheck.png");
}

} // namespace

CheckList::CheckList(ZrWidget *parent) : ZrListWidget(parent)
{
    setRowHeight(unitsY(RowUnits));
}

void CheckList::setRows(const ZrStringList &texts, const ZrBitArray &checked)
{
    checked_ = ZrBitArray(texts.size());
    ZrList<ZrListWidgetItem> rows;
    for (int row = 0; row < texts.size(); ++row) {
        checked_.setBit(row, checked.isSet(row));
        rows.append(ZrListWidgetItem(texts.at(row)));
        rows.last().setIcon(indicator(checked.isSet(row)));
    }
    setItems(rows);
}

void CheckList::setRowChecked(int row, bool checked)
{
    if (checked == isRowChecked(row))
        return;
    checked_.setBit(row, checked);
    ZrListWidgetItem changed = item(row);
    changed.setIcon(indicator(checked));
    setItem(row, changed);
}

void CheckList::setAllChecked(bool checked)
{
    for (int row = 0; row < count(); ++row)
        setRowChecked(row, checked);
}

bool CheckList::areAllChecked() const
{
    return checked_.allSet();
}

void CheckList::activate()
{
    const ZrGuard<CheckList> self(this);
    setRowChecked(currentRow(), !isRowChecked(currentRow()));
    emit(this, &checkedChanged);
    if (self)
        ZrListWidget::activate();
}
