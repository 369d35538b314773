#include "zrtool/change.h"

#include <zrbitarray>
#include <zrbytearray>
#include <zrstringlist>

#include <gtest/gtest.h>

#include <climits>

namespace
{

const ZrString face("\xF0\x9F\x98\x80"); // one character, two code units

std::u16string standard(const ZrString &text)
{
    return std::u16string(text.begin(), text.end());
}

ZrString ours(const std::u16string &text)
{
    return ZrString::fromUtf16(reinterpret_cast<const ZrUcs2 *>(text.data()), int(text.size()));
}

} // namespace

void PrintTo(const ZrString &text, std::ostream *out)
{
    *out << '"' << text.toUtf8().constData() << '"';
}

TEST(ZrString, AgreesWithAStandardStringUnderRandomChanges)
{
    std::mt19937 random = seededRandom();
    ZrString text, kept;
    std::u16string model, keptModel, piece;
    int at, count;
    std::size_t from, many; // the same
    const Change changes[] = {
        {[&] { text.append(ours(piece)); }, [&] { model += piece; }},
        {[&] { text.insert(at, ours(piece)); }, [&] { model.insert(from, piece); }},
        {[&] { text.prepend(ZrUcs2('x')); }, [&] { model.insert(0, u"x"); }},
        {[&] { text.remove(at, count); }, [&] { model.erase(from, many); }},
        {[&] { text.replace(at, count, ours(piece)); }, [&] { model.replace(from, many, piece); }},
        {[&] { text.resize(at); }, [&] { model.resize(from); }},
        {[&] { text.append(text); }, [&] { model += model; }},
        {[&] { text.truncate(50); }, [&] { model = model.substr(0, 50); }},
        {[&] { kept = text; }, [&] { keptModel = model; }},
        {[&] { std::swap(text, kept); }, [&] { std::swap(model, keptModel); }},
    };
    for (int step = 0; step < 5000; step++) {
        from = std::size_t(at = pick(random, 0, text.size()));
        many = std::size_t(count = pick(random, 0, 4));
        piece.assign(std::size_t(pick(random, 0, 3)), char16_t(pick(random, 'a', 'c')));
        makeOne(changes, random);
        ASSERT_EQ(standard(text), model) << "step " << step;
        ASSERT_EQ(text.constData()[text.size()], 0);
        ASSERT_EQ(text.compare(kept) < 0, model < keptModel);
        ASSERT_EQ(text == kept, model == keptModel);
        from = std::size_t(at = std::min(at, text.size()));
        ASSERT_EQ(text.indexOf(ours(piece), at), int(model.find(piece, from)));
        ASSERT_TRUE(text.isEmpty() ||
                    text.lastIndexOf(ours(piece), at) == int(model.rfind(piece, from)));
    }
}

TEST(ZrString, CutsOutPartsAndClamps)
{
    const ZrString text("hello");
    EXPECT_EQ(ZrString("x").mid(5), ZrString());
    EXPECT_EQ(text.mid(1, 3), ZrString("ell"));
    EXPECT_EQ(text.mid(3, -1), ZrString("lo"));
    EXPECT_EQ(text.mid(-2, 2), ZrString("he"));
    EXPECT_EQ(text.mid(2, INT_MAX), ZrString("llo"));
    EXPECT_EQ(text.left(-1), ZrString());
    EXPECT_EQ(text.left(99) + text.right(99), text + text);
    EXPECT_EQ(text.right(2), ZrString("lo"));
    EXPECT_EQ(ZrString(" \t a b\n\xE3\x80\x80").trimmed(), ZrString("a b"));
    EXPECT_EQ(ZrString("  a \n b ").simplified(), ZrString("a b"));
}

TEST(ZrString, NeverCutsASurrogatePair)
{
    const ZrString text = ZrString("a") + face + "b";
    for (int cut = 0; cut <= text.size(); cut++) {
        EXPECT_EQ(text.left(cut) + text.mid(cut), text) << cut;
        EXPECT_FALSE(text.left(cut).toUtf8() != ZrByteArray("a") && cut == 2);
        EXPECT_EQ(text.right(cut).toUtf8().indexOf('\xBD'), -1) << cut; // of a lone half: EF BF BD
    }
    EXPECT_EQ(text.mid(2, 1), face.left(1) + face);
    ZrString cut(text);
    cut.truncate(2);
    EXPECT_EQ(cut, ZrString("a"));
}

