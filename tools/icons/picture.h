// A small RGBA picture and what the icon maker does with it. Build-time only.
#pragma once

#include "shapes.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct Color {
    std::uint8_t red, green, blue;
};

class Picture
{
public:
    Picture() = default;
    Picture(int width, int height)
        : width_(width), height_(height), pixels_(std::size_t(width) * height * 4)
    {
    }

    int width() const { return width_; }
    int height() const { return height_; }
    // Lays the colour over the pixel with that coverage, 0 to 255.
    void cover(int x, int y, Color color, int coverage);
    // Fills where the distance, in pixels, is below zero; the edge is smoothed over one pixel.
    void fill(const Distance &distance, Color color);
    // Makes the picture transparent there.
    void erase(const Distance &distance);
    // Lays another picture over this one.
    void draw(int left, int top, const Picture &picture);
    // By the sampling the screens use, so that what is seen here is what they show.
    Picture scaled(int width, int height) const;

    bool save(const std::string &path) const;
    // Opaque, in the colours that a screen of five bits a channel can show.
    bool saveAsShown(const std::string &path) const;
    // Empty when the file is no PNG.
    static Picture load(const std::string &path);

private:
    const std::uint8_t *pixel(int x, int y) const
    {
        return &pixels_[(std::size_t(y) * width_ + x) * 4];
    }

    int width_ = 0;
    int height_ = 0;
    std::vector<std::uint8_t> pixels_; // R, G, B, A
};
