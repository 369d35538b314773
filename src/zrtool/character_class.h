// What laying out text needs to know of a character.
#pragma once

#include <cstdint>

namespace zrtool
{

// True for a code unit that is drawn by one glyph at the pen and stands in left-to-right order,
// whatever is beside it. All others (marks, joined and right-to-left scripts, surrogates) need
// shaping.
bool isSimpleByTable(std::uint32_t unit);
inline bool isSimple(std::uint32_t unit)
{
    return unit < 0x300 || isSimpleByTable(unit);
}

// Ends a line of its own accord.
bool isLineEnd(std::uint32_t unit);
// A space that a line may end behind, and that takes no room there.
bool isBreakingSpace(std::uint32_t unit);
bool isThai(std::uint32_t unit);
// Whether a line may end between two neighbouring characters, neither of them a space: see the
// rules told at ZrFontMetrics.
bool mayBreakBetween(std::uint32_t before, std::uint32_t after);

} // namespace zrtool
