#include "zrtool/character_class.h"

#include <algorithm>
#include <iterator>

namespace zrtool
{
namespace
{

struct Range {
    std::uint32_t first, last;
};

template <std::size_t count>
bool isIn(const Range (&ranges)[count], std::uint32_t unit)
{
    const Range *after =
        std::upper_bound(std::begin(ranges), std::end(ranges), unit,
                         [](std::uint32_t u, const Range &r) { return u < r.first; });
    return after != ranges && unit <= after[-1].last;
}

template <std::size_t count>
bool isOneOf(const char16_t (&units)[count], std::uint32_t unit)
{
    return unit != 0 && std::find(units, units + count - 1, unit) != units + count - 1;
}

constexpr Range simpleRanges[] = {
    {0x0000, 0x02FF}, // Latin
    {0x0370, 0x0482}, // Greek, Cyrillic
    {0x048A, 0x058F}, // Cyrillic, Armenian
    {0x1D00, 0x1DBF}, // phonetic letters
    {0x1E00, 0x1FFF}, // Vietnamese, polytonic Greek
    {0x2000, 0x200A}, // spaces
    {0x2010, 0x2029}, // punctuation
    {0x202F, 0x205F}, // punctuation
    {0x2070, 0x20CF}, // superscripts, currencies
    {0x2100, 0x2DDF}, // symbols
    {0x2E00, 0x3029}, // punctuation, radicals, CJK punctuation
    {0x3030, 0x3098}, // hiragana
    {0x309B, 0xA66E}, // kana, bopomofo, Han, Yi
    {0xA700, 0xA7FF}, // Latin
    {0xAC00, 0xD7A3}, // Hangul syllables
    {0xE000, 0xFB06}, // private use, Han, Latin ligatures
    {0xFE30, 0xFE6F}, // vertical and small forms
    {0xFF00, 0xFFFD}, // full and half width forms
};

// Scripts that may be broken between any two characters.
constexpr Range ideographRanges[] = {
    {0x2E80, 0x2FFF}, // radicals
    {0x3001, 0x30FF}, // CJK punctuation, kana
    {0x3105, 0x312F}, // bopomofo
    {0x31A0, 0x4DBF}, // bopomofo, katakana, enclosed, Han
    {0x4E00, 0x9FFF}, // Han
    {0xF900, 0xFAFF}, // Han
    {0xFE30, 0xFE4F}, // vertical forms
    {0xFF01, 0xFF60}, // full width forms
    {0x20000, 0x3FFFF},
};

// What does not begin a line: closing punctuation, small kana, marks of length and repetition.
constexpr char16_t notFirst[] =
    u"!),.:;?]}\u00A2\u00B0\u2019\u201D\u2026\u2030\u2103\u3001\u3002\u3003\u3005\u3009\u300B\u300D"
    u"\u300F\u3011\u3015\u3017\u3019\u301B\u301E\u301F\u3041\u3043\u3045\u3047\u3049\u3063\u3083"
    u"\u3085\u3087\u308E\u3095\u3096\u309B\u309C\u309D\u309E\u30A1\u30A3\u30A5\u30A7\u30A9\u30C3"
    u"\u30E3\u30E5\u30E7\u30EE\u30F5\u30F6\u30FB\u30FC\u30FD\u30FE\uFF01\uFF05\uFF09\uFF0C\uFF0E"
    u"\uFF1A\uFF1B\uFF1F\uFF3D\uFF5D\uFF60\uFFE0";
// What does not end one: opening punctuation.
constexpr char16_t notLast[] =
    u"([{\u00A3\u00A5\u2018\u201C\u3008\u300A\u300C\u300E\u3010\u3014\u3016\u3018\u301A\u301D\uFF04"
    u"\uFF08\uFF3B\uFF5B\uFF5F\uFFE1\uFFE5";

bool isThaiLeadingVowel(std::uint32_t unit)
{
    return unit >= 0x0E40 && unit <= 0x0E44;
}

// Sara a, sara am, paiyannoi, maiyamok: a syllable is complete behind them.
bool isThaiFinal(std::uint32_t unit)
{
    return unit == 0x0E30 || unit == 0x0E33 || unit == 0x0E2F || unit == 0x0E46;
}

bool isLetter(std::uint32_t unit)
{
    return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') || unit >= 0xC0;
}

} // namespace

bool isSimpleByTable(std::uint32_t unit)
{
    return isIn(simpleRanges, unit);
}

bool isLineEnd(std::uint32_t unit)
{
    return unit == '\n' || unit == 0x2028 || unit == 0x2029;
}

bool isBreakingSpace(std::uint32_t unit)
{
    return unit == ' ' || unit == '\t' || unit == 0x3000 || unit == 0x200B || unit == 0x1680 ||
           (unit >= 0x2000 && unit <= 0x200A && unit != 0x2007);
}

bool isThai(std::uint32_t unit)
{
    return unit >= 0x0E00 && unit <= 0x0E7F;
}

bool mayBreakBetween(std::uint32_t before, std::uint32_t after)
{
    if (isOneOf(notFirst, after) || isOneOf(notLast, before))
        return false;
    if (isThai(before) && isThai(after))
        return isThaiLeadingVowel(after) ? !isThaiLeadingVowel(before)
                                         : isThaiFinal(before) && !isThaiFinal(after);
    if (before == '-' || before == 0x2010 || before == 0x2013)
        return isLetter(after);
    return isIn(ideographRanges, before) || isIn(ideographRanges, after);
}

} // namespace zrtool
