#include "zrtool/calendar.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace zrtool
{
namespace
{

int floorDivide(int a, int b)
{
    return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

int floorRemainder(int a, int b)
{
    return a - floorDivide(a, b) * b;
}

namespace gregorian
{

constexpr int monthLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

bool isLeap(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int monthLength(int year, int month)
{
    return month == 2 && isLeap(year) ? 29 : monthLengths[month - 1];
}

// Counted from March, so that the leap day is the last one of its year.
int dayNumber(const CalendarDate &date)
{
    const int months = (date.month + 9) % 12;
    const int year = date.year - (date.month < 3);
    return 365 * year + year / 4 - year / 100 + year / 400 + (153 * months + 2) / 5 + date.day -
           306;
}

CalendarDate date(int number)
{
    const int fromMarch = number + 305; // day 0 is 1 March of the year 0
    const int era = fromMarch / 146097, inEra = fromMarch % 146097;
    const int yearInEra = (inEra - inEra / 1460 + inEra / 36524 - inEra / 146096) / 365;
    const int inYear = inEra - (365 * yearInEra + yearInEra / 4 - yearInEra / 100);
    const int months = (5 * inYear + 2) / 153;
    const int month = months < 10 ? months + 3 : months - 9;
    return {era * 400 + yearInEra + (month < 3), month, inYear - (153 * months + 2) / 5 + 1};
}

} // namespace gregorian

namespace persian
{

// The years in which a new sequence of leap years begins (Borkowski's table).
constexpr int sequenceStarts[] = {-61,  9,    38,   199,  426,  686,  756,  818,  1111, 1181,
                                  1210, 1635, 2060, 2097, 2192, 2262, 2324, 2394, 2456, 3178};
// The years that meet the range of day numbers.
constexpr int firstYear = -621, lastYear = 9378;
constexpr int anchorYear = 1400;
constexpr CalendarDate anchorNewYear = {2021, 3, 21}; // of 1400, Gregorian

// Outside the table: eight leap years in 33.
bool isLeapByCycle(int year)
{
    return floorRemainder(25 * year + 11, 33) < 8;
}

bool isLeap(int year)
{
    const int *const starts = std::begin(sequenceStarts);
    const int *next = std::upper_bound(starts, std::end(sequenceStarts), year);
    if (next == starts || next == std::end(sequenceStarts))
        return isLeapByCycle(year);
    const int length = next[0] - next[-1];
    int inSequence = year - next[-1];
    // The last years of a sequence already lean on the next one.
    if (length - inSequence < 6)
        inSequence += (length + 4) / 33 * 33 - length;
    return ((inSequence + 1) % 33 - 1) % 4 == 0;
}

int monthLength(int year, int month)
{
    return month <= 6 ? 31 : month <= 11 || isLeap(year) ? 30 : 29;
}

int daysBefore(int month)
{
    return month <= 7 ? (month - 1) * 31 : 6 * 31 + (month - 7) * 30;
}

// The day number of the first day of every year, counted out once.
const int *newYears()
{
    static const std::unique_ptr<int[]> table = [] {
        std::unique_ptr<int[]> days(new int[lastYear - firstYear + 2]);
        int *const anchor = days.get() + (anchorYear - firstYear);
        *anchor = gregorian::dayNumber(anchorNewYear);
        for (int year = anchorYear; year <= lastYear; year++)
            anchor[year + 1 - anchorYear] = anchor[year - anchorYear] + 365 + isLeap(year);
        for (int year = anchorYear - 1; year >= firstYear; year--)
            anchor[year - anchorYear] = anchor[year + 1 - anchorYear] - 365 - isLeap(year);
        return days;
    }();
    return table.get();
}

int dayNumber(const CalendarDate &date)
{
    return newYears()[date.year - firstYear] + daysBefore(date.month) + date.day - 1;
}

CalendarDate date(int number)
{
    const int *days = newYears();
    const int index =
        int(std::upper_bound(days, days + lastYear - firstYear + 1, number) - days) - 1;
    const int inYear = number - days[index];
    const int month = inYear < 6 * 31 ? inYear / 31 + 1 : (inYear - 6 * 31) / 30 + 7;
    return {firstYear + index, month, inYear - daysBefore(month) + 1};
}

} // namespace persian

} // namespace

bool isLeapYear(int year, Zr::DateMode mode)
{
    return mode == Zr::Persian ? persian::isLeap(year) : gregorian::isLeap(year);
}

int daysInMonth(int year, int month, Zr::DateMode mode)
{
    if (month < 1 || month > 12)
        return 0;
    return mode == Zr::Persian ? persian::monthLength(year, month)
                               : gregorian::monthLength(year, month);
}

int dayNumberOf(const CalendarDate &date, Zr::DateMode mode)
{
    const bool yearKnown = mode == Zr::Persian
                               ? date.year >= persian::firstYear && date.year <= persian::lastYear
                               : date.year >= 1 && date.year <= 9999;
    if (!yearKnown || date.day < 1 || date.day > daysInMonth(date.year, date.month, mode))
        return 0;
    const int number = mode == Zr::Persian ? persian::dayNumber(date) : gregorian::dayNumber(date);
    return number >= 1 && number <= lastDay ? number : 0;
}

CalendarDate calendarDate(int dayNumber, Zr::DateMode mode)
{
    return mode == Zr::Persian ? persian::date(dayNumber) : gregorian::date(dayNumber);
}

} // namespace zrtool
