// Lines: 26.6 fixed point end points, a 16.16 walk along the axis of greater extent.
#pragma once

#include "gfx/raster.h"

#include <cassert>
#include <cmath>
#include <cstdlib>

// What a plain line adds to its end points, in 64ths of a pixel.
constexpr int32_t kHalf = 31;

// One end point in 64ths of a pixel. What is far off any screen is brought to where the arithmetic
// still holds; what is not a number counts as far off.
inline int32_t toFixed(float coordinate)
{
    constexpr float kFar = 1 << 23;
    if (!(coordinate > -kFar))
        return -(1 << 29);
    return int32_t(std::min(coordinate, kFar) * 64);
}

// Both end points as the two kinds of line take them.
struct LineEnds {
    int32_t x1, y1, x2, y2;

    LineEnds(float fx1, float fy1, float fx2, float fy2)
        : x1(toFixed(fx1)), y1(toFixed(fy1)), x2(toFixed(fx2)), y2(toFixed(fy2))
    {
    }
    bool isPoint() const { return x1 == x2 && y1 == y2; }
};

// The walk of one line, on axes named by their role. Ends are in walking order.
struct LineWalk {
    bool alongX;
    int32_t start, end; // on the driving axis, 26.6
    int32_t minorStart; // on the other, 26.6
    int64_t step;       // of the other axis for one pixel of the driving one, 16.16

    LineWalk(const LineEnds &ends) : LineWalk(ends.x1, ends.y1, ends.x2, ends.y2) {}
    LineWalk(int32_t x1, int32_t y1, int32_t x2, int32_t y2)
        : alongX(std::abs(x2 - x1) >= std::abs(y2 - y1)),
          start(alongX ? x1 : y1),
          end(alongX ? x2 : y2),
          minorStart(alongX ? y1 : x1)
    {
        int32_t minorEnd = alongX ? y2 : x2;
        if (start > end) {
            std::swap(start, end);
            std::swap(minorStart, minorEnd);
        }
        step = end == start ? 0 : int64_t(minorEnd - minorStart) * 65536 / (end - start);
    }
};

// Steps first to last (inclusive) of a walk; minor belongs to the first.
struct WalkSteps {
    int first;
    int last;
    int64_t minor;

    // Leaves out the steps before the given one.
    void skipTo(int step, int64_t minorStep)
    {
        if (step > first) {
            minor += minorStep * (step - first);
            first = step;
        }
    }
    // Keeps the steps that can touch rows low to high of the minor axis, without trying each.
    void cutTo(int majorLow, int majorHigh, int64_t low, int64_t high, int64_t minorStep)
    {
        skipTo(majorLow, minorStep);
        last = std::min(last, majorHigh);
        if (first > last)
            return;
        const int64_t floor = low * 65536, ceiling = (high + 1) * 65536 - 1;
        const int64_t minorLast = minor + minorStep * (last - first);
        if (std::min(minor, minorLast) >= floor && std::max(minor, minorLast) <= ceiling)
            return;
        if (minorStep == 0) {
            last = first - 1;
            return;
        }
        const int64_t before = minorStep > 0 ? floor - minor : minor - ceiling;
        const int64_t until = minorStep > 0 ? ceiling - minor : minor - floor;
        const int64_t slope = std::abs(minorStep);
        if (until < 0) {
            last = first - 1;
            return;
        }
        last = int(std::min<int64_t>(last, first + until / slope));
        if (before > 0)
            skipTo(int(std::min<int64_t>(first + (before + slope - 1) / slope, last + 1)),
                   minorStep);
    }
};

// The steps of a line that is not antialiased: end points are moved by half a pixel, and the end
// pixel is left out.
inline WalkSteps plainSteps(const LineWalk &walk)
{
    const int32_t start = walk.start + kHalf, end = walk.end + kHalf;
    const int64_t lead = ((start + 32) & ~63) - start + 32;
    return {(start + 32) >> 6, ((end + 32) >> 6) - 1,
            int64_t(walk.minorStart + kHalf) * 1024 + (lead * walk.step >> 6)};
}

inline WalkSteps smoothSteps(const LineWalk &walk)
{
    const int64_t lead = (walk.start & 63) - 32;
    return {walk.start >> 6, walk.end >> 6,
            (int64_t(walk.minorStart) - 32) * 1024 - (lead * walk.step >> 6)};
}

// Visits the pixels of a line of one pixel's width, in order and without a clip, with the coverage
// of each.
template <class Visit>
void eachPixel(const LineEnds &ends, Visit visit)
{
    if (ends.isPoint())
        return;
    const LineWalk walk(ends);
    const WalkSteps steps = plainSteps(walk);
    int64_t minor = steps.minor;
    for (int at = steps.first; at <= steps.last; ++at, minor += walk.step) {
        const int across = int(minor >> 16);
        visit(walk.alongX ? at : across, walk.alongX ? across : at, 255);
    }
}

template <class Visit>
void eachSmoothPixel(const LineEnds &ends, Visit visit)
{
    const LineWalk walk(ends);
    const WalkSteps steps = smoothSteps(walk);
    int64_t minor = steps.minor;
    for (int at = steps.first; at <= steps.last; ++at, minor += walk.step) {
        const int second = int(minor >> 8 & 255);
        for (int side = 0; side < 2; ++side) {
            const int across = int(minor >> 16) + side;
            visit(walk.alongX ? at : across, walk.alongX ? across : at,
                  side ? second : 255 - second);
        }
    }
}

