// What the rows of this folder draw on, and the same picture for their yardsticks.
#pragma once

#include "support/aims.h"

#include <benchmark/benchmark.h>
#include <pixman.h>
#include <zrfbcanvas>
#include <zrfontengine>
#include <zrimage>

#include <cstdint>
#include <memory>
#include <vector>

constexpr int kScreenWidth = 1920, kScreenHeight = 1080;
constexpr uint32_t kColour = 0xffa54add;
constexpr uint16_t kColourWord = 0x8000 | 20 << 10 | 9 << 5 | 27;

// Two screens of opaque noise: one is drawn on, the other stands for the framebuffer.
uint16_t *screenPixels();
uint16_t *frontPixels();
inline uint16_t *pixelAt(int x, int y) { return screenPixels() + y * kScreenWidth + x; }

// A canvas over screenPixels() with the state's clip as large as the screen.
struct BenchCanvas {
    BenchCanvas();
    void setBrush(uint32_t argb) { state.brushColor = argb; }

    ZrCanvasState state;
    ZrFbCanvas canvas;
};

enum class Alpha { Opaque, Mixed, Noise };
// Straight pixels, bytes red, green, blue, alpha. Mixed is an icon: a disc with a soft edge and a
// soft shadow.
std::vector<uint32_t> picture(int width, int height, Alpha kind);
ZrImage pictureImage(int width, int height, Alpha kind);

// Glyphs of 12 by 16: a ring of varying size, some with a stem.
struct BenchGlyphs {
    explicit BenchGlyphs(int count);
    ZrVector<const GlyphBitmap *> list;
    static const uint8_t *coverage(int glyph); // rows of 16 bytes
    static int at(int place) { return (place * 7 + 3) % 26; }

private:
    std::vector<GlyphBitmap> bitmaps_;
};

class PixmanImage
{
public:
    explicit PixmanImage(pixman_image_t *image) : image_(image) {}
    ~PixmanImage() { pixman_image_unref(image_); }
    PixmanImage(const PixmanImage &) = delete;
    PixmanImage &operator=(const PixmanImage &) = delete;
    operator pixman_image_t *() const { return image_; }

private:
    pixman_image_t *image_;
};
pixman_image_t *pixmanScreen();
pixman_image_t *pixmanPicture(std::vector<uint32_t> &pixels, int width, int height,
                              pixman_format_code_t format);
pixman_image_t *pixmanColour(int alpha);
