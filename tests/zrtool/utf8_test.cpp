#include "support/random_seed.h"

#include <zrstring>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace
{

// Table 3-7 of the Unicode standard: what a well-formed sequence may be made of.
struct WellFormed {
    std::vector<std::pair<int, int>> bytes;
};
const WellFormed table[] = {
    {{{0x00, 0x7F}}},
    {{{0xC2, 0xDF}, {0x80, 0xBF}}},
    {{{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}}},
    {{{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}}},
    {{{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}}},
};

// How many bytes from here follow a row of the table, and whether they are all of it.
std::pair<std::size_t, bool> longestMatch(const std::string &bytes, std::size_t at)
{
    std::pair<std::size_t, bool> longest{0, false};
    for (const WellFormed &row : table) {
        std::size_t n = 0;
        while (n < row.bytes.size() && at + n < bytes.size() &&
               std::uint8_t(bytes[at + n]) >= row.bytes[n].first &&
               std::uint8_t(bytes[at + n]) <= row.bytes[n].second)
            n++;
        if (n > longest.first)
            longest = {n, n == row.bytes.size()};
    }
    return longest;
}

// By the table: every longest beginning of a sequence that is not completed is one U+FFFD.
std::u16string decode(const std::string &bytes)
{
    std::u16string units;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto [length, whole] = longestMatch(bytes, at);
        if (!whole) {
            units += u'\uFFFD';
            at += std::max<std::size_t>(length, 1);
            continue;
        }
        static const int firstBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
        std::uint32_t code = std::uint8_t(bytes[at]) & unsigned(firstBits[length]);
        for (std::size_t i = 1; i < length; i++)
            code = code << 6 | (std::uint8_t(bytes[at + i]) & 0x3Fu);
        if (code < 0x10000) {
            units += char16_t(code);
        } else {
            units += char16_t(0xD7C0 + (code >> 10));
            units += char16_t(0xDC00 + (code & 0x3FF));
        }
        at += length;
    }
    return units;
}

void expectAgreement(const std::string &bytes)
{
    const ZrString text(bytes.data(), int(bytes.size()));
    ASSERT_EQ(std::u16string(text.begin(), text.end()), decode(bytes));
    // What came out is well-formed and stays as it is from then on.
    const ZrByteArray again = text.toUtf8();
    ASSERT_EQ(ZrString(again), text);
    ASSERT_EQ(ZrString(again).toUtf8(), again);
}

} // namespace

TEST(Utf8, AgreesWithTheTableOnEverySequenceOfThreeTellingBytes)
{
    const int telling[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1, 0xC2,
                           0xDF, 0xE0, 0xE1, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xFF};
    for (int a : telling)
        for (int b : telling)
            for (int c : telling)
                for (const char *around : {"", "\x80", "0123456789abcdefg"})
                    ASSERT_NO_FATAL_FAILURE(
                        expectAgreement(around + std::string{char(a), char(b), char(c)} + around));
}

TEST(Utf8, AgreesWithTheTableOnRandomBytes)
{
    std::mt19937 random = seededRandom();
    for (int round = 0; round < 3000; round++) {
        std::string bytes;
        for (int pieces = pick(random, 0, 20); pieces > 0; pieces--) {
            const WellFormed &row = table[pick(random, 0, 8)];
            for (const auto &[lowest, highest] : row.bytes)
                bytes += char(pick(random, lowest, highest));
            if (pick(random, 0, 3) == 0)
                bytes += std::string(std::size_t(pick(random, 0, 20)), 'x');
            if (pick(random, 0, 5) == 0)
                bytes += char(pick(random, 0, 255));
            if (pick(random, 0, 7) == 0 && !bytes.empty())
                bytes.pop_back();
        }
        ASSERT_NO_FATAL_FAILURE(expectAgreement(bytes));
    }
}

TEST(Utf8, ReplacesLoneSurrogatesAndStopsAtTheTerminator)
{
    const ZrUcs2 units[] = {'a', 0xD800, 'b', 0xDC00, 0xD83D, 0xDE00};
    EXPECT_EQ(ZrString::fromUtf16(units, 6).toUtf8(), ZrByteArray("a\xEF\xBF\xBD"
                                                                  "b\xEF\xBF\xBD\xF0\x9F\x98\x80"));
    EXPECT_EQ(ZrString("ab\0c").size(), 2);
    EXPECT_EQ(ZrString("ab\0c", 4).size(), 4);
    EXPECT_EQ(ZrString(nullptr).size(), 0);
    EXPECT_EQ(ZrString("abc", 0).size(), 0);
}

TEST(Utf8, AgreesWithTheTableOnTheCorpusOfTheFuzzer)
{
    int files = 0;
    for (const auto &entry :
         std::filesystem::directory_iterator(ZR_SOURCE_DIR "/tests/fuzz/utf8")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        EXPECT_NO_FATAL_FAILURE(expectAgreement(bytes)) << entry.path();
        files++;
    }
    EXPECT_GT(files, 0);
}
