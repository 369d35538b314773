// Dates and times to text and back, by pattern.
#pragma once

#include <zrstring>

namespace zrtool
{

// The numbers that a pattern may show. A field the pattern does not have keeps its value when read.
struct DateFields {
    int year = 1, month = 1, day = 1;
    int hour = 0, minute = 0, second = 0, millisecond = 0;
};

ZrString formatFields(const ZrString &pattern, const DateFields &fields);
// False when the text does not follow the pattern from end to end. Ranges are not checked, except
// that hours of a 12-hour clock are 1 to 12.
bool parseFields(const ZrString &text, const ZrString &pattern, DateFields &fields);

} // namespace zrtool
