#include "shapes.h"

#include <algorithm>
#include <cmath>

namespace
{

bool contains(const std::vector<Point> &corners, Point point)
{
    bool inside = false;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const Point &a = corners[i];
        const Point &b = corners[j];
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

float distanceToSegment(Point a, Point b, Point point)
{
    const float x = b.x - a.x, y = b.y - a.y;
    const float length2 = x * x + y * y;
    const float along =
        length2 > 0 ? std::clamp(((point.x - a.x) * x + (point.y - a.y) * y) / length2, 0.0f, 1.0f)
                    : 0.0f;
    return std::hypot(point.x - a.x - along * x, point.y - a.y - along * y);
}

} // namespace

int coverageOf(float distance)
{
    return int(std::lround(std::clamp(0.5f - distance, 0.0f, 1.0f) * 255));
}

Distance polygon(std::vector<Point> corners)
{
    return [corners = std::move(corners)](Point point) {
        float nearest = 1e9f;
        for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++)
            nearest = std::min(nearest, distanceToSegment(corners[j], corners[i], point));
        return contains(corners, point) ? -nearest : nearest;
    };
}

Distance stroke(std::vector<Point> points, float width)
{
    return [points = std::move(points), width](Point point) {
        float nearest = 1e9f;
        for (std::size_t i = 1; i < points.size(); ++i)
            nearest = std::min(nearest, distanceToSegment(points[i - 1], points[i], point));
        return nearest - width / 2;
    };
}

Distance disc(Point center, float radius)
{
    return [center, radius](Point point) {
        return std::hypot(point.x - center.x, point.y - center.y) - radius;
    };
}

Distance box(Point topLeft, Point bottomRight, float radius)
{
    const Point center{(topLeft.x + bottomRight.x) / 2, (topLeft.y + bottomRight.y) / 2};
    const Point half{(bottomRight.x - topLeft.x) / 2 - radius,
                     (bottomRight.y - topLeft.y) / 2 - radius};
    return [center, half, radius](Point point) {
        const float x = std::abs(point.x - center.x) - half.x;
        const float y = std::abs(point.y - center.y) - half.y;
        return std::hypot(std::max(x, 0.0f), std::max(y, 0.0f)) + std::min(std::max(x, y), 0.0f) -
               radius;
    };
}

Distance rimOf(Distance shape, float width)
{
    return [shape = std::move(shape), width](Point point) {
        const float distance = shape(point);
        return std::max(distance, -width - distance);
    };
}

Point turned(Point point, Point center, float degrees)
{
    const float angle = degrees * 3.14159265f / 180;
    const float x = point.x - center.x, y = point.y - center.y;
    return {center.x + x * std::cos(angle) - y * std::sin(angle),
            center.y + x * std::sin(angle) + y * std::cos(angle)};
}