TEST(ZrString, ReplacesAndRemovesByTextAndCase)
{
    EXPECT_EQ(ZrString("aXbxc").replace("x", "--", Zr::CaseInsensitive), ZrString("a--b--c"));
    EXPECT_EQ(ZrString("aaa").replace("aa", "b"), ZrString("ba"));
    EXPECT_EQ(ZrString("abc").replace("", "x"), ZrString("abc"));
    EXPECT_EQ(ZrString("aXbx").remove("x"), ZrString("aXb"));
    EXPECT_EQ(ZrString("aXbx").remove(ZrUcs2('x'), Zr::CaseInsensitive), ZrString("ab"));
    EXPECT_EQ(ZrString("aXbx").replace(ZrUcs2('x'), ZrUcs2('y')), ZrString("aXby"));
    ZrString self("ab");
    self.replace("a", self);
    EXPECT_EQ(self, ZrString("abb"));
}

TEST(ZrString, MapsAndComparesCase)
{
    struct Case {
        const char *lower, *upper;
    };
    const Case cases[] = {{"az09_", "AZ09_"},   {"äöé", "ÄÖÉ"},     {"żółć", "ŻÓŁĆ"},
                          {"привіт", "ПРИВІТ"}, {"αθήνα", "ΑΘΉΝΑ"}, {"tiếng", "TIẾNG"},
                          {"中文", "中文"}};
    for (const Case &c : cases) {
        EXPECT_EQ(ZrString(c.lower).toUpper(), ZrString(c.upper));
        EXPECT_EQ(ZrString(c.upper).toLower(), ZrString(c.lower));
        EXPECT_EQ(ZrString(c.lower).compare(c.upper, Zr::CaseInsensitive), 0);
    }
    EXPECT_TRUE(ZrString("FILE.XML").endsWith(".xml", Zr::CaseInsensitive));
    EXPECT_FALSE(ZrString("l").endsWith("xml"));
    EXPECT_EQ(ZrString("straSSe").indexOf("ASS", 0, Zr::CaseInsensitive), 3);
    EXPECT_EQ(ZrString("aBaB").lastIndexOf("b", -1, Zr::CaseInsensitive), 3);
    EXPECT_LT(ZrString("B"), ZrString("a"));
    EXPECT_LT(ZrString("a"), ZrString("ab"));
}

TEST(ZrString, Splits)
{
    struct Case {
        const char *text, *separator;
        ZrStringList parts;
        Zr::CaseSensitivity sensitivity = Zr::CaseSensitive;
    };
    const Case cases[] = {
        {"a,b", ",", {"a", "b"}},
        {",a,,b,", ",", {"", "a", "", "b", ""}},
        {"", ",", {""}},
        {"a<>b<>", "<>", {"a", "b", ""}},
        {"abc", "", {"abc"}},
        {"aXbxc", "x", {"aXb", "c"}},
        {"aXbxc", "x", {"a", "b", "c"}, Zr::CaseInsensitive},
        {"aXYbxyc", "xy", {"a", "b", "c"}, Zr::CaseInsensitive},
    };
    for (const Case &c : cases) {
        const ZrString text(c.text), separator(c.separator);
        EXPECT_EQ(text.split(separator, ZrString::KeepEmptyParts, c.sensitivity), c.parts)
            << c.text;
        ZrStringList filled(c.parts);
        filled.removeAll("");
        EXPECT_EQ(text.split(separator, ZrString::SkipEmptyParts, c.sensitivity), filled) << c.text;
    }
}

// The parts share blocks of memory; which of them goes first, or changes, must not matter.
TEST(ZrString, GivesPartsThatLiveOnTheirOwn)
{
    std::mt19937 random = seededRandom();
    std::vector<ZrString> kept;
    std::vector<std::u16string> model;
    for (int round = 0; round < 20; round++) {
        ZrStringList fields;
        for (int i = 0; i < 300; i++)
            fields.append(ZrString(pick(random, 0, 90), ZrUcs2('a' + i % 26)));
        const ZrStringList parts = fields.join(",").split(",");
        ASSERT_EQ(parts, fields);
        for (int n = 0; n < 30; n++) {
            kept.push_back(parts.at(pick(random, 0, parts.size() - 1)));
            model.push_back(standard(kept.back()));
        }
        for (int n = 0; n < 20; n++) {
            const std::size_t i = std::size_t(pick(random, 0, int(kept.size()) - 1));
            kept[i].append(ZrUcs2('+'));
            model[i] += u'+';
            kept.erase(kept.begin() + int(i) / 2);
            model.erase(model.begin() + int(i) / 2);
        }
    }
    for (std::size_t i = 0; i < kept.size(); i++)
        ASSERT_EQ(standard(kept[i]), model[i]);
}

