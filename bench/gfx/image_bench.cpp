// Pictures, copied and scaled, and glyphs.
#include "bench_pixels.h"

namespace
{

constexpr int kX = 101, kY = 203, kIcon = 256;

void copy(benchmark::State &state, Alpha kind)
{
    BenchCanvas target;
    const ZrImage image = pictureImage(kIcon, kIcon, kind);
    for (auto _ : state) {
        target.canvas.drawImage(kX, kY, kIcon, kIcon, image, 0, 0, kIcon, kIcon);
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(copy, mixed, Alpha::Mixed);
BENCHMARK_CAPTURE(copy, noise, Alpha::Noise);
BENCHMARK_CAPTURE(copy, opaque, Alpha::Opaque);

void pixmanCopy(benchmark::State &state, Alpha kind)
{
    std::vector<uint32_t> pixels = picture(kIcon, kIcon, kind);
    const bool opaque = kind == Alpha::Opaque;
    const PixmanImage to(pixmanScreen());
    const PixmanImage from(
        pixmanPicture(pixels, kIcon, kIcon, opaque ? PIXMAN_x8b8g8r8 : PIXMAN_a8b8g8r8));
    for (auto _ : state)
        pixman_image_composite32(opaque ? PIXMAN_OP_SRC : PIXMAN_OP_OVER, from, nullptr, to, 0, 0, 0,
                                 0, kX, kY, kIcon, kIcon);
}
BENCHMARK_CAPTURE(pixmanCopy, mixed, Alpha::Mixed);
BENCHMARK_CAPTURE(pixmanCopy, noise, Alpha::Noise);
BENCHMARK_CAPTURE(pixmanCopy, opaque, Alpha::Opaque);

struct Scale {
    int fromWidth, fromHeight, toWidth, toHeight;
    Alpha kind;
};
constexpr Scale kVideo = {704, 576, kScreenWidth, kScreenHeight, Alpha::Opaque};
constexpr Scale kEnlarged = {kIcon, kIcon, 300, 300, Alpha::Mixed};

void scale(benchmark::State &state, Scale s)
{
    BenchCanvas target;
    const ZrImage image = pictureImage(s.fromWidth, s.fromHeight, s.kind);
    for (auto _ : state) {
        target.canvas.drawImage(0, 0, s.toWidth, s.toHeight, image, 0, 0, s.fromWidth,
                                s.fromHeight);
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(scale, video, kVideo);
BENCHMARK_CAPTURE(scale, enlarged, kEnlarged);

void pixmanScale(benchmark::State &state, Scale s)
{
    std::vector<uint32_t> pixels = picture(s.fromWidth, s.fromHeight, s.kind);
    const PixmanImage to(pixmanScreen());
    const PixmanImage from(pixmanPicture(pixels, s.fromWidth, s.fromHeight, PIXMAN_a8b8g8r8));
    pixman_transform_t transform;
    pixman_transform_init_scale(&transform,
                                pixman_double_to_fixed(double(s.fromWidth) / s.toWidth),
                                pixman_double_to_fixed(double(s.fromHeight) / s.toHeight));
    pixman_image_set_transform(from, &transform);
    pixman_image_set_filter(from, PIXMAN_FILTER_BILINEAR, nullptr, 0);
    pixman_image_set_repeat(from, PIXMAN_REPEAT_PAD);
    for (auto _ : state)
        pixman_image_composite32(s.kind == Alpha::Opaque ? PIXMAN_OP_SRC : PIXMAN_OP_OVER, from,
                                 nullptr, to, 0, 0, 0, 0, 0, 0, s.toWidth, s.toHeight);
}
BENCHMARK_CAPTURE(pixmanScale, video, kVideo);
BENCHMARK_CAPTURE(pixmanScale, enlarged, kEnlarged);

constexpr int kGlyphs = 40;

void glyphs(benchmark::State &state)
{
    BenchCanvas target;
    const BenchGlyphs line(kGlyphs);
    for (auto _ : state) {
        target.canvas.drawGlyphs(kX, kY, line.list);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(glyphs);

void pixmanGlyphCache(benchmark::State &state)
{
    const PixmanImage to(pixmanScreen()), colour(pixmanColour(255));
    pixman_glyph_cache_t *cache = pixman_glyph_cache_create();
    pixman_glyph_cache_freeze(cache);
    static int font;
    const void *kept[26];
    for (long i = 0; i < 26; ++i) {
        const PixmanImage glyph(pixman_image_create_bits(
            PIXMAN_a8, 12, 16,
            reinterpret_cast<uint32_t *>(const_cast<uint8_t *>(BenchGlyphs::coverage(int(i)))), 16));
        kept[i] = pixman_glyph_cache_insert(cache, &font, reinterpret_cast<void *>(i + 1), 0, 0,
                                            glyph);
    }
    pixman_glyph_t line[kGlyphs];
    for (int i = 0; i < kGlyphs; ++i)
        line[i] = {kX + i * 12, kY, kept[BenchGlyphs::at(i)]};
    for (auto _ : state)
        pixman_composite_glyphs_no_mask(PIXMAN_OP_OVER, colour, to, 0, 0, 0, 0, cache, kGlyphs,
                                        line);
    pixman_glyph_cache_thaw(cache);
    pixman_glyph_cache_destroy(cache);
}
BENCHMARK(pixmanGlyphCache);

[[maybe_unused]] const bool aims[] = {
    zrbench::atLeastTimesFaster("image 256x256 mixed : pixman", "copy/mixed", "pixmanCopy/mixed",
                                18),
    zrbench::atLeastTimesFaster("image 256x256 noise : pixman", "copy/noise", "pixmanCopy/noise",
                                18),
    zrbench::atLeastTimesFaster("image 256x256 opaque : pixman", "copy/opaque", "pixmanCopy/opaque",
                                12),
    zrbench::atLeastTimesFaster("scale 704x576 to 1920x1080 : pixman", "scale/video",
                                "pixmanScale/video", 15),
    zrbench::atLeastTimesFaster("scale 256x256 to 300x300 : pixman", "scale/enlarged",
                                "pixmanScale/enlarged", 12),
    zrbench::atLeastTimesFaster("40 glyphs : pixman glyph cache", "glyphs", "pixmanGlyphCache", 20),
};

} // namespace
