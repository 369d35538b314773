// A small RGBA picture and what the icon maker does with it. Build-time only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Color {
    std::uint8_t red, green, blue;
};

struct Point {
    float x, y;
};

class Picture
{
public:
    Picture(int width, int height) : width_(width), height_(height), pixels_(width * height * 4) {}

    int width() const { return width_; }
    int height() const { return height_; }
    // Lays the colour over the pixel with that coverage, 0 to 255.
    void cover(int x, int y, Color color, int coverage);
    // A filled polygon; antialiased by 4 x 4 samples a pixel, or with hard edges.
    enum class Edges { Smooth, Hard };
    void fill(const std::vector<Point> &corners, Color color, Edges edges);
    bool save(const std::string &path) const;

private:
    int width_;
    int height_;
    std::vector<std::uint8_t> pixels_; // R, G, B, A
};

// Whether the point is inside the polygon, by the even-odd rule.
bool contains(const std::vector<Point> &corners, Point point);
// Distance from the point to the polygon's outline.
float distanceToOutline(const std::vector<Point> &corners, Point point);
