#include "picture.h"

#include <algorithm>
#include <png.h>

namespace
{

bool write(const std::string &path, png_uint_32 format, int width, int height,
           const std::vector<std::uint8_t> &pixels)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = png_uint_32(width);
    image.height = png_uint_32(height);
    image.format = format;
    return png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr) != 0;
}

} // namespace

void Picture::cover(int x, int y, Color color, int coverage)
{
    if (x < 0 || y < 0 || x >= width_ || y >= height_ || coverage <= 0)
        return;
    std::uint8_t *pixel = &pixels_[(std::size_t(y) * width_ + x) * 4];
    const int below = pixel[3];
    const int alpha = coverage + below * (255 - coverage) / 255;
    const std::uint8_t over[] = {color.red, color.green, color.blue};
    for (int i = 0; i < 3; ++i)
        pixel[i] = std::uint8_t((over[i] * coverage + pixel[i] * (alpha - coverage)) / alpha);
    pixel[3] = std::uint8_t(alpha);
}

void Picture::fill(const Distance &distance, Color color)
{
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x)
            cover(x, y, color, coverageOf(distance({float(x) + 0.5f, float(y) + 0.5f})));
    }
}

void Picture::erase(const Distance &distance)
{
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            std::uint8_t &alpha = pixels_[(std::size_t(y) * width_ + x) * 4 + 3];
            const int coverage = coverageOf(distance({float(x) + 0.5f, float(y) + 0.5f}));
            alpha = std::uint8_t(alpha * (255 - coverage) / 255);
        }
    }
}

void Picture::draw(int left, int top, const Picture &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const std::uint8_t *from = picture.pixel(x, y);
            cover(left + x, top + y, {from[0], from[1], from[2]}, from[3]);
        }
    }
}

Picture Picture::scaled(int width, int height) const
{
    Picture result(width, height);
    const int stepX = width > 1 ? ((width_ - 1) << 16) / (width - 1) : 0;
    const int stepY = height > 1 ? ((height_ - 1) << 16) / (height - 1) : 0;
    for (int y = 0; y < height; ++y) {
        const int top = (y * stepY) >> 16;
        const int bottom = std::min(top + 1, height_ - 1);
        const int v = ((y * stepY) >> 8) & 255;
        for (int x = 0; x < width; ++x) {
            const int left = (x * stepX) >> 16;
            const int right = std::min(left + 1, width_ - 1);
            const int u = ((x * stepX) >> 8) & 255;
            std::uint8_t *to = &result.pixels_[(std::size_t(y) * width + x) * 4];
            for (int i = 0; i < 4; ++i) {
                const int upper = pixel(left, top)[i] * (256 - u) + pixel(right, top)[i] * u;
                const int lower = pixel(left, bottom)[i] * (256 - u) + pixel(right, bottom)[i] * u;
                to[i] = std::uint8_t((upper * (256 - v) + lower * v) >> 16);
            }
        }
    }
    return result;
}

bool Picture::save(const std::string &path) const
{
    return write(path, PNG_FORMAT_RGBA, width_, height_, pixels_);
}

bool Picture::saveAsShown(const std::string &path) const
{
    constexpr int ShownBits = 0xF8;
    std::vector<std::uint8_t> shown;
    for (std::size_t i = 0; i < pixels_.size(); ++i) {
        if (i % 4 != 3)
            shown.push_back(pixels_[i] & ShownBits);
    }
    return write(path, PNG_FORMAT_RGB, width_, height_, shown);
}

Picture Picture::load(const std::string &path)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str()))
        return {};
    image.format = PNG_FORMAT_RGBA;
    Picture picture(int(image.width), int(image.height));
    if (!png_image_finish_read(&image, nullptr, picture.pixels_.data(), 0, nullptr))
        return {};
    return picture;
}
