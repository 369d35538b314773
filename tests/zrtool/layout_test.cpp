#include "support/random_seed.h"
#include "zrtool/glyph_store.h"

#include <zrfontengine>
#include <zrfontmetrics>
#include <zrstringlist>

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <numeric>

namespace
{

const char *const fontFile = ZR_BINARY_DIR "/data/font/yahei_arial_gothic_unicode.ttf";
constexpr int cacheBytes = 5 << 20;

int sum(const ZrList<int> &widths)
{
    return std::accumulate(widths.begin(), widths.end(), 0);
}

int advances(const ZrVector<const GlyphBitmap *> &glyphs)
{
    int width = 0;
    for (const GlyphBitmap *glyph : glyphs)
        width += glyph->advance;
    return width;
}

ZrFontMetrics wrapped(const ZrString &text, int width, const ZrFont &font = ZrFont(16))
{
    ZrFontMetrics metrics(text, font);
    metrics.setWorpWrap(true);
    metrics.setTextMinRect(0, 0, width, 100);
    return metrics;
}

// The lines as the parts of the text that they show.
ZrStringList linesOf(const ZrString &text, const ZrFontMetrics &metrics)
{
    ZrStringList lines;
    int from = 0;
    const int height = ZrFontMetrics::lineHeight(ZrFont(16));
    for (int i = 0; i < text.size();) {
        i += std::max(metrics.charCombinationNum(i), 1);
        const bool next = i == text.size() || metrics.cursorPoint(i).y() / height > lines.size();
        if (next) {
            lines.append(text.mid(from, i - from).trimmed());
            from = i;
        }
    }
    return lines;
}

} // namespace

class Layout : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(ZrFontMetrics::setFontFile(fontFile, cacheBytes)); }
};

TEST_F(Layout, KeepsClustersWhole)
{
    struct Case {
        const char *what, *text;
        std::vector<int> clusters; // code units of each
    };
    const Case cases[] = {
        {"Latin", "abc", {1, 1, 1}},
        {"combining marks", "e\xCC\x82\xCC\x81x", {3, 1}},
        {"lam-alef is one glyph", "سلام", {1, 2, 1}},
        {"Hindi vowels and half letters", "हिन्दी", {2, 2, 2}},
        {"Hindi conjuncts of one glyph", "क्षत्रि", {3, 4}},
        {"Thai marks", "ที่นี่", {3, 3}},
        {"Hebrew points", "שָׁלוֹם", {3, 1, 2, 1}},
        {"a pair", "a\xF0\x9F\x98\x80z", {1, 2, 1}},
        {"Hangul of jamo", "\xE1\x84\x92\xE1\x85\xA1\xE1\x86\xAB", {3}},
    };
    for (const Case &c : cases) {
        const ZrString text(c.text);
        const ZrFontMetrics metrics(text, ZrFont(20));
        std::vector<int> clusters;
        for (int i = 0; i < text.size(); i += clusters.back()) {
            clusters.push_back(metrics.charCombinationNum(i));
            ASSERT_GT(clusters.back(), 0) << c.what;
            for (int inside = 0; inside < clusters.back(); inside++)
                EXPECT_EQ(metrics.clusterStart(i + inside), i) << c.what;
        }
        EXPECT_EQ(clusters, c.clusters) << c.what;
        EXPECT_EQ(metrics.charCombinationNum(text.size()), 0);
        EXPECT_EQ(metrics.characterWidth().size(), text.size());
    }
}

