#include "ui/keyboard/hangulcomposer.h"

#include <string_view>

namespace
{

// In the order of the syllables' numbers: a syllable is 0xAC00 + (lead * 21 + vowel) * 28 + tail.
constexpr std::u16string_view Leads = u"ㄱㄲㄴㄷㄸㄹㅁㅂㅃㅅㅆㅇㅈㅉㅊㅋㅌㅍㅎ";
constexpr std::u16string_view Vowels = u"ㅏㅐㅑㅒㅓㅔㅕㅖㅗㅘㅙㅚㅛㅜㅝㅞㅟㅠㅡㅢㅣ";
constexpr std::u16string_view Tails = u"ㄱㄲㄳㄴㄵㄶㄷㄹㄺㄻㄼㄽㄾㄿㅀㅁㅂㅄㅅㅆㅇㅈㅊㅋㅌㅍㅎ";

struct Pair {
    char16_t first, second, both;
};
constexpr Pair Pairs[] = {
    {u'ㅗ', u'ㅏ', u'ㅘ'}, {u'ㅗ', u'ㅐ', u'ㅙ'}, {u'ㅗ', u'ㅣ', u'ㅚ'}, {u'ㅜ', u'ㅓ', u'ㅝ'},
    {u'ㅜ', u'ㅔ', u'ㅞ'}, {u'ㅜ', u'ㅣ', u'ㅟ'}, {u'ㅡ', u'ㅣ', u'ㅢ'}, {u'ㄱ', u'ㅅ', u'ㄳ'},
    {u'ㄴ', u'ㅈ', u'ㄵ'}, {u'ㄴ', u'ㅎ', u'ㄶ'}, {u'ㄹ', u'ㄱ', u'ㄺ'}, {u'ㄹ', u'ㅁ', u'ㄻ'},
    {u'ㄹ', u'ㅂ', u'ㄼ'}, {u'ㄹ', u'ㅅ', u'ㄽ'}, {u'ㄹ', u'ㅌ', u'ㄾ'}, {u'ㄹ', u'ㅍ', u'ㄿ'},
    {u'ㄹ', u'ㅎ', u'ㅀ'}, {u'ㅂ', u'ㅅ', u'ㅄ'},
};

// 0 when the two do not join.
ZrUcs2 joined(ZrUcs2 first, ZrUcs2 second)
{
    for (const Pair &pair : Pairs)
        if (pair.first == first && pair.second == second)
            return pair.both;
    return 0;
}

int indexIn(std::u16string_view list, ZrUcs2 jamo)
{
    const std::size_t at = list.find(char16_t(jamo));
    return at == std::u16string_view::npos ? -1 : int(at);
}

} // namespace

ZrString HangulComposer::shown(const Parts &parts)
{
    if (parts.isEmpty())
        return ZrString();
    const ZrUcs2 vowel = parts.secondVowel ? joined(parts.vowel, parts.secondVowel) : parts.vowel;
    const ZrUcs2 tail = parts.secondTail ? joined(parts.tail, parts.secondTail) : parts.tail;
    if (!parts.lead || !vowel)
        return ZrString(parts.lead ? parts.lead : vowel);
    const int number = (indexIn(Leads, parts.lead) * 21 + indexIn(Vowels, vowel)) * 28 +
                       (tail ? indexIn(Tails, tail) + 1 : 0);
    return ZrString(ZrUcs2(0xAC00 + number));
}

ComposedEdit HangulComposer::type(const ZrString &key)
{
    const ZrUcs2 jamo = key.size() == 1 ? key.at(0) : ZrUcs2(0);
    if (indexIn(Vowels, jamo) >= 0)
        return typeVowel(jamo);
    if (indexIn(Leads, jamo) >= 0)
        return typeConsonant(jamo);
    reset();
    return {0, key};
}

ComposedEdit HangulComposer::begin(ZrUcs2 lead, ZrUcs2 vowel)
{
    parts_ = Parts();
    parts_.lead = lead;
    parts_.vowel = vowel;
    return {0, shown(parts_)};
}

ComposedEdit HangulComposer::typeVowel(ZrUcs2 jamo)
{
    if (parts_.tail) {
        // The last final was the lead of this syllable.
        ZrUcs2 &last = parts_.secondTail ? parts_.secondTail : parts_.tail;
        const ZrUcs2 lead = last;
        last = 0;
        const ZrString before = shown(parts_);
        return {1, before + begin(lead, jamo).text};
    }
    if (parts_.vowel) {
        if (parts_.secondVowel || !joined(parts_.vowel, jamo))
            return begin(0, jamo);
        parts_.secondVowel = jamo;
        return {1, shown(parts_)};
    }
    if (!parts_.lead)
        return begin(0, jamo);
    parts_.vowel = jamo;
    return {1, shown(parts_)};
}

ComposedEdit HangulComposer::typeConsonant(ZrUcs2 jamo)
{
    const bool isWhole = parts_.lead && parts_.vowel;
    if (!isWhole || parts_.secondTail)
        return begin(jamo, 0);
    if (!parts_.tail && indexIn(Tails, jamo) >= 0)
        parts_.tail = jamo;
    else if (parts_.tail && joined(parts_.tail, jamo))
        parts_.secondTail = jamo;
    else
        return begin(jamo, 0);
    return {1, shown(parts_)};
}

ComposedEdit HangulComposer::erase()
{
    for (ZrUcs2 *part :
         {&parts_.secondTail, &parts_.tail, &parts_.secondVowel, &parts_.vowel, &parts_.lead}) {
        if (!*part)
            continue;
        *part = 0;
        break;
    }
    return {1, shown(parts_)};
}
