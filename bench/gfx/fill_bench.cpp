// Rectangles in one colour.
#include "bench_pixels.h"

#include <zrpainter>

#include <algorithm>
#include <cstring>

namespace
{

struct Area {
    int x, y, w, h;
    ZrRect rect() const { return ZrRect(x, y, w, h); }
};
constexpr Area kScreen = {0, 0, kScreenWidth, kScreenHeight};
constexpr Area kSmall = {101, 203, 64, 32};
constexpr Area kMiddle = {101, 203, 200, 100};

void fill(benchmark::State &state, Area area, uint32_t argb)
{
    BenchCanvas target;
    target.setBrush(argb);
    for (auto _ : state) {
        target.canvas.fillRect(area.rect());
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(fill, screen, kScreen, kColour);
BENCHMARK_CAPTURE(fill, small, kSmall, kColour);
BENCHMARK_CAPTURE(fill, blendScreen, kScreen, 0x80a54add);
BENCHMARK_CAPTURE(fill, blendMiddle, kMiddle, 0x80a54add);

void memsetScreen(benchmark::State &state)
{
    for (auto _ : state) {
        std::memset(screenPixels(), 0x55, size_t(kScreenWidth) * kScreenHeight * 2);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(memsetScreen);

void stdFillSmall(benchmark::State &state)
{
    for (auto _ : state) {
        for (int y = 0; y < kSmall.h; ++y)
            std::fill_n(pixelAt(kSmall.x, kSmall.y + y), kSmall.w, kColourWord);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(stdFillSmall);

void painterSmall(benchmark::State &state)
{
    BenchCanvas target;
    const ZrBrush brush(ZrColor::fromArgb(kColour));
    for (auto _ : state) {
        ZrPainter painter(&target.canvas);
        painter.fillRect(kSmall.rect(), brush);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(painterSmall);

void pixmanOver(benchmark::State &state, Area area)
{
    const PixmanImage to(pixmanScreen()), colour(pixmanColour(128));
    for (auto _ : state)
        pixman_image_composite32(PIXMAN_OP_OVER, colour, nullptr, to, 0, 0, 0, 0, area.x, area.y,
                                 area.w, area.h);
}
BENCHMARK_CAPTURE(pixmanOver, screen, kScreen);
BENCHMARK_CAPTURE(pixmanOver, middle, kMiddle);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("fill 1920x1080 / memset", "fill/screen", "memsetScreen", 1.3),
    zrbench::atMost("fill 64x32 / std::fill", "fill/small", "stdFillSmall", 1.0),
    zrbench::atMost("fill 64x32 by painter / std::fill", "painterSmall", "stdFillSmall", 2.0),
    zrbench::atLeastTimesFaster("blend 1920x1080 : pixman", "fill/blendScreen", "pixmanOver/screen",
                                30),
    zrbench::atLeastTimesFaster("blend 200x100 : pixman", "fill/blendMiddle", "pixmanOver/middle",
                                30),
};

} // namespace
