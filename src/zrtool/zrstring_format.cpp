// Numbers to text and back, and the filling of place markers.
#include <zrstring>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

using Unsigned = unsigned long long;
constexpr int mostDigits = 64; // of 64 bits in base 2

int digitValue(ZrUcs2 unit)
{
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    if (unit >= 'a' && unit <= 'z')
        return unit - 'a' + 10;
    return unit >= 'A' && unit <= 'Z' ? unit - 'A' + 10 : INT_MAX;
}

// A number as it stands in text: its sign and its digits' value.
struct Number {
    bool readable = false;
    bool negative = false;
    Unsigned magnitude = 0;
};

void skipPrefix(const ZrUcs2 *&at, const ZrUcs2 *end, int &base)
{
    const bool zero = end - at >= 2 && at[0] == '0';
    if (zero && (at[1] == 'x' || at[1] == 'X') && (base == 16 || base == 0)) {
        at += 2;
        base = 16;
    } else if (base == 0) {
        base = zero ? 8 : 10;
    }
}

Number readNumber(const ZrString &text, int base)
{
    const ZrString trimmed = text.trimmed();
    const ZrUcs2 *at = trimmed.begin(), *end = trimmed.end();
    Number number;
    if (at < end && (*at == '-' || *at == '+'))
        number.negative = *at++ == '-';
    skipPrefix(at, end, base);
    if (at == end || base < 2 || base > 36)
        return number;
    for (; at < end; at++) {
        const int digit = digitValue(*at);
        if (digit >= base || __builtin_mul_overflow(number.magnitude, base, &number.magnitude) ||
            __builtin_add_overflow(number.magnitude, digit, &number.magnitude))
            return number;
    }
    number.readable = true;
    return number;
}

template <typename T>
T signedNumber(const ZrString &text, bool *ok, int base, T lowest, T highest)
{
    const Number number = readNumber(text, base);
    const Unsigned most = number.negative ? Unsigned(-(lowest + 1)) + 1 : Unsigned(highest);
    const bool fits = number.readable && number.magnitude <= most;
    if (ok)
        *ok = fits;
    if (!fits)
        return 0;
    return T(number.negative ? 0 - number.magnitude : number.magnitude);
}

template <typename T>
T unsignedNumber(const ZrString &text, bool *ok, int base, T highest)
{
    const Number number = readNumber(text, base);
    const bool fits = number.readable && number.magnitude <= highest &&
                      (!number.negative || number.magnitude == 0);
    if (ok)
        *ok = fits;
    return fits ? T(number.magnitude) : T(0);
}

// The digits of a number, from the end of a buffer on the stack.
class Digits
{
public:
    Digits(Unsigned magnitude, int base, bool negative)
    {
        if (base < 2 || base > 36)
            base = 10;
        // The common base apart: the compiler then divides by multiplying.
        if (base == 10) {
            do
                *--begin_ = ZrUcs2('0' + magnitude % 10);
            while ((magnitude /= 10) != 0);
        } else {
            const char *const letters = "0123456789abcdefghijklmnopqrstuvwxyz";
            do
                *--begin_ = ZrUcs2(letters[magnitude % Unsigned(base)]);
            while ((magnitude /= Unsigned(base)) != 0);
        }
        if (negative)
            *--begin_ = '-';
    }
    Digits(const Digits &) = delete;
    Digits &operator=(const Digits &) = delete;
    const ZrUcs2 *begin() const { return begin_; }
    int size() const { return int(buffer_ + mostDigits + 1 - begin_); }
    ZrString toString() const { return ZrString::fromUtf16(begin(), size()); }

private:
    ZrUcs2 buffer_[mostDigits + 1];
    ZrUcs2 *begin_ = buffer_ + mostDigits + 1;
};

Unsigned magnitudeOf(long long value)
{
    return value < 0 ? 0 - Unsigned(value) : Unsigned(value);
}

// A place marker "%1" to "%99" in text.
struct Marker {
    int position = -1;
    int length = 0;
    int number = 0;
};

bool isDigit(ZrUcs2 unit)
{
    return unit >= '0' && unit <= '9';
}

// The first marker at or behind a position; its position is -1 when there is none.
Marker findMarker(const ZrString &text, int from)
{
    const ZrUcs2 *units = text.constData(); // zero-terminated: looking one ahead is safe
    for (int i = text.indexOf(ZrUcs2('%'), from); i >= 0; i = text.indexOf(ZrUcs2('%'), i + 1)) {
        if (!isDigit(units[i + 1]) || units[i + 1] == '0')
            continue;
        const int first = units[i + 1] - '0';
        return isDigit(units[i + 2]) ? Marker{i, 3, first * 10 + units[i + 2] - '0'}
                                     : Marker{i, 2, first};
    }
    return {};
}

ZrString padded(const ZrString &text, int width, ZrUcs2 fill)
{
    constexpr long long widest = 1 << 20;
    const long long missing = std::min(std::abs((long long)width), widest) - text.size();
    if (missing <= 0)
        return text;
    const ZrString pad(int(missing), fill);
    return width < 0 ? text + pad : pad + text;
}

// Zeros stand between the sign and the digits.
ZrString paddedNumber(const ZrString &number, int width, ZrUcs2 fill)
{
    const bool sign = number.size() > 0 && (number.at(0) == '-' || number.at(0) == '+');
    if (fill != '0' || width < 0 || !sign)
        return padded(number, width, fill);
    return number.left(1) + padded(number.mid(1), std::max(width - 1, 0), fill);
}

