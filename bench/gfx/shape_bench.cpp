// Lines, circles, discs and arcs beside bare loops that know no clip.
#include "bench_pixels.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace
{

struct Line {
    int x0, y0, x1, y1;
};
constexpr int kLines = 200;
constexpr int kCentre = 500, kRadius = 50;

const std::vector<Line> &randomLines()
{
    static const std::vector<Line> lines = [] {
        std::mt19937 engine(77);
        std::vector<Line> made;
        for (int i = 0; i < kLines; ++i)
            made.push_back({int(engine() % kScreenWidth), int(engine() % kScreenHeight),
                            int(engine() % kScreenWidth), int(engine() % kScreenHeight)});
        return made;
    }();
    return lines;
}

void lines(benchmark::State &state)
{
    BenchCanvas target;
    for (auto _ : state) {
        for (const Line &l : randomLines())
            target.canvas.drawLine(qreal(l.x0), qreal(l.y0), qreal(l.x1), qreal(l.y1), kColour);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(lines);

void bareLine(const Line &l)
{
    const int dx = std::abs(l.x1 - l.x0), dy = std::abs(l.y1 - l.y0);
    const int sx = l.x0 < l.x1 ? 1 : -1, sy = l.y0 < l.y1 ? kScreenWidth : -kScreenWidth;
    const int major = std::max(dx, dy), minor = std::min(dx, dy);
    const int along = dx >= dy ? sx : sy, across = dx >= dy ? sy : sx;
    uint16_t *p = pixelAt(l.x0, l.y0);
    int error = major / 2;
    for (int i = 0; i <= major; ++i) {
        *p = kColourWord;
        p += along;
        error -= minor;
        const int over = error >> 31;
        error += major & over;
        p += across & over;
    }
}

void bareLines(benchmark::State &state)
{
    for (auto _ : state) {
        for (const Line &l : randomLines())
            bareLine(l);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(bareLines);

void circle(benchmark::State &state)
{
    BenchCanvas target;
    for (auto _ : state) {
        target.canvas.drawCircle(kCentre, kCentre, kRadius);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(circle);

void disc(benchmark::State &state)
{
    BenchCanvas target;
    for (auto _ : state) {
        target.canvas.fillCircle(kCentre, kCentre, kRadius);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(disc);

void arc(benchmark::State &state)
{
    BenchCanvas target;
    for (auto _ : state) {
        target.canvas.drawArc(kCentre - kRadius, kCentre - kRadius, 2 * kRadius, 2 * kRadius, 0,
                              360);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(arc);

template <class Visit>
void midpoint(int radius, Visit visit)
{
    int x = radius, y = 0, error = 1 - radius;
    while (y <= x) {
        visit(x, y);
        ++y;
        if (error < 0) {
            error += 2 * y + 1;
        } else {
            --x;
            error += 2 * (y - x) + 1;
        }
    }
}

void bareCircle(benchmark::State &state)
{
    for (auto _ : state) {
        midpoint(kRadius - 1, [](int x, int y) {
            uint16_t *centre = pixelAt(kCentre, kCentre);
            const int down = y * kScreenWidth, deep = x * kScreenWidth;
            centre[down + x] = centre[down - x] = centre[x - down] = centre[-x - down] =
                kColourWord;
            centre[deep + y] = centre[deep - y] = centre[y - deep] = centre[-y - deep] =
                kColourWord;
        });
        benchmark::ClobberMemory();
    }
}
BENCHMARK(bareCircle);

void bareDisc(benchmark::State &state)
{
    auto run = [](int half, int y) {
        std::fill_n(pixelAt(kCentre - half, kCentre + y), 2 * half + 1, kColourWord);
    };
    for (auto _ : state) {
        int last = -1;
        midpoint(kRadius - 1, [&](int x, int y) {
            run(x, y);
            run(x, -y);
            if (x != last) {
                run(y, x);
                run(y, -x);
                last = x;
            }
        });
        benchmark::ClobberMemory();
    }
}
BENCHMARK(bareDisc);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("200 lines / bare loop", "lines", "bareLines", 1.5),
    zrbench::atMost("circle r50 / bare loop", "circle", "bareCircle", 1.5),
    zrbench::atMost("disc r50 / bare loop", "disc", "bareDisc", 1.5),
    zrbench::atMost("arc r50 / bare loop", "arc", "bareCircle", 1.5),
};

} // namespace
