// Layout of a line beside the least that any layout does: adding up advances.
#include "support/aims.h"

#include <benchmark/benchmark.h>
#include <zrfontmetrics>

#include <vector>

using benchmark::DoNotOptimize;
using benchmark::State;

namespace
{

const ZrString fortyCharacters("Channel 12 lost its video at 23:59:59 ok");

void useFont()
{
    static const bool opened = ZrFontMetrics::setFontFile(
        ZR_BINARY_DIR "/data/font/yahei_arial_gothic_unicode.ttf", 5 << 20);
    if (!opened)
        std::abort();
}

// As a label does on every paint.
void layoutCached(State &state)
{
    useFont();
    for (auto _ : state) {
        ZrFontMetrics metrics(fortyCharacters, ZrFont(16));
        metrics.setTextMinRect(10, 10, 400, 30);
        metrics.setAlignment(68);
        const ZrVector<ZrPaintInfo> *lines = &metrics.paintInfoList();
        DoNotOptimize(lines);
    }
}

void layoutCachedYardstick(State &state)
{
    useFont();
    ZrFontEngine engine;
    std::vector<const GlyphBitmap *> glyphOf(128);
    for (ZrUcs2 unit = ' '; unit < 127; unit++) {
        ZrFontEngine one;
        glyphOf[unit] = one.resloveText(ZrString(unit), ZrFont(16)).first();
    }
    for (auto _ : state) {
        int width = 0;
        for (ZrUcs2 unit : fortyCharacters)
            width += glyphOf[unit]->advance;
        DoNotOptimize(width);
    }
}

// A clock: the glyphs are known, the text is new.
void layoutChanging(State &state)
{
    useFont();
    int second = 0;
    for (auto _ : state) {
        const ZrString text = ZrString("2021-07-04 23:59:%1").arg(second++);
        const ZrFontMetrics metrics(text, ZrFont(16));
        DoNotOptimize(metrics.sizeHint());
    }
}

void layoutArabic(State &state)
{
    useFont();
    int number = 0;
    for (auto _ : state) {
        const ZrString text = ZrString("الكاميرا %1 فقدت الفيديو").arg(number++);
        const ZrFontMetrics metrics(text, ZrFont(16));
        DoNotOptimize(metrics.sizeHint());
    }
}

void renderGlyph(State &state)
{
    useFont();
    int unit = 0;
    for (auto _ : state) {
        ZrFontEngine engine;
        DoNotOptimize(engine.resloveText(ZrString(ZrUcs2(0x4E00 + unit)), ZrFont(16)));
        unit = (unit + 1) % 20000;
    }
}

BENCHMARK(layoutCached);
BENCHMARK(layoutCachedYardstick);
BENCHMARK(layoutChanging);
BENCHMARK(layoutArabic);
BENCHMARK(renderGlyph);

const bool aims[] = {
    zrbench::atMost("layout of a cached line of 40 beside adding up advances", "layoutCached",
                    "layoutCachedYardstick", 3.0),
};

} // namespace
