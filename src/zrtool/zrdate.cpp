#include <zrdate>

#include "zrtool/calendar.h"
#include "zrtool/date_format.h"

#include <zrdatetime>

#include <algorithm>
#include <atomic>

using namespace zrtool;

namespace
{

std::atomic<Zr::DateMode> defaultMode{Zr::Gregorian};

} // namespace

void ZrDate::setDateMode(Zr::DateMode mode)
{
    defaultMode = mode;
}

Zr::DateMode ZrDate::dateMode()
{
    return defaultMode;
}

ZrDate ZrDate::currentDate()
{
    return ZrDateTime::currentDateTime().date();
}

ZrDate ZrDate::fromDayNumber(long long day)
{
    ZrDate date;
    date.day_ = day >= 1 && day <= lastDay ? int(day) : 0;
    return date;
}

bool ZrDate::setDate(int year, int month, int day, Zr::DateMode mode)
{
    day_ = dayNumberOf({year, month, day}, mode);
    return isValid();
}

void ZrDate::getDate(int *year, int *month, int *day, Zr::DateMode mode) const
{
    const CalendarDate date = day_ ? calendarDate(day_, mode) : CalendarDate{0, 0, 0};
    if (year)
        *year = date.year;
    if (month)
        *month = date.month;
    if (day)
        *day = date.day;
}

int ZrDate::year(Zr::DateMode mode) const
{
    return day_ ? calendarDate(day_, mode).year : 0;
}

int ZrDate::month(Zr::DateMode mode) const
{
    return day_ ? calendarDate(day_, mode).month : 0;
}

int ZrDate::day(Zr::DateMode mode) const
{
    return day_ ? calendarDate(day_, mode).day : 0;
}

int ZrDate::dayOfYear(Zr::DateMode mode) const
{
    if (!day_)
        return 0;
    CalendarDate date = calendarDate(day_, mode);
    int days = date.day;
    while (--date.month >= 1)
        days += zrtool::daysInMonth(date.year, date.month, mode);
    return days;
}

int ZrDate::daysInMonth(Zr::DateMode mode) const
{
    if (!day_)
        return 0;
    const CalendarDate date = calendarDate(day_, mode);
    return zrtool::daysInMonth(date.year, date.month, mode);
}

int ZrDate::daysInMonth(int year, int month, Zr::DateMode mode)
{
    return zrtool::daysInMonth(year, month, mode);
}

bool ZrDate::isLeapYear(int year, Zr::DateMode mode)
{
    return zrtool::isLeapYear(year, mode);
}

ZrDate ZrDate::addDays(long long days) const
{
    if (!day_ || days > lastDay || days < -lastDay)
        return ZrDate();
    return fromDayNumber(day_ + days);
}

ZrDate ZrDate::addMonths(int months, Zr::DateMode mode) const
{
    constexpr long long most = 12 * 10000;
    if (!day_ || months > most || months < -most)
        return ZrDate();
    const CalendarDate from = calendarDate(day_, mode);
    // Years may be negative on the way; the count of months is made positive for the division.
    const long long count = (from.year + 20000LL) * 12 + from.month - 1 + months;
    const int year = int(count / 12 - 20000), month = int(count % 12) + 1;
    ZrDate result;
    result.setDate(year, month, std::min(from.day, zrtool::daysInMonth(year, month, mode)), mode);
    return result;
}

ZrDate ZrDate::addYears(int years, Zr::DateMode mode) const
{
    return years > 10000 || years < -10000 ? ZrDate() : addMonths(12 * years, mode);
}

ZrString ZrDate::toString(const ZrString &format, Zr::DateMode mode) const
{
    if (!day_)
        return ZrString();
    DateFields fields;
    getDate(&fields.year, &fields.month, &fields.day, mode);
    return formatFields(format, fields);
}

ZrDate ZrDate::fromString(const ZrString &text, const ZrString &format, Zr::DateMode mode)
{
    DateFields fields;
    if (!parseFields(text, format, fields))
        return ZrDate();
    return ZrDate(fields.year, fields.month, fields.day, mode);
}
