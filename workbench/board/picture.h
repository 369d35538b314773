// A 32-bit picture and rectangles in it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

// Half open: right and bottom are the first pixels outside.
struct Area {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool isEmpty() const { return right <= left || bottom <= top; }
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    Area cut(const Area &other) const
    {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    Area moved(int dx, int dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
    bool operator==(const Area &o) const
    {
        return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
    }
};

// Pixels are 0x00RRGGBB.
class Picture
{
public:
    Picture(int width, int height)
        : width_(width), height_(height), pixels_(size_t(width) * size_t(height))
    {
    }
    int width() const { return width_; }
    int height() const { return height_; }
    Area area() const { return {0, 0, width_, height_}; }
    uint32_t *line(int y) { return pixels_.data() + size_t(y) * size_t(width_); }
    const uint32_t *line(int y) const { return pixels_.data() + size_t(y) * size_t(width_); }
    // What of the area lies inside the picture.
    void fill(const Area &where, uint32_t colour)
    {
        const Area inside = where.cut(area());
        for (int y = inside.top; y < inside.bottom && inside.left < inside.right; ++y)
            std::fill(line(y) + inside.left, line(y) + inside.right, colour);
    }

private:
    int width_;
    int height_;
    std::vector<uint32_t> pixels_;
};