// Widths, the list to paint and the places of the cursor tell the same story, for any text.
TEST_F(Layout, AgreesWithItselfOnRandomText)
{
    const char *const pieces[] = {
        "a", "W", " ", "\n", "中", "。", "é", "e\xCC\x81", "ش", "لا",
        "ש", "1", "(", ")",  "कि", "क्ष", "ที่", "เ",         "-", "\xF0\x9F\x98\x80"};
    std::mt19937 random = seededRandom();
    for (int round = 0; round < 300; round++) {
        ZrString text;
        for (int n = pick(random, 0, 30); n > 0; n--)
            text.append(ZrString(pieces[pick(random, 0, int(std::size(pieces)) - 1)]));
        const int width = pick(random, 1, 300);
        const ZrFontMetrics plain(text, ZrFont(16));
        const ZrFontMetrics metrics = wrapped(text, width);
        int painted = 0;
        for (const ZrPaintInfo &line : plain.paintInfoList())
            painted += advances(line.glyphs);
        ASSERT_EQ(painted, sum(plain.characterWidth()));
        ASSERT_EQ(metrics.lineRects().size(), metrics.paintInfoList().size());
        for (int i = 0; i < metrics.lineRects().size(); i++) {
            const ZrRect rect = metrics.lineRects()[i];
            ASSERT_EQ(advances(metrics.paintInfoList()[i].glyphs), rect.width());
            ASSERT_EQ(metrics.paintInfoList()[i].x, rect.left());
        }
        for (int i = 0; i < text.size(); i++) {
            const int start = metrics.clusterStart(i);
            ASSERT_EQ(metrics.cursorPoint(i), metrics.cursorPoint(start));
            const int fits = plain.lengthForPixel(pick(random, 0, 400));
            ASSERT_EQ(plain.clusterStart(fits), fits);
            const int at = metrics.positionAt(metrics.cursorPoint(start) + ZrPoint(0, 2));
            ASSERT_EQ(metrics.clusterStart(at), at);
        }
    }
}

TEST_F(Layout, StandsRightToLeftTextInItsOrder)
{
    const ZrString text("שלום abc");
    const ZrFontMetrics metrics(text, ZrFont(16));
    const int width = metrics.sizeHint().width();
    EXPECT_EQ(metrics.cursorPoint(0).x(), width); // the text begins at the right
    EXPECT_GT(metrics.cursorPoint(0).x(), metrics.cursorPoint(2).x());
    EXPECT_LT(metrics.cursorPoint(5).x(), metrics.cursorPoint(6).x()); // "abc" runs to the right
    EXPECT_EQ(metrics.cursorPoint(5).x(), 0);
    EXPECT_EQ(metrics.positionAt(ZrPoint(width + 5, 3)), 0);
    // Letters join, and are narrower than each alone.
    ZrFontEngine engine, other;
    const auto joined = engine.resloveText("ببب", ZrFont(32));
    EXPECT_GT(joined.size(), 2);
    EXPECT_LT(advances(joined), 3 * advances(other.resloveText("ب", ZrFont(32))));
    // Brackets turn with the text: the first glyph on the left of "(א)" is an opening one.
    const auto hebrew = engine.resloveText("(א)", ZrFont(16));
    EXPECT_EQ(hebrew.first()->left, other.resloveText("(", ZrFont(16)).first()->left);
}

TEST_F(Layout, WrapsWhereScriptsAllowIt)
{
    struct Case {
        const char *text;
        int width;
        ZrStringList lines;
    };
    const int em = 16;
    const Case cases[] = {
        {"aaa bbb   ccc", 70, {"aaa bbb", "ccc"}},
        {"aaa\nbbb", 500, {"aaa", "bbb"}},
        {"a\n", 500, {"a"}},
        {"well-known", 60, {"well-", "known"}},
        {"一二三四五", 3 * em, {"一二三", "四五"}},
        {"一二三。四", 3 * em, {"一二", "三。四"}},
        {"一二（三四", 3 * em, {"一二", "（三四"}},
        {"aaaaaaaaaaaa", 40, {"aaaa", "aaaa", "aaaa"}},
        {"한국어 문장", 4 * em, {"한국어", "문장"}},
        {"ภาษาไทยและเวลา", 70, {"ภาษาไทย", "และเวลา"}},
    };
    for (const Case &c : cases) {
        const ZrString text(c.text);
        EXPECT_EQ(linesOf(text, wrapped(text, c.width)), c.lines) << c.text;
    }
    EXPECT_EQ(wrapped("a\n", 100).lineRects().size(), 2);
    EXPECT_EQ(wrapped("", 100).lineRects().size(), 1);
}

