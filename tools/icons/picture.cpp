#include "picture.h"

#include <algorithm>
#include <cmath>
#include <png.h>

namespace
{

constexpr int SamplesPerSide = 4;

} // namespace

void Picture::cover(int x, int y, Color color, int coverage)
{
    if (x < 0 || y < 0 || x >= width_ || y >= height_ || coverage <= 0)
        return;
    std::uint8_t *pixel = &pixels_[std::size_t(y * width_ + x) * 4];
    const int below = pixel[3];
    const int alpha = coverage + below * (255 - coverage) / 255;
    const std::uint8_t over[] = {color.red, color.green, color.blue};
    for (int i = 0; i < 3; ++i)
        pixel[i] = std::uint8_t((over[i] * coverage + pixel[i] * (alpha - coverage)) / alpha);
    pixel[3] = std::uint8_t(alpha);
}

void Picture::fill(const std::vector<Point> &corners, Color color, Edges edges)
{
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            int inside = 0;
            for (int sample = 0; sample < SamplesPerSide * SamplesPerSide; ++sample) {
                const Point at{float(x) + (float(sample % SamplesPerSide) + 0.5f) / SamplesPerSide,
                               float(y) + (float(sample / SamplesPerSide) + 0.5f) / SamplesPerSide};
                inside += contains(corners, at);
            }
            const int all = SamplesPerSide * SamplesPerSide;
            const int coverage =
                edges == Edges::Smooth ? inside * 255 / all : (inside * 2 >= all ? 255 : 0);
            cover(x, y, color, coverage);
        }
    }
}

bool Picture::save(const std::string &path) const
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = png_uint_32(width_);
    image.height = png_uint_32(height_);
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&image, path.c_str(), 0, pixels_.data(), 0, nullptr) != 0;
}

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

float distanceToOutline(const std::vector<Point> &corners, Point point)
{
    float nearest = 1e9f;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const Point &a = corners[j];
        const Point &b = corners[i];
        const float length2 = (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
        const float along =
            length2 > 0
                ? std::clamp(((point.x - a.x) * (b.x - a.x) + (point.y - a.y) * (b.y - a.y)) /
                                 length2,
                             0.0f, 1.0f)
                : 0.0f;
        nearest = std::min(nearest, std::hypot(point.x - a.x - along * (b.x - a.x),
                                               point.y - a.y - along * (b.y - a.y)));
    }
    return nearest;
}
