// How far a long operation has come, with a way to call it off.
#pragma once

#include "ui/dialogs/dialogcontentbase.h"

#include <zrlabel>
#include <zrprogressbar>
#include <zrpushbutton>

class ProgressDialog : public DialogContentBase
{
    ZR_OBJECT(ProgressDialog, DialogContentBase)
public:
    enum class Cancelling { Possible, Impossible };
    explicit ProgressDialog(const ZrString &text, Cancelling cancelling = Cancelling::Possible);

    // The person called it off; the dialog ends with 0.
    ZrSignal cancelled;

    void setText(const ZrString &text);
    // 0 to 100; 100 ends the dialog with 1.
    void setPercent(int percent);
    int percent() const { return bar_->value(); }

    // Escape and the frame's cross, too, call it off, where that is possible.
    bool cancelPressed() override;
    void layoutForScale() override;
    ZrSize preferredSize() const override;

private:
    void cancelClicked();
    void retranslate();

    ZrLabel *label_;
    ZrProgressBar *bar_;
    ZrPushButton *cancel_ = nullptr;
};
