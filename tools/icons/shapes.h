// Shapes as signed distances: below zero inside, above zero outside, in the unit of the points.
// Build-time only.
#pragma once

#include <functional>
#include <vector>

struct Point {
    float x, y;
};

using Distance = std::function<float(Point)>;

// 255 half a pixel inside the edge, 0 half a pixel outside.
int coverageOf(float distance);

Distance polygon(std::vector<Point> corners); // by the even-odd rule
// A line through the points, with round ends and corners.
Distance stroke(std::vector<Point> points, float width);
Distance disc(Point center, float radius);
Distance box(Point topLeft, Point bottomRight, float radius);
// The band of that width along the inside of the edge.
Distance rimOf(Distance shape, float width);
// Turned clockwise by quarter or other degrees about the centre.
Point turned(Point point, Point center, float degrees);
