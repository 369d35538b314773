// Characters of UTF-16 text, one after the other.
#pragma once

#include <cstdint>
#include <zrstring>

// The code point at `at`, which moves behind it; half of a pair stands for itself.
inline std::uint32_t nextCodePoint(const ZrUcs2 *units, int size, int &at)
{
    const std::uint32_t unit = units[at++];
    if (unit < 0xD800 || unit >= 0xDC00 || at == size || units[at] < 0xDC00 || units[at] >= 0xE000)
        return unit;
    return 0x10000 + ((unit - 0xD800) << 10) + (units[at++] - 0xDC00u);
}

// Where the code point before `at` begins.
inline int codePointBefore(const ZrUcs2 *units, int at)
{
    const bool isPair = at >= 2 && units[at - 1] >= 0xDC00 && units[at - 1] < 0xE000 &&
                        units[at - 2] >= 0xD800 && units[at - 2] < 0xDC00;
    return at - (isPair ? 2 : 1);
}

inline int utf8Length(std::uint32_t character)
{
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}
