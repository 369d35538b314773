// A list whose rows are switched on and off, any number of them.
#pragma once

#include <zrbitarray>
#include <zrlistwidget>
#include <zrstringlist>

class CheckList : public ZrListWidget
{
    ZR_OBJECT(CheckList, ZrListWidget)
public:
    explicit CheckList(ZrWidget *parent = nullptr);

    ZrSignal checkedChanged; // the user has switched a row

    // One bit of `checked` a row; missing ones count as clear.
    void setRows(const ZrStringList &texts, const ZrBitArray &checked);
    bool isRowChecked(int row) const { return checked_.isSet(row); }
    void setRowChecked(int row, bool checked);
    void setAllChecked(bool checked);
    bool areAllChecked() const;
    // One bit a row.
    const ZrBitArray &checkedRows() const { return checked_; }

protected:
    void activate() override;

private:
    ZrBitArray checked_;
};
