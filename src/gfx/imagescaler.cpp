#include "gfx/imagescaler.h"

ImageScaler::Scratch &ImageScaler::scratch()
{
    static Scratch kept;
    return kept;
}

void ImageScaler::placeColumns(int first, int count)
{
    Scratch &s = scratch();
    count_ = count;
    if (int(s.first.size()) < count) {
        s.first.resize(size_t(count));
        s.weights.resize(size_t(count));
        for (auto &slot : s.rows)
            for (auto &plane : slot)
                plane.resize(size_t(count));
    }
    s.rowOf[0] = s.rowOf[1] = -1;
    for (int i = 0; i < count; ++i) {
        const int pixel = across_.pixel(first + i);
        // The last pixel has no right neighbour: it is taken as the right one of the pair before.
        const bool isLast = pixel >= across_.limit - 1;
        s.first[size_t(i)] = isLast ? across_.limit - 2 : pixel;
        s.weights[size_t(i)] = stretchWeights(isLast ? 256 : unsigned(across_.fraction(first + i)));
    }
}

StretchedRow ImageScaler::stretchedRow(int y)
{
    Scratch &s = scratch();
    const int slot = y & 1;
    const StretchedRow row{s.rows[slot][0].data(), s.rows[slot][1].data()};
    if (s.rowOf[slot] == y)
        return row;
    s.rowOf[slot] = y;
    const uint32_t *from = image_.at(0, y);
    if (across_.limit > 1) {
        pixelKernels().stretch(row, from, {s.first.data(), s.weights.data()}, count_);
        return row;
    }
    for (int i = 0; i < count_; ++i) {
        row.redBlue[i] = (*from & 0xff00ff) << 8;
        row.greenAlpha[i] = *from & 0xff00ff00;
    }
    return row;
}

namespace
{

// (upper * (256 - lower) + bottom * lower) >> 16 of both 16-bit halves.
uint32_t mixHalves(uint32_t upper, uint32_t bottom, uint32_t lower)
{
    const uint32_t rest = 256 - lower;
    const uint32_t low = ((upper & 0xffff) * rest + (bottom & 0xffff) * lower) >> 16;
    const uint32_t high = ((upper >> 16) * rest + (bottom >> 16) * lower) >> 16;
    return high << 16 | low;
}

void sampleRow(uint32_t *to, StretchedRow upper, StretchedRow bottom, int lower, int count)
{
    for (int x = 0; x < count; ++x)
        to[x] = mixHalves(upper.redBlue[x], bottom.redBlue[x], uint32_t(lower)) |
                mixHalves(upper.greenAlpha[x], bottom.greenAlpha[x], uint32_t(lower)) << 8;
}

} // namespace

template <class Word, class Mix>
void ImageScaler::drawRows(const PixelBuffer<Word> &to, int left, int top, const ClipBox &visible,
                           Mix mix)
{
    placeColumns(visible.left - left, visible.width());
    for (int y = visible.top; y <= visible.bottom; ++y) {
        const int upper = std::min(down_.pixel(y - top), down_.limit - 1);
        const int bottom = std::min(upper + 1, down_.limit - 1);
        mix(to.at(visible.left, y), stretchedRow(upper), stretchedRow(bottom),
            down_.fraction(y - top), count_);
    }
}

void ImageScaler::draw(const PixelBuffer<uint16_t> &to, int left, int top, const ClipBox &visible,
                       bool isOpaque)
{
    drawRows(to, left, top, visible,
             isOpaque ? pixelKernels().scaledOpaque16 : pixelKernels().scaled16);
}

void ImageScaler::sample(const PixelBuffer<uint32_t> &to)
{
    drawRows(to, 0, 0, to.box(), sampleRow);
}

void ImageScaler::draw(const PixelBuffer<uint32_t> &to, int left, int top, const ClipBox &visible,
                       bool)
{
    drawRows(to, left, top, visible, pixelKernels().scaled32);
}
