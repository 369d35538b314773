// A month of days, of which one is chosen. Days can carry marks: a bar under the number.
//
// The calendar, Gregorian or Persian, is that of ZrDate; weeks begin on Monday. Arrows walk over
// the days, sideways also into the months beside; Enter chooses. Up and Down leave at the edges.
#pragma once

#include "ui/controls/cwidget.h"

#include <cstdint>
#include <zrdate>
#include <zrfont>

class ZrPainter;
class ZrPixmap;

class Calendar : public CWidget
{
    ZR_OBJECT(Calendar, CWidget)
public:
    explicit Calendar(ZrWidget *parent = nullptr);

    ZrSignal dayClicked;   // read date()
    ZrSignal monthChanged; // read firstDay()

    const ZrDate &date() const { return date_; }
    // Also shows its month. An invalid one changes nothing.
    void setDate(const ZrDate &date);
    // The first day of the month that is shown.
    const ZrDate &firstDay() const { return first_; }
    void showMonth(const ZrDate &anyDay);
    void setDateRange(const ZrDate &minimum, const ZrDate &maximum);
    // Bit n: day n + 1 of the month that is shown. Gone with the month.
    void setMarks(std::uint32_t normal, std::uint32_t alarm = 0);

    ZrSize sizeHint() const override;
    // Empty for a day of another month.
    ZrRect dayRect(const ZrDate &day) const;
    ZrRect previousRect() const;
    ZrRect nextRect() const;

    void focusIn(const ZrPoint &at) override;
    bool leftKey() override { return walk(-1); }
    bool rightKey() override { return walk(1); }
    bool upKey() override;
    bool downKey() override;
    void clickKey() override;

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void mousePressEvent(ZrMouseEvent *event) override;
    void mouseReleaseEvent(ZrMouseEvent *event) override;
    void mouseMoveEvent(ZrMouseEvent *event) override;
    void leaveEvent(ZrEvent *event) override;
    void focusInEvent(ZrFocusEvent *event) override;
    void focusOutEvent(ZrFocusEvent *event) override;

private:
    enum DayState { Normal, Hover, Focus, Disabled, Current, Today, DayStates };
    struct Look {
        ZrColor background, title, week, todayRing, focusRing, mark, alarm;
        ZrColor foreground[DayStates];
        ZrColor dayBackground[DayStates];
        int ring;
        int markHeight;
    };

    static const Look &look();
    ZrDate dayAt(const ZrPoint &at) const;
    bool isAllowed(const ZrDate &day) const;
    bool isShown(const ZrDate &day) const;
    bool walk(int days);
    bool walkWithinMonth(int days);
    void setWalked(const ZrDate &day);
    void setHovered(const ZrDate &day);
    void turnMonth(int months);
    void choose(const ZrDate &day);
    void updateDay(const ZrDate &day);
    int titleHeight() const;
    int weekHeight() const;
    ZrString title() const;
    void drawTitle(ZrPainter &painter) const;
    void drawWeekdays(ZrPainter &painter) const;
    void drawDay(ZrPainter &painter, const ZrDate &day) const;
    void drawMark(ZrPainter &painter, const ZrRect &cell, int dayOfMonth) const;

    ZrDate date_ = ZrDate::currentDate();
    ZrDate first_;
    ZrDate walked_; // where the arrows stand
    ZrDate hovered_;
    ZrDate pressed_;
    ZrDate minimum_;
    ZrDate maximum_;
    std::uint32_t marks_ = 0;
    std::uint32_t alarms_ = 0;
};
