// The recorder's dialog: a title, a page, and the buttons that answer it.
#pragma once

#include "ui/dialogs/dialogcontentbase.h"

#include <zrdialog>
#include <zrpushbutton>

class DialogFrame : public ZrDialog
{
    ZR_OBJECT(DialogFrame, ZrDialog)
public:
    // Which parts stand round the page.
    enum Part { OkButton = 1, CancelButton = 2, TitleClose = 4 };

    // Takes the page over. In the middle of the screen, as large as the page prefers; with
    // `contentSize`, the page has that size, in pixels.
    DialogFrame(DialogContentBase *content, const ZrString &title,
                int parts = OkButton | CancelButton | TitleClose,
                const ZrSize &contentSize = ZrSize());

    // Shows the page and returns the dialog's result: 1 for OK.
    static int run(DialogContentBase *content, const ZrString &title,
                   int parts = OkButton | CancelButton | TitleClose);

    DialogContentBase *content() const { return content_; }
    const ZrString &title() const { return title_; }
    void setTitle(const ZrString &title);
    // Null when the frame has no such button.
    ZrPushButton *okButton() const { return okButton_; }
    ZrPushButton *cancelButton() const { return cancelButton_; }

    // Asks the page first.
    void accept() override;
    void reject() override;

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void resizeEvent(ZrResizeEvent *event) override;

private:
    void readStyle();
    void retranslate();
    void contentFinished();
    ZrPushButton *makeButton(ZrSlotFunction slot);
    int titleHeight() const;
    int buttonRowHeight() const;
    int border() const;
    ZrRect contentPlace() const;

    DialogContentBase *content_;
    ZrString title_;
    ZrPushButton *okButton_ = nullptr;
    ZrPushButton *cancelButton_ = nullptr;
    ZrPushButton *closeButton_ = nullptr;
    ZrColor borderColor_;
    int borderWidth_ = 0; // units
    ZrColor titleColor_;
    ZrColor titleGround_;
};
