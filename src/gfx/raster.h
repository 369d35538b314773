// The drawing algorithms of the canvases, written once for both pixel formats.
//
// A Raster is made for one call: it holds the pixels, the clip already cut to them, and the pen's
// width. Colours come as 0xAARRGGBB. Nothing outside the clip is read or written.
#pragma once

#include "gfx/pixelkernels.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

// Inclusive edges.
struct ClipBox {
    int left, top, right, bottom;

    bool isEmpty() const { return left > right || top > bottom; }
    bool contains(int x, int y) const { return x >= left && x <= right && y >= top && y <= bottom; }
    bool contains(const ClipBox &other) const
    {
        return other.left >= left && other.right <= right && other.top >= top &&
               other.bottom <= bottom;
    }
    ClipBox cutTo(const ClipBox &other) const
    {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    int width() const { return right - left + 1; }
    int height() const { return bottom - top + 1; }
};

// A block of pixels of one format; stride counts pixels from one row to the next.
template <class Word>
struct PixelBuffer {
    Word *pixels;
    int width;
    int height;
    ptrdiff_t stride;

    ClipBox box() const { return {0, 0, width - 1, height - 1}; }
    Word *at(int x, int y) const { return pixels + y * stride + x; }
};

inline int alphaOf(uint32_t argb)
{
    return int(argb >> 24);
}
inline uint32_t withAlpha(uint32_t argb, int alpha)
{
    return (argb & 0xffffff) | uint32_t(alpha) << 24;
}

// A1R5G5B5.
struct Format16 {
    using Word = uint16_t;

    static Word opaque(uint32_t argb)
    {
        return Word(0x8000 | ((argb >> 9) & 0x7c00) | ((argb >> 6) & 0x3e0) | ((argb >> 3) & 0x1f));
    }
    // The destination's alpha bit stays: a pixel that shows the video goes on showing it.
    static void blend(Word &to, Word ink, int alpha)
    {
        to = Word((to & 0x8000) | mix(to >> 10, ink >> 10, alpha) << 10 |
                  mix(to >> 5, ink >> 5, alpha) << 5 | mix(to, ink, alpha));
    }

    static void fill(Word *to, ptrdiff_t stride, const ClipBox &box, uint32_t argb)
    {
        const PixelKernels &kernels = pixelKernels();
        if (alphaOf(argb) == 255)
            kernels.fill16(to, stride, box.width(), box.height(), opaque(argb));
        else
            kernels.blend16(to, stride, box.width(), box.height(), opaque(argb), alphaOf(argb));
    }

private:
    static int mix(int to, int from, int alpha)
    {
        to &= 31;
        return (alpha * ((from & 31) - to) + to * 256) >> 8;
    }
};

// Bytes red, green, blue, alpha.
struct Format32 {
    using Word = uint32_t;

    static Word opaque(uint32_t argb)
    {
        return 0xff000000u | (argb & 0xff00) | ((argb >> 16) & 0xff) | (argb & 0xff) << 16;
    }
    static void blend(Word &to, Word ink, int alpha)
    {
        const int d = int(to >> 24);
        const int composed = d + alpha - ((alpha * d + (alpha * d >> 8) + 128) >> 8);
        to = Word(composed & 255) << 24 | mix(to, ink, 16, alpha) | mix(to, ink, 8, alpha) |
             mix(to, ink, 0, alpha);
    }

    static void fill(Word *to, ptrdiff_t stride, const ClipBox &box, uint32_t argb)
    {
        const PixelKernels &kernels = pixelKernels();
        const Word ink = (opaque(argb) & 0xffffff) | Word(alphaOf(argb)) << 24;
        if (alphaOf(argb) == 255)
            kernels.fill32(to, stride, box.width(), box.height(), ink);
        else
            kernels.blend32(to, stride, box.width(), box.height(), ink);
    }

private:
    static Word mix(Word to, Word from, int shift, int alpha)
    {
        const int d = int(to >> shift & 255), s = int(from >> shift & 255);
        return Word((alpha * (s - d) + d * 256) >> 8) << shift;
    }
};

template <class Format>
class Raster
{
public:
    using Word = typename Format::Word;

    Raster(const PixelBuffer<Word> &buffer, const ClipBox &clip, int penWidth)
        : buffer_(buffer), clip_(clip.cutTo(buffer.box())), penWidth_(std::max(penWidth, 1))
    {
    }

    bool isEmpty() const { return clip_.isEmpty(); }
    const ClipBox &clip() const { return clip_; }
    int penWidth() const { return penWidth_; }
    bool isHairline() const { return penWidth_ == 1; }
    Word *at(int x, int y) const { return buffer_.at(x, y); }
    ptrdiff_t stride() const { return buffer_.stride; }

    // One stroke of the pen: a pixel, or a square of the pen's width around it.
    void plot(int x, int y, uint32_t argb) const
    {
        const int alpha = alphaOf(argb);
        if (alpha == 0)
            return;
        if (isHairline()) {
            if (clip_.contains(x, y))
                put(*at(x, y), Format::opaque(argb), alpha);
            return;
        }
        const int left = x - penWidth_ / 2, top = y - penWidth_ / 2;
        block({left, top, left + penWidth_ - 1, top + penWidth_ - 1}, argb);
    }

    // A filled block, blended once a pixel.
    void block(const ClipBox &box, uint32_t argb) const
    {
        const ClipBox cut = box.cutTo(clip_);
        const int alpha = alphaOf(argb);
        if (cut.isEmpty() || alpha == 0)
            return;
        Format::fill(at(cut.left, cut.top), buffer_.stride, cut, argb);
    }

    void run(int left, int right, int y, uint32_t argb) const { block({left, y, right, y}, argb); }

    static void put(Word &to, Word ink, int alpha)
    {
        if (alpha >= 255)
            to = ink;
        else
            Format::blend(to, ink, alpha);
    }

private:
    PixelBuffer<Word> buffer_;
    ClipBox clip_;
    int penWidth_;
};
