// The combo box of the screens: rows high enough for a shaky hand, and texts that follow the
// language. When its text may be typed, a keyboard on the screen opens by a click on the text, and
// by the last row of the list.
#pragma once

#include <zrcombobox>

class ComboBox : public ZrComboBox
{
    ZR_OBJECT(ComboBox, ZrComboBox)
public:
    explicit ComboBox(ZrWidget *parent = nullptr);

    // A row with the text of this number. All rows added with numbers change with the language.
    void addText(int textId, int data = 0);

    ZrSize sizeHint() const override;

protected:
    int popupRowHeight() const override;
    ZrList<ZrListWidgetItem> extraRows() const override;
    void extraRowChosen(int row) override;
    void mouseReleaseEvent(ZrMouseEvent *event) override;

private:
    void retranslate();
    void openKeyboard();

    struct Row {
        int data;
        int textId;
    };
    ZrList<Row> textRows_;
};
