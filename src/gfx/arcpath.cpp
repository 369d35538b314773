#include "gfx/arcpath.h"

#include "gfx/rasterline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <zrabstractcanvas>

namespace
{

constexpr int kDepth = 6;
// Pixels of a larger arc are not kept: they would take more memory than they save time.
constexpr int kLargestKept = 2048;
constexpr size_t kKeptArcs = 32;

ZrPointF onGrid(ZrPointF p)
{
    return ZrPointF(float(toFixed(p.x())) / 64, float(toFixed(p.y())) / 64);
}

// Halves the curve until its control points are close to the chord.
void flatten(const ZrPointF (&p)[4], int depth, std::vector<ZrPointF> &points)
{
    const qreal dx = p[3].x() - p[0].x(), dy = p[3].y() - p[0].y();
    const qreal limit = (std::fabs(dx) + std::fabs(dy)) * 0.25f;
    auto isClose = [&](ZrPointF c) {
        return std::fabs(dx * (p[0].y() - c.y()) - dy * (p[0].x() - c.x())) < limit;
    };
    if (depth == 0 || (isClose(p[1]) && isClose(p[2]))) {
        points.push_back(onGrid(p[3]));
        return;
    }
    const ZrPointF a = (p[0] + p[1]) * 0.5f, b = (p[1] + p[2]) * 0.5f, c = (p[2] + p[3]) * 0.5f;
    const ZrPointF ab = (a + b) * 0.5f, bc = (b + c) * 0.5f, middle = (ab + bc) * 0.5f;
    flatten({p[0], a, ab, middle}, depth - 1, points);
    flatten({middle, bc, c, p[3]}, depth - 1, points);
}

} // namespace

ArcPath::ArcPath(const ArcShape &wanted)
    : shape(wanted),
      left(std::numeric_limits<int>::max()),
      top(left),
      right(std::numeric_limits<int>::min()),
      bottom(right)
{
    const int inset = (shape.penWidth + 1) / 2 + (shape.antialias ? 1 : 0);
    ZrPointF curves[12];
    int count = 0;
    ZrPointF start = ZrAbstractCanvas::qt_curves_for_arc(
        {qreal(inset), qreal(inset), qreal(shape.width - 2 * shape.penWidth),
         qreal(shape.height - 2 * shape.penWidth)},
        qreal(shape.startAngle), qreal(shape.spanAngle), curves, &count);
    if (count > 0)
        points.push_back(onGrid(start));
    for (int i = 0; i + 2 < count; i += 3) {
        flatten({start, curves[i], curves[i + 1], curves[i + 2]}, kDepth, points);
        start = curves[i + 2];
    }
    if (shape.penWidth != 1 || shape.width > kLargestKept || shape.height > kLargestKept)
        return;
    auto keep = [this](int x, int y, int coverage) {
        pixels.push_back({int16_t(x), int16_t(y), uint8_t(coverage)});
        left = std::min(left, x), right = std::max(right, x);
        top = std::min(top, y), bottom = std::max(bottom, y);
    };
    for (size_t i = 1; i < points.size(); ++i) {
        const LineEnds ends(points[i - 1].x(), points[i - 1].y(), points[i].x(), points[i].y());
        if (shape.antialias)
            eachSmoothPixel(ends, keep);
        else
            eachPixel(ends, keep);
    }
}

const std::vector<int32_t> &ArcPath::offsets(ptrdiff_t stride) const
{
    if (stride_ != stride) {
        stride_ = stride;
        offsets_.clear();
        for (const ArcPixel &pixel : pixels)
            offsets_.push_back(int32_t(pixel.y * stride + pixel.x));
    }
    return offsets_;
}

const ArcPath &arcPath(const ArcShape &shape)
{
    static std::vector<ArcPath> kept;
    static size_t next = 0;
    for (const ArcPath &path : kept) {
        if (path.shape == shape)
            return path;
    }
    if (kept.size() < kKeptArcs) {
        kept.reserve(kKeptArcs);
        kept.emplace_back(shape);
        return kept.back();
    }
    next = (next + 1) % kKeptArcs;
    return kept[next] = ArcPath(shape);
}
