// An arc as the lines it is drawn by, and for a pen of one pixel as the pixels of those lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>
#include <zrpoint>

struct ArcShape {
    int width, height; // of the box
    int startAngle, spanAngle;
    int penWidth;
    bool antialias;

    bool operator==(const ArcShape &o) const
    {
        return width == o.width && height == o.height && startAngle == o.startAngle &&
               spanAngle == o.spanAngle && penWidth == o.penWidth && antialias == o.antialias;
    }
};

struct ArcPixel {
    int16_t x, y;
    uint8_t coverage;
};

// All coordinates are relative to the corner of the box, and points lie on 64ths of a pixel: an arc
// is the same wherever it stands. Pixels stand in the order in which the lines plot them.
struct ArcPath {
    ArcShape shape;
    std::vector<ZrPointF> points;
    std::vector<ArcPixel> pixels; // none for a wider pen
    int left, top, right, bottom; // around the pixels

    explicit ArcPath(const ArcShape &wanted);

    // The places of the pixels from the corner, in a buffer of that stride; worked out anew only
    // when the stride changes.
    const std::vector<int32_t> &offsets(ptrdiff_t stride) const;

private:
    mutable std::vector<int32_t> offsets_;
    mutable ptrdiff_t stride_ = 0;
};

// The last few arcs are kept, as the rings and corners of a screen are drawn again and again. The
// reference holds until the next call. Main thread.
const ArcPath &arcPath(const ArcShape &shape);
