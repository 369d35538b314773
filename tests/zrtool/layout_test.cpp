#include <zrfontmetrics>

#include <gtest/gtest.h>

TEST(LayoutSmoke, Lines)
{
    ASSERT_TRUE(ZrFontMetrics::setFontFile(
        ZR_BINARY_DIR "/data/font/yahei_arial_gothic_unicode.ttf", 5 << 20));
    for (const char *text : {"Hello, World", "\u0645\u0631\u062D\u0628\u0627 123 abc", "\u0939\u093F\u0928\u094D\u0926\u0940", "\u0E20\u0E32\u0E29\u0E32\u0E44\u0E17\u0E22", "\u4E2D\u6587", "e\u0302\u0301x"}) {
        ZrFontMetrics metrics(text, ZrFont(32));
        printf("%s: %d x %d, %d lines\n", text, metrics.sizeHint().width(), metrics.sizeHint().height(), metrics.lineRects().size());
        for (int w : metrics.characterWidth()) printf(" %d", w);
        printf("\n");
        for (const ZrPaintInfo &info : metrics.paintInfoList()) {
            const int W = metrics.sizeHint().width() + 8, H = metrics.sizeHint().height();
            std::vector<uint8_t> px(W * H);
            int pen = info.x; int base = info.y - (info.glyphs.first()->descent + 32 / 8 + 1);
            for (const GlyphBitmap *g : info.glyphs) {
                for (int y = 0; y < g->rows; y++) for (int x = 0; x < g->width; x++) {
                    int X = pen + g->left + x, Y = base - g->top + y;
                    if (X >= 0 && X < W && Y >= 0 && Y < H) px[Y * W + X] = std::max(px[Y * W + X], g->buffer[y * g->pitch + x]);
                }
                pen += g->advance;
            }
            for (int y = 0; y < H; y += 2) { for (int x = 0; x < W; x++) putchar(" .:-=+*#%@"[(px[y * W + x] + px[(y+1 < H ? y + 1 : y) * W + x]) * 9 / 510]); putchar('\n'); }
        }
    }
}