TEST_F(Layout, AlignsLinesInTheirArea)
{
    const ZrFont font(16);
    ZrFontMetrics metrics("abc", font);
    const ZrSize size = metrics.sizeHint();
    metrics.setTextMinRect(100, 50, 200, 80);
    struct Case {
        int alignment, x, y;
    };
    const Case cases[] = {
        {0, 100, 50},
        {Zr::AlignLeft | Zr::AlignTop, 100, 50},
        {68, 100 + (200 - size.width()) / 2, 50 + (80 - size.height()) / 2},
        {Zr::AlignRight | Zr::AlignBottom, 300 - size.width(), 130 - size.height()},
    };
    for (const Case &c : cases) {
        metrics.setAlignment(c.alignment);
        EXPECT_EQ(metrics.lineRects().first().topLeft(), ZrPoint(c.x, c.y)) << c.alignment;
        // What the canvas makes of y is the baseline: an ascent below the line's top.
        const ZrPaintInfo &line = metrics.paintInfoList().first();
        const int baseline = line.y - (line.glyphs.first()->descent + font.pointSize() / 8 + 1);
        EXPECT_EQ(baseline, c.y + ZrFontMetrics::ascent(font));
    }
    // Without an area there is nothing to be aligned in, and a width alone wraps.
    ZrFontMetrics bare("abc", font);
    bare.setAlignment(Zr::AlignRight | Zr::AlignBottom);
    EXPECT_EQ(bare.lineRects().first().topLeft(), ZrPoint(0, 0));
    ZrFontMetrics narrow("abc abc", font, size.width() + 3);
    narrow.setAlignment(68);
    narrow.setWorpWrap(true);
    EXPECT_EQ(narrow.lineRects().size(), 2);
    EXPECT_EQ(narrow.lineRects().first().topLeft(), ZrPoint(1, 0));
    metrics.setTextMinRect(0, 0, 10, 10);
    metrics.setAlignment(Zr::AlignHCenter);
    EXPECT_EQ(metrics.lineRects().first().left(), 0); // too wide: from where the text begins
}

TEST_F(Layout, ElidesBetweenClusters)
{
    const ZrString text("channel name");
    const int width = ZrFontMetrics(text, ZrFont(16)).sizeHint().width();
    EXPECT_EQ(ZrFontMetrics::elided(text, ZrFont(16), width), text);
    const ZrString cut = ZrFontMetrics::elided(text, ZrFont(16), width - 1);
    EXPECT_TRUE(cut.endsWith("\u2026"));
    EXPECT_LE(ZrFontMetrics(cut, ZrFont(16)).sizeHint().width(), width - 1);
}

TEST_F(Layout, StepsThroughThai)
{
    ZrFontEngine engine;
    engine.resloveText("ก", ZrFont(16));
    int units = 0, glyphs = 0, width = 0;
    EXPECT_TRUE(engine.displayThaiFont("ที่นี่", &units, &glyphs, &width));
    EXPECT_EQ(units, 3);
    EXPECT_GE(glyphs, 2);
    EXPECT_EQ(width, ZrFontMetrics("ที่", ZrFont(16)).sizeHint().width());
    EXPECT_FALSE(engine.displayThaiFont("abc", &units, &glyphs, nullptr));
    EXPECT_EQ(units, 0);
}