// The text with every lowest-numbered marker replaced.
ZrString withMarkersFilled(const ZrString &text, const ZrUcs2 *units, int length)
{
    int lowest = INT_MAX, found = 0;
    Marker first;
    for (Marker m = findMarker(text, 0); m.position >= 0;
         m = findMarker(text, m.position + m.length)) {
        if (m.number < lowest) {
            lowest = m.number;
            found = 0;
            first = m;
        }
        found += m.number == lowest;
    }
    if (found == 0)
        return text;
    ZrString result;
    result.reserve(text.size() + found * (length - 2));
    int from = 0;
    for (Marker m = first; found > 0; m = findMarker(text, m.position + m.length)) {
        if (m.number != lowest)
            continue;
        result.append(text.constData() + from, m.position - from);
        result.append(units, length);
        from = m.position + m.length;
        found--;
    }
    return result.append(text.constData() + from, text.size() - from);
}

} // namespace

int ZrString::toInt(bool *ok, int base) const
{
    return signedNumber<int>(*this, ok, base, INT_MIN, INT_MAX);
}

unsigned ZrString::toUInt(bool *ok, int base) const
{
    return unsignedNumber<unsigned>(*this, ok, base, UINT_MAX);
}

long long ZrString::toLongLong(bool *ok, int base) const
{
    return signedNumber<long long>(*this, ok, base, LLONG_MIN, LLONG_MAX);
}

unsigned long long ZrString::toULongLong(bool *ok, int base) const
{
    return unsignedNumber<Unsigned>(*this, ok, base, ULLONG_MAX);
}

double ZrString::toDouble(bool *ok) const
{
    const ZrByteArray bytes = trimmed().toUtf8();
    char *end = nullptr;
    const double value = std::strtod(bytes.constData(), &end);
    const bool fits =
        !bytes.isEmpty() && end == bytes.constData() + bytes.size() && std::isfinite(value);
    if (ok)
        *ok = fits;
    return fits ? value : 0;
}

ZrString ZrString::number(long long value, int base)
{
    return Digits(magnitudeOf(value), base, value < 0).toString();
}

ZrString ZrString::number(unsigned long long value, int base)
{
    return Digits(value, base, false).toString();
}

ZrString ZrString::number(int value, int base)
{
    return Digits(magnitudeOf(value), base, value < 0).toString();
}

ZrString ZrString::number(unsigned value, int base)
{
    return Digits(value, base, false).toString();
}

ZrString ZrString::number(long value, int base)
{
    return Digits(magnitudeOf(value), base, value < 0).toString();
}

ZrString ZrString::number(unsigned long value, int base)
{
    return Digits(value, base, false).toString();
}

ZrString ZrString::number(double value, char format, int precision)
{
    if (!std::strchr("eEfFgG", format) || format == '\0')
        format = 'g';
    constexpr int finest = 100;
    const char pattern[] = {'%', '.', '*', format, '\0'};
    char buffer[512]; // the longest double has 309 digits before the point
    const int length =
        std::snprintf(buffer, sizeof buffer, pattern, std::clamp(precision, -1, finest), value);
    return ZrString(buffer, std::clamp(length, 0, int(sizeof buffer) - 1));
}

ZrString ZrString::arg(const ZrString &text, int width, ZrUcs2 fill) const
{
    const ZrString filled = padded(text, width, fill);
    return withMarkersFilled(*this, filled.constData(), filled.size());
}

ZrString ZrString::arg(long long value, int width, int base, ZrUcs2 fill) const
{
    const Digits digits(magnitudeOf(value), base, value < 0);
    if (width == 0)
        return withMarkersFilled(*this, digits.begin(), digits.size());
    return arg(paddedNumber(digits.toString(), width, fill));
}

ZrString ZrString::arg(unsigned long long value, int width, int base, ZrUcs2 fill) const
{
    const Digits digits(value, base, false);
    if (width == 0)
        return withMarkersFilled(*this, digits.begin(), digits.size());
    return arg(paddedNumber(digits.toString(), width, fill));
}

ZrString ZrString::argDouble(double value, int width, char format, int precision, ZrUcs2 fill) const
{
    return arg(paddedNumber(number(value, format, precision), width, fill));
}

ZrString ZrString::multiArg(int count, const ZrString *const texts[]) const
{
    constexpr int numbers = 100;
    bool used[numbers] = {};
    for (Marker m = findMarker(*this, 0); m.position >= 0;
         m = findMarker(*this, m.position + m.length))
        used[m.number] = true;
    const ZrString *textOf[numbers] = {};
    for (int number = 0, next = 0; number < numbers && next < count; number++)
        if (used[number])
            textOf[number] = texts[next++];

    ZrString result;
    int from = 0;
    for (Marker m = findMarker(*this, 0); m.position >= 0;
         m = findMarker(*this, m.position + m.length)) {
        if (!textOf[m.number])
            continue;
        result.append(constData() + from, m.position - from);
        result.append(textOf[m.number]->constData(), textOf[m.number]->size());
        from = m.position + m.length;
    }
    return result.append(constData() + from, size() - from);
}

ZrString &ZrString::sprintf(const char *format, ...)
{
    va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    char buffer[256];
    const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    if (length < int(sizeof buffer)) {
        *this = ZrString(buffer, std::max(length, 0));
    } else {
        ZrByteArray bytes;
        bytes.resize(length + 1);
        std::vsnprintf(bytes.data(), std::size_t(length) + 1, format, again);
        *this = ZrString(bytes.constData(), length);
    }
    va_end(again);
    va_end(arguments);
    return *this;
}
