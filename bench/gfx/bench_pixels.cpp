#include "bench_pixels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

namespace
{

uint16_t *noise()
{
    constexpr size_t kCount = size_t(kScreenWidth) * kScreenHeight;
    auto *pixels = static_cast<uint16_t *>(std::aligned_alloc(64, kCount * 2 + 4096));
    std::mt19937 engine(42);
    for (size_t i = 0; i < kCount; ++i)
        pixels[i] = uint16_t(engine() | 0x8000);
    return pixels;
}

} // namespace

uint16_t *screenPixels()
{
    static uint16_t *pixels = noise();
    return pixels;
}

uint16_t *frontPixels()
{
    static uint16_t *pixels = noise();
    return pixels;
}

BenchCanvas::BenchCanvas()
    : canvas((ZrFbCanvas::setGeometry(kScreenWidth, kScreenHeight, kScreenWidth * 2),
              reinterpret_cast<uint8_t *>(screenPixels())))
{
    state.penColor = kColour;
    state.brushColor = kColour;
    state.clip = {0, 0, kScreenWidth - 1, kScreenHeight - 1};
    state.font = {16, 0};
    canvas.setState(&state);
}

std::vector<uint32_t> picture(int width, int height, Alpha kind)
{
    std::vector<uint32_t> pixels;
    std::mt19937 engine(unsigned(width * 7919 + height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double dx = (x + .5) * 2 / width - 1, dy = (y + .5) * 2 / height - 1;
            const double d = std::sqrt(dx * dx + dy * dy);
            unsigned alpha = 255;
            if (kind == Alpha::Noise)
                alpha = engine() & 255;
            else if (kind == Alpha::Mixed && d >= .78)
                alpha = d < .80   ? unsigned(255 * (.80 - d) / .02 * .6 + 100)
                        : d < .95 ? unsigned(100 * (.95 - d) / .15)
                                  : 0;
            const unsigned red = unsigned(127 + 120 * std::sin(x * .05));
            const unsigned green = unsigned(127 + 120 * std::sin(y * .04 + 1));
            const unsigned blue = unsigned(x * 3 + y * 5) + (engine() & 7);
            pixels.push_back(std::min(alpha, 255u) << 24 | (blue & 255) << 16 | green << 8 | red);
        }
    }
    return pixels;
}

ZrImage pictureImage(int width, int height, Alpha kind)
{
    ZrImage image(width, height);
    const std::vector<uint32_t> pixels = picture(width, height, kind);
    std::memcpy(image.bits(), pixels.data(), pixels.size() * 4);
    return image;
}

const uint8_t *BenchGlyphs::coverage(int glyph)
{
    constexpr int kPitch = 16, kRows = 16;
    static const std::vector<std::vector<uint8_t>> all = [] {
        std::vector<std::vector<uint8_t>> made(26, std::vector<uint8_t>(kPitch * (kRows + 1)));
        for (int k = 0; k < 26; ++k) {
            for (int y = 0; y < kRows; ++y) {
                for (int x = 0; x < 12; ++x) {
                    const double dx = (x - 5.5) / (3.6 + k % 4 * .4),
                                 dy = (y - 7.5) / (4.5 + k % 5 * .5);
                    const double d = std::fabs(std::sqrt(dx * dx + dy * dy) - 1) * 4;
                    const bool stem = k % 3 == 0 && (x == 3 || x == 4);
                    made[size_t(k)][size_t(y * kPitch + x)] =
                        uint8_t(255 * (stem ? 1 : std::clamp(1.5 - d, 0.0, 1.0)));
                }
            }
        }
        return made;
    }();
    return all[size_t(glyph)].data();
}

BenchGlyphs::BenchGlyphs(int count) : bitmaps_(size_t(count))
{
    for (int i = 0; i < count; ++i) {
        bitmaps_[size_t(i)] = {12, 16, 16, 0, 16, 0, 12, coverage(at(i))};
        list.append(&bitmaps_[size_t(i)]);
    }
}

pixman_image_t *pixmanScreen()
{
    return pixman_image_create_bits(PIXMAN_a1r5g5b5, kScreenWidth, kScreenHeight,
                                    reinterpret_cast<uint32_t *>(screenPixels()), kScreenWidth * 2);
}

pixman_image_t *pixmanPicture(std::vector<uint32_t> &pixels, int width, int height,
                              pixman_format_code_t format)
{
    return pixman_image_create_bits(format, width, height, pixels.data(), width * 4);
}

pixman_image_t *pixmanColour(int alpha)
{
    auto component = [alpha](uint32_t value) { return uint16_t(value * 257 * unsigned(alpha) / 255); };
    const pixman_color_t colour = {component(kColour >> 16 & 255), component(kColour >> 8 & 255),
                                   component(kColour & 255), uint16_t(alpha * 257)};
    return pixman_image_create_solid_fill(&colour);
}
