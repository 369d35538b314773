// Regions beside pixman's.
#include "support/aims.h"

#include <benchmark/benchmark.h>
#include <pixman.h>
#include <zrregion>

#include <memory>
#include <random>
#include <vector>

using benchmark::DoNotOptimize;
using benchmark::State;

namespace
{

class PixmanRegion
{
public:
    PixmanRegion() { pixman_region32_init(&region_); }
    explicit PixmanRegion(const std::vector<ZrRect> &rects)
    {
        std::vector<pixman_box32_t> boxes;
        for (const ZrRect &r : rects)
            boxes.push_back({r.left(), r.top(), r.right() + 1, r.bottom() + 1});
        pixman_region32_init_rects(&region_, boxes.data(), int(boxes.size()));
    }
    ~PixmanRegion() { pixman_region32_fini(&region_); }
    PixmanRegion(const PixmanRegion &) = delete;
    PixmanRegion &operator=(const PixmanRegion &) = delete;
    operator pixman_region32_t *() { return &region_; }
    int count() { return pixman_region32_n_rects(&region_); }

private:
    pixman_region32_t region_;
};

std::vector<ZrRect> randomRects(int count, unsigned seed, int smallest, int largest)
{
    std::mt19937 random(seed);
    const auto pick = [&](int lowest, int highest) {
        return lowest + int(random() % unsigned(highest - lowest + 1));
    };
    std::vector<ZrRect> rects;
    for (int i = 0; i < count; i++) {
        const int width = pick(smallest, largest), height = pick(smallest, largest);
        rects.emplace_back(pick(0, 1920 - width), pick(0, 1080 - height), width, height);
    }
    return rects;
}

ZrRegion regionOf(const std::vector<ZrRect> &rects)
{
    return ZrRegion::fromRects(rects.data(), int(rects.size()));
}

const std::vector<ZrRect> twoHundred = randomRects(200, 21, 10, 200);

void uniteOneByOne(State &state)
{
    for (auto _ : state) {
        ZrRegion region;
        for (const ZrRect &r : twoHundred)
            region += r;
        DoNotOptimize(region);
    }
}

void uniteOneByOneYardstick(State &state)
{
    for (auto _ : state) {
        PixmanRegion region;
        for (const ZrRect &r : twoHundred)
            pixman_region32_union_rect(region, region, r.left(), r.top(), unsigned(r.width()),
                                       unsigned(r.height()));
        DoNotOptimize(region.count());
    }
}

void uniteAtOnce(State &state)
{
    for (auto _ : state) {
        ZrRegion region = regionOf(twoHundred);
        DoNotOptimize(region);
    }
}

void uniteAtOnceYardstick(State &state)
{
    for (auto _ : state) {
        PixmanRegion region(twoHundred);
        DoNotOptimize(region.count());
    }
}

// Sixteen pairs in turn, so that no branch predictor learns one of them by heart.
constexpr unsigned pairs = 16;

std::vector<ZrRect> operand(unsigned i)
{
    return randomRects(500, 22 + i, 8, 60);
}

using Operation = ZrRegion (ZrRegion::*)(const ZrRegion &) const;

void combine(State &state, Operation operation)
{
    std::vector<ZrRegion> regions;
    for (unsigned i = 0; i < 2 * pairs; i++)
        regions.push_back(regionOf(operand(i)));
    unsigned i = 0;
    for (auto _ : state) {
        ZrRegion result = (regions[i].*operation)(regions[i + pairs]);
        DoNotOptimize(result);
        i = (i + 1) % pairs;
    }
}

using PixmanOperation = pixman_bool_t (*)(pixman_region32_t *, pixman_region32_t *,
                                          pixman_region32_t *);

template <PixmanOperation operation>
void combineYardstick(State &state)
{
    std::vector<std::unique_ptr<PixmanRegion>> regions;
    for (unsigned i = 0; i < 2 * pairs; i++)
        regions.push_back(std::make_unique<PixmanRegion>(operand(i)));
    unsigned i = 0;
    for (auto _ : state) {
        PixmanRegion result;
        operation(result, *regions[i], *regions[i + pairs]);
        DoNotOptimize(result.count());
        i = (i + 1) % pairs;
    }
}

// What painting asks for all day: the dirty part of a window without three of its children.
const std::vector<ZrRect> children = randomRects(3, 32, 80, 200);
const ZrRect window(100, 50, 1600, 900);

void clipSmall(State &state)
{
    const ZrRegion dirty = regionOf(randomRects(4, 31, 50, 300));
    for (auto _ : state) {
        ZrRegion clip(dirty);
        clip &= window;
        for (const ZrRect &child : children)
            clip -= child;
        DoNotOptimize(clip);
    }
}

void clipSmallYardstick(State &state)
{
    PixmanRegion dirty(randomRects(4, 31, 50, 300));
    for (auto _ : state) {
        PixmanRegion clip;
        pixman_region32_intersect_rect(clip, dirty, window.left(), window.top(),
                                       unsigned(window.width()), unsigned(window.height()));
        for (const ZrRect &child : children) {
            PixmanRegion hole({child});
            pixman_region32_subtract(clip, clip, hole);
        }
        DoNotOptimize(clip.count());
    }
}

void contains(State &state)
{
    const ZrRegion region = regionOf(operand(0));
    const std::vector<ZrRect> points = operand(1);
    for (auto _ : state) {
        int inside = 0;
        for (std::size_t i = 0; i < 100; i++)
            inside += region.contains(points[i].topLeft());
        DoNotOptimize(inside);
    }
}

void containsYardstick(State &state)
{
    PixmanRegion region(operand(0));
    const std::vector<ZrRect> points = operand(1);
    for (auto _ : state) {
        int inside = 0;
        for (std::size_t i = 0; i < 100; i++)
            inside +=
                pixman_region32_contains_point(region, points[i].left(), points[i].top(), nullptr);
        DoNotOptimize(inside);
    }
}

pixman_bool_t uniteBoth(pixman_region32_t *to, pixman_region32_t *a, pixman_region32_t *b)
{
    return pixman_region32_union(to, a, b);
}
pixman_bool_t intersectBoth(pixman_region32_t *to, pixman_region32_t *a, pixman_region32_t *b)
{
    return pixman_region32_intersect(to, a, b);
}
pixman_bool_t subtractBoth(pixman_region32_t *to, pixman_region32_t *a, pixman_region32_t *b)
{
    return pixman_region32_subtract(to, a, b);
}

BENCHMARK(uniteOneByOne);
BENCHMARK(uniteOneByOneYardstick);
BENCHMARK(uniteAtOnce);
BENCHMARK(uniteAtOnceYardstick);
BENCHMARK_CAPTURE(combine, unite, &ZrRegion::unite)->Name("regionUnite");
BENCHMARK_CAPTURE(combine, intersect, &ZrRegion::intersect)->Name("regionIntersect");
BENCHMARK_CAPTURE(combine, subtract, &ZrRegion::subtract)->Name("regionSubtract");
BENCHMARK(combineYardstick<uniteBoth>)->Name("regionUniteYardstick");
BENCHMARK(combineYardstick<intersectBoth>)->Name("regionIntersectYardstick");
BENCHMARK(combineYardstick<subtractBoth>)->Name("regionSubtractYardstick");
BENCHMARK(clipSmall);
BENCHMARK(clipSmallYardstick);
BENCHMARK(contains)->Name("regionContains");
BENCHMARK(containsYardstick)->Name("regionContainsYardstick");

const bool aims[] = {
    zrbench::atLeastTimesFaster("union of 200 rectangles one by one beside pixman", "uniteOneByOne",
                                "uniteOneByOneYardstick", 2.0),
    zrbench::atMost("union of 200 rectangles at once beside pixman", "uniteAtOnce",
                    "uniteAtOnceYardstick", 1.5),
    zrbench::atMost("union of 500 and 500 beside pixman", "regionUnite", "regionUniteYardstick",
                    1.3),
    zrbench::atMost("intersection of 500 and 500 beside pixman", "regionIntersect",
                    "regionIntersectYardstick", 1.0),
    zrbench::atMost("subtraction of 500 and 500 beside pixman", "regionSubtract",
                    "regionSubtractYardstick", 1.0),
    zrbench::atMost("clip of a small region beside pixman", "clipSmall", "clipSmallYardstick", 1.0),
    zrbench::atLeastTimesFaster("point in a region beside pixman", "regionContains",
                                "regionContainsYardstick", 2.0),
};

} // namespace
