#include <zrabstractcanvas>
#include <zrbezier>

#include <algorithm>
#include <cassert>
#include <cmath>

namespace
{

// Distance of the control points that makes a cubic a quarter of a circle.
constexpr qreal kCircle = 0.5522847498f;
constexpr double kDegree = 3.14159265358979323846 / 180;

// The twelve points of four quarters around the unit box and the closing one, counter-clockwise
// from three o'clock, as fractions of half the box from its centre; y grows downwards.
constexpr qreal kEllipse[13][2] = {
    {1, 0},         {1, -kCircle}, {kCircle, -1}, {0, -1},       {-kCircle, -1},
    {-1, -kCircle}, {-1, 0},       {-1, kCircle}, {-kCircle, 1}, {0, 1},
    {kCircle, 1},   {1, kCircle},  {1, 0},
};

ZrPointF ellipsePoint(const ZrAbstractCanvas::ArcBox &box, int index)
{
    const qreal rx = box.width / 2, ry = box.height / 2;
    return ZrPointF(box.x + rx + rx * kEllipse[index][0], box.y + ry + ry * kEllipse[index][1]);
}

bool isNear(double value, double target)
{
    return std::fabs(value - target) < 1e-5;
}

// A coordinate of the unit quarter and its slope: from 1 to 0 along the axis where it starts.
struct QuarterPoint {
    double value, slope;
    QuarterPoint(double t, double start, double first, double second, double end)
        : value(((1 - t) * start + 3 * t * first) * (1 - t) * (1 - t) +
                (3 * (1 - t) * second + t * end) * t * t),
          slope(3 * ((first - start) * (1 - t) * (1 - t) + 2 * (second - first) * (1 - t) * t +
                     (end - second) * t * t))
    {
    }
};

// The parameter at which the unit quarter passes the angle, 0 to 90 degrees: Newton's method once
// on each coordinate, and the mean of both.
double parameterOfAngle(double degrees)
{
    if (isNear(degrees, 0))
        return 0;
    if (isNear(degrees, 90))
        return 1;
    const double cosine = std::cos(degrees * kDegree), sine = std::sin(degrees * kDegree);
    double byCosine = degrees / 90, bySine = byCosine;
    for (int step = 0; step < 2; ++step) {
        const QuarterPoint x(byCosine, 1, 1, kCircle, 0);
        byCosine -= (x.value - cosine) / x.slope;
        const QuarterPoint y(bySine, 0, kCircle, 1, 1);
        bySine -= (y.value - sine) / y.slope;
    }
    return (byCosine + bySine) / 2;
}

struct Curve {
    ZrPointF points[4];
};

// The quarter number, in the direction of the sweep, from parameter t0 to t1.
Curve quarter(const ZrAbstractCanvas::ArcBox &box, int number, bool backwards, double t0, double t1)
{
    const int first = (number % 4 + 4) % 4 * 3;
    Curve curve;
    for (int i = 0; i < 4; ++i)
        curve.points[i] = ellipsePoint(box, backwards ? first + 3 - i : first + i);
    if (t0 <= 0 && t1 >= 1)
        return curve;
    const ZrBezier part =
        ZrBezier::fromPoints(curve.points[0], curve.points[1], curve.points[2], curve.points[3])
            .bezierOnInterval(qreal(t0), qreal(t1));
    return {{part.p1(), part.p2(), part.p3(), part.p4()}};
}

} // namespace

ZrPointF ZrAbstractCanvas::qt_curves_for_arc(const ArcBox &box, qreal startAngle, qreal sweepLength,
                                             ZrPointF *curves, int *point_count)
{
    assert(point_count);
    assert(curves);
    *point_count = 0;
    if (std::isnan(box.x) || std::isnan(box.y) || std::isnan(box.width) || std::isnan(box.height) ||
        std::isnan(startAngle) || std::isnan(sweepLength) || !(box.width > 0) || !(box.height > 0))
        return ZrPointF(0, 0);

    const double sweep = std::clamp<double>(sweepLength, -360, 360);
    const bool backwards = sweep < 0;
    // Walked in the direction of the sweep, quarter by quarter.
    const double from = std::fmod(startAngle, 360.0), to = from + sweep;
    const int delta = backwards ? -1 : 1;
    int number = int(backwards ? std::ceil(from / 90) - 1 : std::floor(from / 90));
    const int last = int(backwards ? std::floor(to / 90) : std::ceil(to / 90) - 1);
    auto within = [&](double angle, int quarterNumber) {
        const double offset = std::clamp(angle - quarterNumber * 90.0, 0.0, 90.0);
        return parameterOfAngle(backwards ? 90 - offset : offset);
    };
    ZrPointF start;
    for (bool isFirst = true; *point_count < 12; isFirst = false, number += delta) {
        const bool isLast = backwards ? number <= last : number >= last;
        const Curve curve = quarter(box, number, backwards, isFirst ? within(from, number) : 0,
                                    isLast ? within(to, number) : 1);
        if (isFirst)
            start = curve.points[0];
        for (int i = 1; i < 4; ++i)
            curves[(*point_count)++] = curve.points[i];
        if (isLast)
            break;
    }
    assert(*point_count > 0);
    return start;
}
