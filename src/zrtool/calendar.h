// Day numbers and the two calendars. Day 1 is 1 January 1, Gregorian.
#pragma once

#include <zrnamespace>

namespace zrtool
{

constexpr int lastDay = 3652059; // 31 December 9999

struct CalendarDate {
    int year;
    int month;
    int day;
};

bool isLeapYear(int year, Zr::DateMode mode);
// 0 when there is no such month.
int daysInMonth(int year, int month, Zr::DateMode mode);
// 0 when there is no such date.
int dayNumberOf(const CalendarDate &date, Zr::DateMode mode);
CalendarDate calendarDate(int dayNumber, Zr::DateMode mode);

} // namespace zrtool