template <class Format>
class LineRaster
{
public:
    using Word = typename Format::Word;

    explicit LineRaster(const Raster<Format> &raster) : raster_(raster) {}

    // One pixel wide steps, the end pixel left out.
    void line(float x1, float y1, float x2, float y2, uint32_t argb) const
    {
        if (raster_.isEmpty() || alphaOf(argb) == 0)
            return;
        const LineEnds ends(x1, y1, x2, y2);
        if (ends.isPoint())
            return;
        const LineWalk walk(ends);
        WalkSteps steps = plainSteps(walk);
        cut(steps, walk, raster_.isHairline() ? 0 : raster_.penWidth());
        if (steps.first > steps.last)
            return;
        if (!raster_.isHairline())
            squares(steps, walk, argb);
        else if (alphaOf(argb) == 255)
            pixels(steps, walk, [ink = Format::opaque(argb)](Word &to) { to = ink; });
        else
            pixels(steps, walk, [ink = Format::opaque(argb), alpha = alphaOf(argb)](Word &to) {
                Format::blend(to, ink, alpha);
            });
    }

    // Antialiased: each step shares its coverage between two neighbours across the line. The
    // colour's own alpha is not looked at.
    void smoothLine(float x1, float y1, float x2, float y2, uint32_t argb) const
    {
        if (raster_.isEmpty())
            return;
        const LineWalk walk(LineEnds(x1, y1, x2, y2));
        WalkSteps steps = smoothSteps(walk);
        cut(steps, walk, raster_.penWidth() + 1);
        for (int at = steps.first; at <= steps.last; ++at, steps.minor += walk.step)
            sharedPlot(walk, at, steps.minor, argb, kFullWeight);
    }

    // As smoothLine in dashes of twice the pen's width; the first and the last pixel weigh what
    // the line covers of them.
    void dotLine(float x1, float y1, float x2, float y2, uint32_t argb) const
    {
        if (raster_.isEmpty())
            return;
        const LineWalk walk(LineEnds(x1, y1, x2, y2));
        int alphaStart = 64 - (walk.start & 63);
        int alphaEnd = walk.end & 63;
        const WalkSteps steps = smoothSteps(walk);
        if (steps.first == steps.last) {
            alphaStart = walk.end - walk.start;
            assert(alphaStart >= 0 && alphaStart < 64);
            alphaEnd = 0;
        }
        const int dash = 2 * raster_.penWidth();
        int64_t minor = steps.minor;
        int plotted = 0, at = steps.first;
        while (at < steps.last || at == steps.first) {
            sharedPlot(walk, at, minor, argb, at == steps.first ? alphaStart : kFullWeight);
            const int advance = ++plotted % dash == 0 ? 1 + dash : 1;
            at += advance;
            minor += walk.step * advance;
        }
        if (at == steps.last && alphaEnd != 0)
            sharedPlot(walk, at, minor, argb, alphaEnd);
    }

private:
    static constexpr int kFullWeight = 64;

    void cut(WalkSteps &steps, const LineWalk &walk, int margin) const
    {
        const ClipBox &clip = raster_.clip();
        if (walk.alongX)
            steps.cutTo(clip.left - margin, clip.right + margin, clip.top - margin,
                        clip.bottom + margin, walk.step);
        else
            steps.cutTo(clip.top - margin, clip.bottom + margin, clip.left - margin,
                        clip.right + margin, walk.step);
    }

    // All steps lie inside the clip.
    template <class Put>
    void pixels(const WalkSteps &steps, const LineWalk &walk, Put put) const
    {
        const ptrdiff_t stride = raster_.stride();
        int64_t minor = steps.minor;
        if (walk.alongX) {
            Word *top = raster_.at(0, 0);
            for (int x = steps.first; x <= steps.last; ++x, minor += walk.step)
                put(top[(minor >> 16) * stride + x]);
        } else {
            Word *row = raster_.at(0, steps.first);
            for (int y = steps.first; y <= steps.last; ++y, minor += walk.step, row += stride)
                put(row[minor >> 16]);
        }
    }

    void squares(const WalkSteps &steps, const LineWalk &walk, uint32_t argb) const
    {
        int64_t minor = steps.minor;
        for (int at = steps.first; at <= steps.last; ++at, minor += walk.step)
            plot(walk, at, int(minor >> 16), argb);
    }

    void plot(const LineWalk &walk, int major, int minor, uint32_t argb) const
    {
        if (walk.alongX)
            raster_.plot(major, minor, argb);
        else
            raster_.plot(minor, major, argb);
    }

    void sharedPlot(const LineWalk &walk, int at, int64_t minor, uint32_t argb, int weight) const
    {
        const int second = int(minor >> 8 & 255);
        plot(walk, at, int(minor >> 16), weighted(withAlpha(argb, 255 - second), weight));
        plot(walk, at, int(minor >> 16) + 1, weighted(withAlpha(argb, second), weight));
    }

    // The whole word is scaled at once: a partly covered end pixel is darker as well as fainter.
    static uint32_t weighted(uint32_t argb, int weight)
    {
        return uint32_t(uint64_t(argb) * uint64_t(weight) >> 6);
    }

    const Raster<Format> &raster_;
};