TEST(ZrString, ReadsNumbers)
{
    struct Case {
        const char *text;
        int base;
        bool readable;
        long long value;
    };
    const Case cases[] = {
        {"-17", 10, true, -17},
        {" +5 ", 10, true, 5},
        {"7fffffff", 16, true, INT_MAX},
        {"0xFF", 16, true, 255},
        {"0xFF", 0, true, 255},
        {"010", 0, true, 8},
        {"010", 10, true, 10},
        {"zz", 36, true, 1295},
        {"-1010", 2, true, -10},
        {"9223372036854775807", 10, true, LLONG_MAX},
        {"-9223372036854775808", 10, true, LLONG_MIN},
        {"9223372036854775808", 10, false, 0},
        {"-9223372036854775809", 10, false, 0},
        {"", 10, false, 0},
        {"-", 10, false, 0},
        {"0x", 16, false, 0},
        {"12a", 10, false, 0},
        {"1 2", 10, false, 0},
        {"2", 2, false, 0},
        {"1", 37, false, 0},
        {"\xD9\xA1", 10, false, 0},
    };
    for (const Case &c : cases) {
        bool ok = !c.readable;
        EXPECT_EQ(ZrString(c.text).toLongLong(&ok, c.base), c.value) << c.text;
        EXPECT_EQ(ok, c.readable) << c.text;
    }
    bool ok;
    EXPECT_EQ(ZrString("-2147483648").toInt(&ok), INT_MIN);
    EXPECT_TRUE(ok);
    EXPECT_EQ(ZrString("2147483648").toInt(&ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(ZrString("4294967295").toUInt(), UINT_MAX);
    EXPECT_EQ(ZrString("4294967296").toUInt() + ZrString("-1").toUInt(), 0u);
    EXPECT_EQ(ZrString("18446744073709551615").toULongLong(), ULLONG_MAX);
    EXPECT_EQ(ZrString("18446744073709551616").toULongLong(), 0u);
    EXPECT_EQ(ZrString("-2.5e3").toDouble(), -2500);
    ZrString("1e999").toDouble(&ok);
    EXPECT_FALSE(ok);
}

TEST(ZrString, WritesNumbers)
{
    EXPECT_EQ(ZrString::number(INT_MIN), ZrString("-2147483648"));
    EXPECT_EQ(ZrString::number(LLONG_MIN, 2).size(), 65);
    EXPECT_EQ(ZrString::number(255u, 16), ZrString("ff"));
    EXPECT_EQ(ZrString::number(5, 99), ZrString("5"));
    EXPECT_EQ(ZrString::number(ULLONG_MAX, 36).toULongLong(nullptr, 36), ULLONG_MAX);
    EXPECT_EQ(ZrString::number(2.5, 'f', 2), ZrString("2.50"));
    EXPECT_EQ(ZrString::number(1e300, 'f', 100).size(), 301 + 101);
    EXPECT_EQ(ZrString::number(0.1), ZrString("0.1"));
    EXPECT_EQ(ZrString::number(1.5, '?', 3), ZrString("1.5"));
}

TEST(ZrString, FillsPlaceMarkers)
{
    EXPECT_EQ(ZrString("none").arg(1), ZrString("none"));
    EXPECT_EQ(ZrString("100% %").arg("x"), ZrString("100% %"));
    EXPECT_EQ(ZrString("%0 %1").arg("x"), ZrString("%0 x"));
    EXPECT_EQ(ZrString("%2-%1-%2").arg("a").arg("b"), ZrString("b-a-b"));
    EXPECT_EQ(ZrString("%10 %9").arg("a"), ZrString("%10 a"));
    EXPECT_EQ(ZrString("%123").arg("a"), ZrString("a3"));
    EXPECT_EQ(ZrString("%1").arg("%2").arg("x"), ZrString("x")); // a filled-in marker counts
    EXPECT_EQ(ZrString("[%1]").arg("ab", 4), ZrString("[  ab]"));
    EXPECT_EQ(ZrString("[%1]").arg("ab", -4, '.'), ZrString("[ab..]"));
    EXPECT_EQ(ZrString("%1").arg("abc", 2), ZrString("abc"));
    EXPECT_EQ(ZrString("%1").arg(-5, 4, 10, '0'), ZrString("-005"));
    EXPECT_EQ(ZrString("%1").arg(255u, 6, 16, '0'), ZrString("0000ff"));
    EXPECT_EQ(ZrString("%1").arg(-5, -4, 10, '0'), ZrString("-500"));
    EXPECT_EQ(ZrString("%1").arg(ULLONG_MAX), ZrString("18446744073709551615"));
    EXPECT_EQ(ZrString("%1").arg(LLONG_MIN), ZrString("-9223372036854775808"));
    EXPECT_EQ(ZrString("%1").arg(3.14159, 6, 'f', 2), ZrString("  3.14"));
    EXPECT_EQ(ZrString("%1").arg(-0.5, 6, 'f', 1, '0'), ZrString("-000.5"));
}

TEST(ZrString, FillsSeveralPlaceMarkersInOnePass)
{
    const ZrString a("%1"), b("B"), c("C");
    const ZrString *const texts[] = {&a, &b, &c};
    EXPECT_EQ(ZrString("%3 %1 %7 %3").multiArg(3, texts), ZrString("B %1 C B"));
    EXPECT_EQ(ZrString("%1 %2").multiArg(1, texts), ZrString("%1 %2"));
    EXPECT_EQ(ZrString("%5").multiArg(3, texts), ZrString("%1"));
}

TEST(ZrString, PrintsAsCDoes)
{
    ZrString text;
    EXPECT_EQ(text.sprintf("%02d:%s:%c", 7, "\xC3\xA9", 'x'), ZrString("07:\xC3\xA9:x"));
    EXPECT_EQ(text.sprintf("%1000d", 1).size(), 1000);
    EXPECT_EQ(text.sprintf("%s", text.toUtf8().constData()).size(), 1000);
}

TEST(ZrByteArray, StandsOnRawBytesUntilItIsWrittenTo)
{
    char borrowed[] = {'a', 'b', 'c'};
    ZrByteArray array = ZrByteArray::fromRawBytes(borrowed, 3);
    EXPECT_EQ(array.constData(), borrowed);
    const ZrByteArray copy(array);
    array.append('d');
    EXPECT_EQ(array, ZrByteArray("abcd"));
    EXPECT_EQ(copy.constData(), borrowed);
    array = ZrByteArray::fromRawBytes(borrowed, 3);
    array.data()[0] = 'x';
    EXPECT_EQ(borrowed[0], 'a');
    // Freed with delete[]; the address sanitizer would tell.
    ZrByteArray own =
        ZrByteArray::fromRawBytes(new char[2]{'o', 'k'}, 2, ZrByteArray::RawBytes::Own);
    own.resize(3);
    EXPECT_EQ(own, ZrByteArray("ok\0", 3));
    EXPECT_EQ(ZrByteArray::fromRawBytes(nullptr, 4).size(), 0);
}

TEST(ZrByteArray, ComparesCutsAndGrows)
{
    ZrByteArray array("hello");
    EXPECT_EQ(array.mid(1, 3), ZrByteArray("ell"));
    EXPECT_EQ(array.mid(9), ZrByteArray());
    EXPECT_EQ(array.indexOf('l', 3), 3);
    EXPECT_EQ(array.indexOf('l', 9), -1);
    EXPECT_TRUE(ZrByteArray("a") < ZrByteArray("\xFF"));
    EXPECT_TRUE(ZrByteArray("a") < ZrByteArray("aa"));
    EXPECT_NE(ZrByteArray("a\0b", 3), ZrByteArray("a\0c", 3));
    array.append(array.constData() + 1, 3); // of itself, across a reallocation
    EXPECT_EQ(array, ZrByteArray("helloell"));
    array.resize(2);
    array.resize(4);
    EXPECT_EQ(array, ZrByteArray("he\0\0", 4));
    EXPECT_EQ(array.at(-1), '\0');
    EXPECT_EQ(ZrByteArray(3, 'z'), ZrByteArray("zzz"));
}

TEST(ZrBitArray, ReadsAndWritesChannelMasks)
{
    const std::uint8_t raw[] = {0x05, 0xFF};
    const ZrBitArray bits = ZrBitArray::fromRawBytes(raw, 10);
    EXPECT_EQ(bits.size(), 10);
    EXPECT_TRUE(bits.isSet(0) && !bits.isSet(1) && bits.isSet(2) && bits.isSet(9));
    EXPECT_FALSE(bits.isSet(10) || bits.isSet(-1));
    EXPECT_EQ(bits.countSet(), 4);
    std::uint8_t out[4] = {9, 9, 9, 9};
    bits.toRawBytes(out, 4);
    EXPECT_EQ(out[0], 0x05);
    EXPECT_EQ(out[1], 0x03); // what is past the end never leaves
    EXPECT_EQ(out[2] | out[3], 0);
    bits.toRawBytes(out, 1);
    EXPECT_EQ(out[1], 0x03);

    EXPECT_TRUE(ZrBitArray().allCleared() && ZrBitArray().allSet());
    ZrBitArray some(13, true);
    EXPECT_TRUE(some.allSet());
    EXPECT_EQ(some.countSet(), 13);
    some.clearBit(12);
    some.setBit(99);
    EXPECT_FALSE(some.allSet());
    EXPECT_EQ((some & bits).size(), 13);
    EXPECT_EQ((some & bits).countSet(), 4);
    ZrBitArray joined(3, false);
    joined |= bits;
    EXPECT_EQ(joined, bits);
    EXPECT_FALSE(ZrBitArray(8) == ZrBitArray(9));
}
