// The date field of the system: a calendar pops up below it.
#pragma once

#include <zrdateedit>
#include <zrguard>

class Calendar;

// Deletes itself when it is closed. Emits `chosen` once, before that.
class DateEditPopup : public ZrFrame
{
    ZR_OBJECT(DateEditPopup, ZrFrame)
public:
    DateEditPopup();

    ZrSignal chosen;
    ZrSignal closed;

    Calendar *calendar() const { return calendar_; }
    // Below the rectangle of the screen, or above where there is no room.
    void openAt(const ZrRect &field);

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void keyPressEvent(ZrKeyEvent *event) override;
    void hideEvent(ZrHideEvent *event) override;

private:
    void dayClicked();

    Calendar *calendar_; // owned as a child
};

class DateEdit : public ZrDateEdit
{
    ZR_OBJECT(DateEdit, ZrDateEdit)
public:
    explicit DateEdit(ZrWidget *parent = nullptr);
    ~DateEdit() override;

    DateEditPopup *popup() const { return popup_.get(); }
    ZrSize sizeHint() const override;

protected:
    void openPopup() override;
    void hideEvent(ZrHideEvent *event) override;

private:
    void takeDay();
    void popupClosed();

    ZrGuard<DateEditPopup> popup_;
};
