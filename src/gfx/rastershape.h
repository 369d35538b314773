// Circles, ellipses and pies by integer scans.
#pragma once

#include "gfx/rasterline.h"

template <class Format>
class ShapeRaster
{
public:
    using Word = typename Format::Word;

    explicit ShapeRaster(const Raster<Format> &raster) : raster_(raster) {}

    // Midpoint outline of radius - 1.
    void circle(int cx, int cy, int radius, uint32_t argb) const
    {
        if (raster_.isEmpty() || radius < 1 || radius > kLargest)
            return;
        const ClipBox bounds{cx - radius, cy - radius, cx + radius, cy + radius};
        if (raster_.clip().cutTo(grown(bounds)).isEmpty())
            return;
        if (alphaOf(argb) == 255 && raster_.isHairline() && raster_.clip().contains(bounds)) {
            openCircle(cx, cy, radius, Format::opaque(argb));
            return;
        }
        walkCircle(radius, [&](int x, int y) {
            plotMirrored(cx, cy, x, y, argb);
            plotMirrored(cx, cy, y, x, argb);
        });
    }

    // Two-region midpoint outline of radii rx - 1 and ry - 1. Decision values are held four times
    // their size, which keeps the halves of the method whole.
    void ellipse(int cx, int cy, int rx, int ry, uint32_t argb) const
    {
        if (raster_.isEmpty() || !isDrawable(rx, ry))
            return;
        const int64_t a2 = square(rx - 1), b2 = square(ry - 1);
        int64_t x = 0, y = ry - 1;
        int64_t decision = 4 * b2 - 4 * a2 * y + a2;
        while (b2 * x < a2 * y) {
            plotMirrored(cx, cy, int(x), int(y), argb);
            if (decision >= 0)
                decision -= 8 * a2 * --y;
            ++x;
            decision += 4 * b2 * (2 * x + 1);
        }
        decision = b2 * square(2 * x + 1) + 4 * a2 * square(y - 1) - 4 * a2 * b2;
        while (y >= 0) {
            plotMirrored(cx, cy, int(x), int(y), argb);
            if (decision <= 0)
                decision += 8 * b2 * ++x;
            --y;
            decision += 4 * a2 * (1 - 2 * y);
        }
    }

    // Rows of a filled ellipse of radii rx - 1 and ry - 1, from the middle outwards: all pixels
    // whose centres lie within half a pixel more than the radii, which is as far as the outline
    // goes. Each row is drawn as a line in the pen's width.
    void disc(int cx, int cy, int rx, int ry, uint32_t argb) const
    {
        if (raster_.isEmpty() || alphaOf(argb) == 0 || !isDrawable(rx, ry))
            return;
        const RoundEdge edge(rx - 1, ry - 1);
        int dx = rx - 1;
        for (int dy = 0; dy < ry; ++dy) {
            while (dx > 0 && !edge.contains(dx, dy))
                --dx;
            discRow(cx - dx, cx + dx, cy + dy, argb);
            if (dy > 0)
                discRow(cx - dx, cx + dx, cy - dy, argb);
        }
    }

    // A pie in the box, from start over span degrees, counter-clockwise from three o'clock.
    void pie(int x, int y, int w, int h, int start, int span, uint32_t argb) const
    {
        if (raster_.isEmpty() || alphaOf(argb) == 0 || w < 1 || h < 1 || w > kLargest ||
            h > kLargest || span == 0)
            return;
        span = std::clamp(span, -360, 360);
        start %= 360;
        if (span < 0) {
            start += span;
            span = -span;
        }
        const bool whole = span == 360;
        start = whole ? 0 : (start % 360 + 360) % 360;
        const int end = start + span, first = start / 90;
        for (int number = first; number * 90 < end; ++number) {
            const Slice slice{std::max(start - number * 90, 0), std::min(end - number * 90, 90),
                              number == first, !(whole && number == 3)};
            pieQuadrant({x + w / 2, y + h / 2, (w - 1) / 2, (h - 1) / 2, number % 4}, slice, argb);
        }
    }

private:
    // Decision values of the largest ellipse stay within 64 bits.
    static constexpr int kLargest = 16384;

