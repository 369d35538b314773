#include "zrtool/date_format.h"

#include <algorithm>

namespace zrtool
{
namespace
{

struct Field {
    const char *letters;
    int DateFields::*number;
    int fewestDigits;
    int mostDigits;
};

constexpr Field fieldTable[] = {
    {"yyyy", &DateFields::year, 4, 4}, {"MM", &DateFields::month, 2, 2},
    {"M", &DateFields::month, 1, 2},   {"dd", &DateFields::day, 2, 2},
    {"d", &DateFields::day, 1, 2},     {"hh", &DateFields::hour, 2, 2},
    {"h", &DateFields::hour, 1, 2},    {"mm", &DateFields::minute, 2, 2},
    {"m", &DateFields::minute, 1, 2},  {"ss", &DateFields::second, 2, 2},
    {"s", &DateFields::second, 1, 2},  {"zzz", &DateFields::millisecond, 3, 3},
};

// A piece of a pattern: a field, the marker of the half day, or text that stands for itself.
struct Piece {
    int length;
    const Field *field;
    bool marker;
};

bool matches(const ZrUcs2 *at, int length, const char *letters)
{
    int i = 0;
    for (; i < length && letters[i]; i++)
        if (at[i] != ZrUcs2(letters[i]))
            return false;
    return i == length && !letters[i];
}

Piece pieceAt(const ZrUcs2 *at, const ZrUcs2 *end)
{
    if (end - at >= 2 && (matches(at, 2, "AP") || matches(at, 2, "ap")))
        return {2, nullptr, true};
    int run = 1;
    while (at + run < end && at[run] == at[0])
        run++;
    for (const Field &field : fieldTable)
        if (matches(at, run, field.letters))
            return {run, &field, false};
    return {run, nullptr, false};
}

bool hasMarker(const ZrString &pattern)
{
    const ZrUcs2 *at = pattern.begin();
    for (Piece piece; at < pattern.end(); at += piece.length)
        if ((piece = pieceAt(at, pattern.end())).marker)
            return true;
    return false;
}

int twelveHour(int hour)
{
    return hour % 12 == 0 ? 12 : hour % 12;
}

// Reads between the field's fewest and most digits.
bool readDigits(const ZrUcs2 *&at, const ZrUcs2 *end, const Field &field, int &number)
{
    int digits = 0;
    number = 0;
    for (; at < end && digits < field.mostDigits && *at >= '0' && *at <= '9'; at++, digits++)
        number = number * 10 + (*at - '0');
    return digits >= field.fewestDigits;
}

// Either case of "AM" and "PM" is read.
bool readMarker(const ZrUcs2 *&at, const ZrUcs2 *end, bool &afternoon)
{
    if (end - at < 2 || (at[1] | 0x20) != 'm' || ((at[0] | 0x20) != 'a' && (at[0] | 0x20) != 'p'))
        return false;
    afternoon = (at[0] | 0x20) == 'p';
    at += 2;
    return true;
}

} // namespace

ZrString formatFields(const ZrString &pattern, const DateFields &fields)
{
    const bool halfDays = hasMarker(pattern);
    ZrString text;
    const ZrUcs2 *at = pattern.begin();
    for (Piece piece; at < pattern.end(); at += piece.length) {
        piece = pieceAt(at, pattern.end());
        if (piece.marker) {
            const bool upper = *at == 'A';
            text.append(ZrString(fields.hour < 12 ? (upper ? "AM" : "am") : upper ? "PM" : "pm"));
        } else if (piece.field) {
            const bool hour = piece.field->number == &DateFields::hour;
            const int number =
                hour && halfDays ? twelveHour(fields.hour) : fields.*piece.field->number;
            const ZrString digits = ZrString::number(number);
            text.append(ZrString(piece.field->fewestDigits - digits.size(), ZrUcs2('0')));
            text.append(digits);
        } else {
            text.append(at, piece.length);
        }
    }
    return text;
}

bool parseFields(const ZrString &text, const ZrString &pattern, DateFields &fields)
{
    bool marked = false, afternoon = false;
    const ZrUcs2 *from = text.begin(), *const end = text.end();
    const ZrUcs2 *at = pattern.begin();
    for (Piece piece; at < pattern.end(); at += piece.length) {
        piece = pieceAt(at, pattern.end());
        if (piece.marker) {
            marked = true;
            if (!readMarker(from, end, afternoon))
                return false;
        } else if (piece.field) {
            if (!readDigits(from, end, *piece.field, fields.*piece.field->number))
                return false;
        } else {
            if (end - from < piece.length || !std::equal(at, at + piece.length, from))
                return false;
            from += piece.length;
        }
    }
    if (from != end)
        return false;
    if (!marked)
        return true;
    if (fields.hour < 1 || fields.hour > 12)
        return false;
    fields.hour = fields.hour % 12 + (afternoon ? 12 : 0);
    return true;
}

} // namespace zrtool
