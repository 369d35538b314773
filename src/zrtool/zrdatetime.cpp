#include <zrdatetime>

#include "zrtool/date_format.h"

using namespace zrtool;

namespace
{

constexpr long long secondsPerDay = 86400;
constexpr int epochDay = 719163; // 1 January 1970

long long floorDivide(long long a, long long b)
{
    return a / b - (a % b < 0);
}

// Seconds east of UTC at a moment, in the zone of the process.
long long offsetAt(std::time_t moment)
{
    std::tm local;
    if (!localtime_r(&moment, &local))
        return 0;
    return local.tm_gmtoff;
}

} // namespace

ZrDateTime ZrDateTime::currentDateTime()
{
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    ZrDateTime current = fromTime_t(now.tv_sec);
    current.time_ =
        ZrTime::fromMilliseconds(current.time_.milliseconds() + int(now.tv_nsec / 1000000));
    return current;
}

ZrDateTime ZrDateTime::fromTime_t(std::time_t seconds, Zr::TimeSpec spec)
{
    ZrDateTime result;
    result.spec_ = spec;
    result.setTime_t(seconds);
    return result;
}

void ZrDateTime::setTime_t(std::time_t seconds)
{
    long long offset = 0;
    if (spec_ == Zr::LocalTime) {
        tzset(); // the zone may have been changed since
        offset = offsetAt(seconds);
    }
    setWallSeconds((long long)(seconds) + offset, 0);
    offset_ = int(offset);
}

void ZrDateTime::setDate(const ZrDate &date)
{
    date_ = date;
    offset_ = unknownOffset;
}

void ZrDateTime::setTime(const ZrTime &time)
{
    time_ = time;
    offset_ = unknownOffset;
}

long long ZrDateTime::wallSeconds() const
{
    return (date_.dayNumber() - epochDay) * secondsPerDay + time_.milliseconds() / 1000;
}

void ZrDateTime::setWallSeconds(long long seconds, int milliseconds)
{
    const long long days = floorDivide(seconds, secondsPerDay);
    date_ = ZrDate::fromDayNumber(days + epochDay);
    time_ =
        date_.isValid()
            ? ZrTime::fromMilliseconds(int(seconds - days * secondsPerDay) * 1000 + milliseconds)
            : ZrTime();
    offset_ = unknownOffset;
}

std::time_t ZrDateTime::toTime_t() const
{
    if (!isValid())
        return -1;
    const long long wall = wallSeconds();
    if (spec_ == Zr::UTC)
        return std::time_t(wall);
    tzset();
    if (offset_ != unknownOffset && offsetAt(std::time_t(wall - offset_)) == offset_)
        return std::time_t(wall - offset_);
    // The zone's offset a day before and a day after holds on either side of a change between.
    const long long before = offsetAt(std::time_t(wall - secondsPerDay));
    const long long after = offsetAt(std::time_t(wall + secondsPerDay));
    if (offsetAt(std::time_t(wall - before)) == before)
        return std::time_t(wall - before);
    if (offsetAt(std::time_t(wall - after)) == after)
        return std::time_t(wall - after);
    return std::time_t(wall - before);
}

ZrDateTime ZrDateTime::toTimeSpec(Zr::TimeSpec spec) const
{
    if (spec == spec_ || !isValid()) {
        ZrDateTime same(*this);
        same.spec_ = spec;
        return same;
    }
    ZrDateTime result = fromTime_t(toTime_t(), spec);
    result.time_ = ZrTime::fromMilliseconds(result.time_.milliseconds() + time_.millisecond());
    return result;
}

ZrDateTime ZrDateTime::addDays(long long days) const
{
    return ZrDateTime(date_.addDays(days), time_, spec_);
}

ZrDateTime ZrDateTime::addMonths(int months, Zr::DateMode mode) const
{
    return ZrDateTime(date_.addMonths(months, mode), time_, spec_);
}

ZrDateTime ZrDateTime::addYears(int years, Zr::DateMode mode) const
{
    return ZrDateTime(date_.addYears(years, mode), time_, spec_);
}

ZrDateTime ZrDateTime::addSecs(long long seconds) const
{
    constexpr long long most = 10000 * 366 * secondsPerDay;
    if (!isValid() || seconds > most || seconds < -most)
        return ZrDateTime();
    ZrDateTime result;
    result.spec_ = spec_;
    result.setWallSeconds(wallSeconds() + seconds, time_.millisecond());
    return result;
}

long long ZrDateTime::secsTo(const ZrDateTime &other) const
{
    if (!isValid() || !other.isValid())
        return 0;
    return other.toTimeSpec(spec_).wallSeconds() - wallSeconds();
}

int ZrDateTime::compare(const ZrDateTime &other) const
{
    const ZrDateTime same = other.spec_ == spec_ ? other : other.toTimeSpec(spec_);
    if (date_ != same.date_)
        return date_ < same.date_ ? -1 : 1;
    return time_ == same.time_ ? 0 : time_ < same.time_ ? -1 : 1;
}

ZrString ZrDateTime::toString(const ZrString &format, Zr::DateMode mode) const
{
    if (!isValid())
        return ZrString();
    DateFields fields;
    date_.getDate(&fields.year, &fields.month, &fields.day, mode);
    fields.hour = time_.hour();
    fields.minute = time_.minute();
    fields.second = time_.second();
    fields.millisecond = time_.millisecond();
    return formatFields(format, fields);
}

ZrDateTime ZrDateTime::fromString(const ZrString &text, const ZrString &format, Zr::DateMode mode)
{
    DateFields fields;
    if (!parseFields(text, format, fields))
        return ZrDateTime();
    const ZrDateTime result(ZrDate(fields.year, fields.month, fields.day, mode),
                            ZrTime(fields.hour, fields.minute, fields.second, fields.millisecond));
    return result.isValid() ? result : ZrDateTime();
}