TEST_F(Layout, GivesGlyphsThatCanBeBlittedWide)
{
    ZrFontEngine engine;
    for (const FontAttr attr : {FontAttr{16, 0}, FontAttr{40, 7}, FontAttr{255, 1}}) {
        for (const GlyphBitmap *glyph : engine.resloveText("Wj|é", ZrFont(attr))) {
            ASSERT_EQ(glyph->pitch % 16, 0);
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(glyph->buffer) % 16, 0u);
            int covered = 0;
            for (int y = 0; y < glyph->rows; y++)
                for (int x = 0; x < glyph->pitch; x++) {
                    covered += glyph->buffer[y * glyph->pitch + x] != 0;
                    ASSERT_TRUE(x < glyph->width || glyph->buffer[y * glyph->pitch + x] == 0);
                }
            ASSERT_GT(covered, 0);
        }
    }
}

TEST_F(Layout, KeepsTheCacheWithinItsLimitAndGlyphsInUseAlive)
{
    constexpr int limit = 64 << 10;
    ASSERT_TRUE(ZrFontMetrics::setFontFile(fontFile, limit));
    ZrFontEngine engine;
    const auto held = engine.resloveText("held", ZrFont(30));
    ZrVector<std::uint8_t> before;
    before.append(held.first()->buffer, held.first()->pitch * held.first()->rows);
    for (int i = 0; i < 3000; i++) {
        const ZrString text = ZrString(2, ZrUcs2(0x4E00 + i));
        ASSERT_FALSE(ZrFontMetrics(text, ZrFont(24)).paintInfoList().isEmpty());
        ASSERT_LE(ZrFontMetrics::fontCacheSize(), limit) << i;
    }
    const ZrFontMetrics living("living", ZrFont(16));
    const auto &lines = living.paintInfoList();
    ZrFontMetrics::clearFontCache();
    ASSERT_TRUE(ZrFontMetrics::setFontFile(fontFile, cacheBytes)); // even a new file
    EXPECT_EQ(std::memcmp(before.constData(), held.first()->buffer, std::size_t(before.size())), 0);
    EXPECT_GT(lines.first().glyphs.first()->buffer[0] + 1, 0);
    engine.resloveText("", ZrFont(16));
}

TEST_F(Layout, DrawsNothingWithoutASizeOrAFile)
{
    const ZrFontMetrics none("text", ZrFont(0));
    EXPECT_EQ(none.sizeHint(), ZrSize(0, 0));
    EXPECT_TRUE(none.paintInfoList().first().glyphs.isEmpty());
    EXPECT_EQ(ZrFontMetrics("ที่ نص", ZrFont(0)).sizeHint().width(), 0);

    testing::internal::CaptureStdout();
    EXPECT_FALSE(ZrFontMetrics::setFontFile("/nowhere/font.ttf", cacheBytes));
    EXPECT_FALSE(ZrFontMetrics::setFontFile(ZR_SOURCE_DIR "/packages.txt", cacheBytes));
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 2) << printed;
    for (const char *text : {"text", "ที่ نص"}) {
        const ZrFontMetrics metrics(text, ZrFont(16));
        EXPECT_TRUE(metrics.paintInfoList().first().glyphs.isEmpty());
        EXPECT_EQ(metrics.sizeHint(), ZrSize(0, 22)); // the room for a line stays
        EXPECT_EQ(metrics.lengthForPixel(0), ZrString(text).size());
    }
}

TEST_F(Layout, TakesAMillionCharacters)
{
    const ZrString pieces[] = {"a",      "word ",   "中文字",    "سلام ",
                               "हिन्दी ", "ภาษาไทย", "e\xCC\x81", "\n"};
    for (const ZrString &piece : pieces) {
        ZrString text;
        while (text.size() < 1000000)
            text.append(piece);
        const ZrFontMetrics metrics = wrapped(text, 500);
        EXPECT_GT(metrics.lineRects().size(), 1000);
        EXPECT_EQ(metrics.lengthForPixel(INT_MAX), text.size());
        EXPECT_GE(metrics.positionAt(ZrPoint(100, 5000)), 0);
    }
}
