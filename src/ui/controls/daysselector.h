// The days of the week, each on or off.
#pragma once

#include <zrwidget>

class PressedButton;

class DaysSelector : public ZrWidget
{
    ZR_OBJECT(DaysSelector, ZrWidget)
public:
    static constexpr int Days = 7;
    static constexpr int AllDays = (1 << Days) - 1;

    explicit DaysSelector(ZrWidget *parent = nullptr);

    ZrSignal daysChanged; // the user switched a day

    // Bit 0 is Monday, bit 6 Sunday.
    int days() const;
    void setDays(int mask);
    PressedButton *dayButton(int day) const { return buttons_[day]; }

    ZrSize sizeHint() const override;

protected:
    void resizeEvent(ZrResizeEvent *event) override;

private:
    void dayClicked();
    void retranslate();

    PressedButton *buttons_[Days];
};