    // The ellipse inscribed in a box of 2 a + 1 by 2 b + 1 pixels, in doubled coordinates.
    struct RoundEdge {
        int64_t acrossSquare, downSquare;
        RoundEdge(int a, int b) : acrossSquare(square(2 * a + 1)), downSquare(square(2 * b + 1)) {}
        bool contains(int x, int y) const
        {
            return square(2 * x) * downSquare + square(2 * y) * acrossSquare <=
                   acrossSquare * downSquare;
        }
    };
    struct Quadrant {
        int cx, cy, rx, ry;
        int number; // counter-clockwise from the upper right
    };
    // The part of a quadrant between two angles. Two quadrants of a pie share an axis: one of them
    // owns its pixels, so that none is blended twice.
    struct Slice {
        int from, to;
        bool ownsFirstAxis, ownsLastAxis;
    };
    // Where a ray from the centre meets the ellipse, in the quadrant's own coordinates.
    struct RayEnd {
        int x, y;
        RayEnd(int a, int b, int degrees)
            : x(int(a * std::cos(degrees * 0.017453292) + 0.5)),
              y(int(b * std::sin(degrees * 0.017453292) + 0.5))
        {
        }
        int heightAt(int column) const { return x == 0 ? 0 : (2 * column * y + x) / (2 * x); }
    };

    static int64_t square(int64_t value) { return value * value; }
    static bool isDrawable(int rx, int ry)
    {
        return rx >= 1 && ry >= 1 && rx <= kLargest && ry <= kLargest;
    }
    ClipBox grown(const ClipBox &box) const
    {
        const int by = raster_.penWidth();
        return {box.left - by, box.top - by, box.right + by, box.bottom + by};
    }

    template <class Visit>
    static void walkCircle(int radius, Visit visit)
    {
        int x = 0, y = radius - 1, decision = 1 - radius;
        while (y >= x) {
            visit(x, y);
            if (decision >= 0) {
                decision += (x - y) * 2 + 5;
                --y;
            } else {
                decision += x * 2 + 3;
            }
            ++x;
        }
    }

    void openCircle(int cx, int cy, int radius, Word ink) const
    {
        const ptrdiff_t stride = raster_.stride();
        Word *centre = raster_.at(cx, cy);
        walkCircle(radius, [=](int x, int y) {
            Word *above = centre - y * stride, *below = centre + y * stride;
            above[x] = above[-x] = below[x] = below[-x] = ink;
            above = centre - x * stride, below = centre + x * stride;
            above[y] = above[-y] = below[y] = below[-y] = ink;
        });
    }

    void plotMirrored(int cx, int cy, int x, int y, uint32_t argb) const
    {
        raster_.plot(cx + x, cy + y, argb);
        raster_.plot(cx - x, cy + y, argb);
        raster_.plot(cx + x, cy - y, argb);
        raster_.plot(cx - x, cy - y, argb);
    }

    void discRow(int left, int right, int y, uint32_t argb) const
    {
        if (raster_.isHairline())
            raster_.run(left, right, y, argb);
        else
            LineRaster<Format>(raster_).line(float(left), float(y), float(right + 1), float(y),
                                             argb);
    }

    // Scans columns of the quadrant laid on its first axis, then turns each span into place.
    void pieQuadrant(const Quadrant &quadrant, const Slice &slice, uint32_t argb) const
    {
        const bool turned = quadrant.number % 2 == 1;
        const int a = turned ? quadrant.ry : quadrant.rx, b = turned ? quadrant.rx : quadrant.ry;
        const RoundEdge edge(a, b);
        const RayEnd from(a, b, slice.from), to(a, b, slice.to);
        const int lastColumn = slice.from > 0 ? from.x : a;
        int top = b;
        for (int x = 0; x <= lastColumn; ++x) {
            while (top > 0 && !edge.contains(x, top))
                --top;
            if (x == 0 && slice.to == 90 && !slice.ownsLastAxis)
                continue;
            int low = slice.from > 0 ? from.heightAt(x) : 0;
            if (slice.from == 0 && !slice.ownsFirstAxis)
                low = 1;
            const int high = slice.to < 90 && x < to.x ? std::min(to.heightAt(x), top) : top;
            if (low <= high)
                turnedSpan(quadrant, x, low, high, argb);
        }
    }

    void turnedSpan(const Quadrant &q, int x, int low, int high, uint32_t argb) const
    {
        switch (q.number) {
        case 0:
            return raster_.block({q.cx + x, q.cy - high, q.cx + x, q.cy - low}, argb);
        case 1:
            return raster_.block({q.cx - high, q.cy - x, q.cx - low, q.cy - x}, argb);
        case 2:
            return raster_.block({q.cx - x, q.cy + low, q.cx - x, q.cy + high}, argb);
        default:
            return raster_.block({q.cx + low, q.cy + x, q.cx + high, q.cy + x}, argb);
        }
    }

    const Raster<Format> &raster_;
};
