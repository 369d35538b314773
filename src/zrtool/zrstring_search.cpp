// Searching and splitting: the parts of ZrString that walk over text.
#include <zrstring>

#include "zrtool/letter_case.h"
#include "zrtool/string_splitter.h"

#include <zrstringlist>

#include <algorithm>
#include <cstring>

using namespace zrtool;

namespace
{

typedef std::uint64_t Word;
constexpr Word everyUnit = 0x0001000100010001u;

// The first unit equal to `unit`, four at a time.
const ZrUcs2 *findUnit(const ZrUcs2 *from, const ZrUcs2 *end, ZrUcs2 unit)
{
    const Word pattern = everyUnit * unit;
    for (; end - from >= 4; from += 4) {
        Word word;
        std::memcpy(&word, from, sizeof word);
        word ^= pattern;
        // The lowest unit that has become 0 is marked exactly; higher marks may be false.
        const Word zero = (word - everyUnit) & ~word & (everyUnit << 15);
        if (zero)
            return from + __builtin_ctzll(zero) / 16;
    }
    return std::find(from, end, unit);
}

// How many units are equal to `unit`.
int countUnits(const ZrUcs2 *from, const ZrUcs2 *end, ZrUcs2 unit)
{
    typedef ZrUcs2 Units __attribute__((vector_size(16)));
    constexpr int lanes = sizeof(Units) / sizeof(ZrUcs2), mostRounds = 65535;
    int count = 0;
    while (end - from >= lanes) {
        Units sums = {};
        for (int round = 0; round < mostRounds && end - from >= lanes; round++, from += lanes) {
            Units units;
            std::memcpy(&units, from, sizeof units);
            sums -= reinterpret_cast<Units>(units == unit); // a lane that is equal is -1
        }
        for (int i = 0; i < lanes; i++)
            count += sums[i];
    }
    return count + int(std::count(from, end, unit));
}

bool equalFolded(const ZrUcs2 *a, const ZrUcs2 *b, int count)
{
    for (int i = 0; i < count; i++)
        if (foldCase(a[i]) != foldCase(b[i]))
            return false;
    return true;
}

bool equal(const ZrUcs2 *a, const ZrUcs2 *b, int count, Zr::CaseSensitivity sensitivity)
{
    return sensitivity == Zr::CaseSensitive
               ? std::memcmp(a, b, std::size_t(count) * sizeof(ZrUcs2)) == 0
               : equalFolded(a, b, count);
}

const ZrUcs2 *findText(const ZrUcs2 *from, const ZrUcs2 *end, const ZrString &text,
                       Zr::CaseSensitivity sensitivity)
{
    const int length = text.size();
    if (length == 0)
        return from;
    for (; end - from >= length; from++) {
        if (sensitivity == Zr::CaseSensitive) {
            from = findUnit(from, end - length + 1, text.at(0));
            if (end - from < length)
                return end;
        }
        if (equal(from, text.constData(), length, sensitivity))
            return from;
    }
    return end;
}

} // namespace

int ZrString::indexOf(const ZrString &text, int from, Zr::CaseSensitivity sensitivity) const
{
    from = std::max(from < 0 ? from + size() : from, 0);
    if (from > size() - text.size())
        return -1;
    const ZrUcs2 *found = findText(begin() + from, end(), text, sensitivity);
    return found == end() && !text.isEmpty() ? -1 : int(found - begin());
}

int ZrString::indexOf(ZrUcs2 unit, int from, Zr::CaseSensitivity sensitivity) const
{
    from = std::max(from < 0 ? from + size() : from, 0);
    if (from >= size())
        return -1;
    const ZrUcs2 folded = foldCase(unit);
    const ZrUcs2 *found =
        sensitivity == Zr::CaseSensitive
            ? findUnit(begin() + from, end(), unit)
            : std::find_if(begin() + from, end(), [&](ZrUcs2 u) { return foldCase(u) == folded; });
    return found == end() ? -1 : int(found - begin());
}

int ZrString::lastIndexOf(const ZrString &text, int from, Zr::CaseSensitivity sensitivity) const
{
    if (from < 0)
        from += size();
    if (from < 0 && !(isEmpty() && text.isEmpty()))
        return -1;
    for (int i = std::min(std::max(from, 0), size() - text.size()); i >= 0; i--)
        if (equal(begin() + i, text.constData(), text.size(), sensitivity))
            return i;
    return -1;
}

int ZrString::lastIndexOf(ZrUcs2 unit, int from, Zr::CaseSensitivity sensitivity) const
{
    return lastIndexOf(ZrString(unit), from, sensitivity);
}

bool ZrString::startsWith(const ZrString &text, Zr::CaseSensitivity sensitivity) const
{
    return text.size() <= size() && equal(begin(), text.begin(), text.size(), sensitivity);
}

bool ZrString::endsWith(const ZrString &text, Zr::CaseSensitivity sensitivity) const
{
    return text.size() <= size() &&
           equal(end() - text.size(), text.begin(), text.size(), sensitivity);
}

ZrStringList ZrString::split(const ZrString &separator, SplitBehavior behavior,
                             Zr::CaseSensitivity sensitivity) const
{
    if (separator.size() == 1)
        return split(separator.at(0), behavior, sensitivity);
    ZrStringSplitter splitter(*this, behavior);
    if (!separator.isEmpty()) {
        const ZrUcs2 *found;
        while ((found = findText(splitter.begin(), end(), separator, sensitivity)) != end())
            splitter.cut(found, separator.size());
    }
    return splitter.finish(end());
}

ZrStringList ZrString::split(ZrUcs2 separator, SplitBehavior behavior,
                             Zr::CaseSensitivity sensitivity) const
{
    ZrStringSplitter splitter(*this, behavior);
    const ZrUcs2 folded = foldCase(separator);
    if (sensitivity == Zr::CaseSensitive) {
        splitter.reserve(countUnits(begin(), end(), separator) + 1);
        const ZrUcs2 *found;
        while ((found = findUnit(splitter.begin(), end(), separator)) != end())
            splitter.cut(found, 1);
    } else {
        for (const ZrUcs2 *at = begin(); at < end(); at++)
            if (foldCase(*at) == folded)
                splitter.cut(at, 1);
    }
    return splitter.finish(end());
}
