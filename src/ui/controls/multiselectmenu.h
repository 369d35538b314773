// A menu with several choices at once: rows to switch on and off, one box for all of them, and the
// buttons that answer it.
#pragma once

#include <zrbitarray>
#include <zrdialog>
#include <zrstringlist>

class CheckList;
class ZrCheckBox;
class ZrPushButton;

class MultiSelectMenu : public ZrDialog
{
    ZR_OBJECT(MultiSelectMenu, ZrDialog)
public:
    // One bit of `checked` for each text.
    MultiSelectMenu(const ZrStringList &texts, const ZrBitArray &checked);

    // Shows it with its upper left corner at the point, or as near as the screen allows. Returns 1
    // for OK; checkedRows() then tells the choice.
    int execAt(const ZrPoint &global);
    const ZrBitArray &checkedRows() const;
    CheckList *list() const { return list_; }
    ZrCheckBox *allBox() const { return allBox_; }
    ZrPushButton *okButton() const { return okButton_; }

    ZrSize sizeHint() const override;

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void resizeEvent(ZrResizeEvent *event) override;

private:
    void allClicked();
    void rowSwitched();

    ZrCheckBox *allBox_;
    CheckList *list_;
    ZrPushButton *okButton_;
    ZrPushButton *cancelButton_;
    ZrColor ground_;
    ZrColor border_;
};
