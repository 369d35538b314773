// The recorder's message: a sign, a text, and the buttons that answer it.
#pragma once

#include "ui/dialogs/dialogcontentbase.h"

#include <zrlabel>
#include <zrlist>
#include <zrpixmap>
#include <zrtimer>

class ZrPushButton;

class MsgBox : public DialogContentBase
{
    ZR_OBJECT(MsgBox, DialogContentBase)
public:
    enum class Sign { Information, Question, Warning, Error, Good };
    enum Button { NoButtons = 0, Ok = 1, Yes = 2, Continue = 4, Close = 8, No = 16, Cancel = 32 };

    struct Request {
        ZrString text;
        Sign sign = Sign::Information;
        int buttons = Ok;
        int timeLimitMs = 0;         // after which the message ends with 0; 0: never
        bool showsCountdown = false; // the seconds that are left, below the text
        ZrString title;              // empty: the common one of the sign
    };

    explicit MsgBox(const Request &request);

    // Shows the message and returns 1 for Ok, Yes and Continue, else 0.
    static int run(const Request &request);
    static void notice(const ZrString &text, int timeLimitMs = 0);
    static bool ask(const ZrString &text, int timeLimitMs = 0);

    const ZrString &text() const { return label_->text(); }
    void setText(const ZrString &text);
    // Null when the message has no such button.
    ZrPushButton *button(Button button) const;
    int secondsLeft() const { return secondsLeft_; }

    // Escape answers like the choice that does nothing. A message without buttons and time limit is
    // the caller's to end.
    bool cancelPressed() override { return !choices_.isEmpty() || secondsLeft_ > 0; }
    void layoutForScale() override;
    ZrSize preferredSize() const override;

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void showEvent(ZrShowEvent *event) override;

private:
    struct Choice {
        Button button;
        ZrPushButton *widget;
    };
    void makeButtons(int buttons);
    void buttonClicked(ZrObject *sender);
    void secondPassed();
    void retranslate();
    int textWidth() const;
    ZrSize buttonSize(const ZrPushButton &button) const;

    ZrPixmap sign_;
    ZrLabel *label_;
    ZrLabel *countdown_ = nullptr;
    ZrList<Choice> choices_;
    ZrTimer second_;
    int secondsLeft_ = 0; // 0 without a time limit
};
