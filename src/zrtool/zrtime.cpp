#include <zrtime>

#include "zrtool/date_format.h"

#include <zrdatetime>

#include <algorithm>
#include <climits>

using namespace zrtool;

namespace
{

constexpr int msPerDay = 86400000;

long long monotonicMilliseconds()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (long long)(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

} // namespace

ZrTime::ZrTime(int hour, int minute, int second, int millisecond)
{
    if (hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60 &&
        millisecond >= 0 && millisecond < 1000)
        ms_ = ((hour * 60 + minute) * 60 + second) * 1000 + millisecond;
}

ZrTime ZrTime::currentTime()
{
    return ZrDateTime::currentDateTime().time();
}

ZrTime ZrTime::fromMilliseconds(int msOfDay)
{
    ZrTime time;
    time.ms_ = msOfDay >= 0 && msOfDay < msPerDay ? msOfDay : -1;
    return time;
}

ZrTime ZrTime::addSecs(long long seconds) const
{
    ZrTime time(*this);
    if (isValid()) {
        const long long ms = (ms_ + seconds % 86400 * 1000) % msPerDay;
        time.ms_ = int(ms < 0 ? ms + msPerDay : ms);
    }
    return time;
}

int ZrTime::restart()
{
    const int since = elapsed();
    ms_ = currentTime().ms_;
    started_ = monotonicMilliseconds();
    return since;
}

int ZrTime::elapsed() const
{
    if (started_ == 0)
        return 0;
    return int(std::clamp<long long>(monotonicMilliseconds() - started_, 0, INT_MAX));
}

ZrString ZrTime::toString(const ZrString &format) const
{
    if (!isValid())
        return ZrString();
    DateFields fields;
    fields.hour = hour();
    fields.minute = minute();
    fields.second = second();
    fields.millisecond = millisecond();
    return formatFields(format, fields);
}

ZrTime ZrTime::fromString(const ZrString &text, const ZrString &format)
{
    DateFields fields;
    if (!parseFields(text, format, fields))
        return ZrTime();
    return ZrTime(fields.hour, fields.minute, fields.second, fields.millisecond);
}
