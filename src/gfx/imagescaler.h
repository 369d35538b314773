// Bilinear scaling: each source row is stretched once and kept while destination rows mix it.
#pragma once

#include "gfx/raster.h"

#include <vector>

// Where destination pixels lie in a source: 16.16 positions, both ends on the outer pixel centres.
struct ScaleAxis {
    int origin; // first source pixel
    int step;   // 16.16
    int limit;  // source pixels of the whole image

    ScaleAxis(int first, int sourceLength, int targetLength, int imageLength)
        : origin(first),
          step(targetLength > 1 ? ((sourceLength - 1) << 16) / (targetLength - 1) : 0),
          limit(imageLength)
    {
    }
    int pixel(int index) const { return origin + int(int64_t(index) * step >> 16); }
    int fraction(int index) const { return int(int64_t(index) * step >> 8 & 255); }
};

class ImageScaler
{
public:
    ImageScaler(const PixelBuffer<const uint32_t> &image, const ScaleAxis &across,
                const ScaleAxis &down)
        : image_(image), across_(across), down_(down)
    {
    }

    // Draws the visible part of the target, whose first pixel is (left, top).
    void draw(const PixelBuffer<uint16_t> &to, int left, int top, const ClipBox &visible,
              bool isOpaque);
    void draw(const PixelBuffer<uint32_t> &to, int left, int top, const ClipBox &visible,
              bool isOpaque);
    // The samples themselves, over nothing: `to` is as large as the target.
    void sample(const PixelBuffer<uint32_t> &to);

private:
    template <class Word, class Mix>
    void drawRows(const PixelBuffer<Word> &to, int left, int top, const ClipBox &visible, Mix mix);
    void placeColumns(int first, int count);
    StretchedRow stretchedRow(int y);

    // The rows of one call, kept between calls so that drawing allocates nothing. Main thread.
    struct Scratch {
        std::vector<int32_t> first;
        std::vector<uint64_t> weights;
        std::vector<uint32_t> rows[2][2];
        int rowOf[2];
    };
    static Scratch &scratch();

    const PixelBuffer<const uint32_t> image_;
    const ScaleAxis across_;
    const ScaleAxis down_;
    int count_ = 0;
};
