// Upper and lower case of single UTF-16 units: the one-to-one mappings of the Unicode database.
#pragma once

#include <cstdint>

namespace zrtool
{

std::uint16_t upperCaseByTable(std::uint16_t unit);
std::uint16_t lowerCaseByTable(std::uint16_t unit);

inline std::uint16_t upperCase(std::uint16_t unit)
{
    if (unit >= 0x80)
        return upperCaseByTable(unit);
    return unit >= 'a' && unit <= 'z' ? std::uint16_t(unit - 0x20) : unit;
}

inline std::uint16_t lowerCase(std::uint16_t unit)
{
    if (unit >= 0x80)
        return lowerCaseByTable(unit);
    return unit >= 'A' && unit <= 'Z' ? std::uint16_t(unit + 0x20) : unit;
}

// What comparison without regard to case compares.
inline std::uint16_t foldCase(std::uint16_t unit)
{
    return upperCase(unit);
}

} // namespace zrtool
