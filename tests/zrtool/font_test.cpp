// The font file: every character that the languages need, in texts and in the names people give.
#include "zrtool/glyph_store.h"

#include <zrfontmetrics>

#include <gtest/gtest.h>

#include <iconv.h>

namespace
{

const char *const fontFile = ZR_BINARY_DIR "/data/font/yahei_arial_gothic_unicode.ttf";

// The characters that a national set has for these bytes, without signs and private use when they
// are two.
std::vector<std::uint32_t> charactersOf(const char *set, int firstByte, int lastByte, int trail)
{
    std::vector<std::uint32_t> characters;
    const iconv_t converter = iconv_open("UTF-16LE", set);
    EXPECT_NE(converter, iconv_t(-1)) << set;
    for (int first = firstByte; first <= lastByte; first++) {
        for (int second = trail; second <= (trail ? 0xFE : 0); second++) {
            char bytes[2] = {char(first), char(second)};
            std::uint8_t units[8] = {};
            char *from = bytes, *to = reinterpret_cast<char *>(units);
            std::size_t left = trail ? 2 : 1, room = sizeof units;
            const bool known = iconv(converter, &from, &left, &to, &room) != std::size_t(-1);
            iconv(converter, nullptr, nullptr, &to, &room); // some keep a letter for its marks
            const std::uint32_t character = units[0] | std::uint32_t(units[1]) << 8;
            if (known && (!trail || (character >= 0x4E00 && character <= 0x9FFF)))
                characters.push_back(character);
        }
    }
    iconv_close(converter);
    return characters;
}

} // namespace

class Font : public testing::Test
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(ZrFontMetrics::setFontFile(fontFile, 5 << 20)); }
    static void expectGlyph(std::uint32_t character, const char *where)
    {
        EXPECT_NE(zrtool::GlyphStore::instance().glyphOf(character), 0u)
            << where << " U+" << std::hex << character;
    }
};

TEST_F(Font, HoldsTheNationalSets)
{
    const struct {
        const char *languages, *set;
        int firstByte, lastByte, trail; // the lowest second byte; 0 for a set of one byte
        std::size_t characters;         // at least
    } rows[] = {
        {"English", "ASCII", 0x20, 0x7E, 0, 95},
        {"Western European", "CP1252", 0x80, 0xFF, 0, 120},
        {"Central European", "CP1250", 0x80, 0xFF, 0, 120},
        {"Romanian", "ISO-8859-16", 0xA0, 0xFF, 0, 96},
        {"Cyrillic", "CP1251", 0x80, 0xFF, 0, 120},
        {"Greek", "CP1253", 0xA0, 0xFF, 0, 90},
        {"Turkish", "CP1254", 0x80, 0xFF, 0, 120},
        {"Hebrew", "ISO-8859-8", 0xE0, 0xFA, 0, 27},
        {"Arabic", "CP1256", 0x80, 0xFF, 0, 120},
        {"Vietnamese", "CP1258", 0x80, 0xFF, 0, 110},
        {"Thai", "TIS-620", 0xA1, 0xFB, 0, 87},
        {"simplified Chinese", "GB2312", 0xB0, 0xF7, 0xA1, 6700},
        {"traditional Chinese", "BIG5", 0xA4, 0xF9, 0x40, 13000},
        {"Japanese", "EUC-JP", 0xB0, 0xF4, 0xA1, 6300},
    };
    for (const auto &row : rows) {
        const auto characters = charactersOf(row.set, row.firstByte, row.lastByte, row.trail);
        EXPECT_GE(characters.size(), row.characters) << row.set;
        for (const std::uint32_t character : characters)
            expectGlyph(character, row.languages);
    }
}

TEST_F(Font, HoldsWhatTheNationalSetsLack)
{
    const struct {
        const char *languages;
        std::uint32_t first, last;
    } rows[] = {
        {"Romanian with commas", 0x218, 0x21B},
        {"Arabic digits", 0x660, 0x669},
        {"Persian letters", 0x6CC, 0x6CC},
        {"Persian digits", 0x6F0, 0x6F9},
        {"Hindi", 0x901, 0x970},
        {"German capital", 0x1E9E, 0x1E9E},
        {"Vietnamese in one", 0x1EA0, 0x1EF9},
        {"arrows", 0x2190, 0x2193},
        {"comparisons", 0x2264, 0x2265},
        {"Chinese stops", 0x3001, 0x3002},
        {"Japanese brackets", 0x300C, 0x300D},
        {"hiragana", 0x3041, 0x3093},
        {"katakana", 0x30A1, 0x30F6},
        {"its dot and long vowel", 0x30FB, 0x30FC},
        {"Korean", 0xAC00, 0xD7A3},
    };
    for (const auto &row : rows)
        for (std::uint32_t character = row.first; character <= row.last; character++)
            expectGlyph(character, row.languages);
}
