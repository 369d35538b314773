// The loops that touch pixels: each works on a whole rectangle, knows nothing of clips and
// painters, and exists once in source, compiled for every instruction set worth having on the
// machine.
//
// Pixels of the framebuffer are A1R5G5B5 words; image pixels are bytes red, green, blue, alpha,
// read as one little-endian word. A blended component is (alpha * (source - destination) +
// destination * 256) >> 8. Strides are in pixels. Callers have clipped already.
#pragma once

#include <cstddef>
#include <cstdint>

// One horizontally stretched source row: for each destination column the mix of its two source
// pixels times 256, red and blue in the halves of one word, green and alpha in the other.
struct StretchedRow {
    uint32_t *redBlue;
    uint32_t *greenAlpha;
};

// Which two neighbouring source pixels each destination column mixes, and how.
struct StretchColumns {
    const int32_t *first;    // the left one; the right one stands beside it
    const uint64_t *weights; // as stretchWeights gives them
};

// The weight of the right pixel, 0 to 256, and that of the left one, laid out for two components of
// both pixels at once: left in the two lower 16-bit lanes, right in the upper.
inline uint64_t stretchWeights(unsigned right)
{
    return (256 - right) * uint64_t(0x00010001) | uint64_t(right) * 0x00010001 << 32;
}

// A block of 8-bit coverage to be painted in one colour.
struct CoverageBlock {
    const uint8_t *rows;
    ptrdiff_t pitch;
    int width;
    int height;
};

struct PixelKernels {
    const char *name;

    void (*fill16)(uint16_t *to, ptrdiff_t stride, int width, int height, uint16_t word);
    void (*fill32)(uint32_t *to, ptrdiff_t stride, int width, int height, uint32_t word);
    // Alpha 1 to 254. The 16-bit form keeps the destination's alpha bit, the 32-bit form composes.
    void (*blend16)(uint16_t *to, ptrdiff_t stride, int width, int height, uint16_t word,
                    int alpha);
    void (*blend32)(uint32_t *to, ptrdiff_t stride, int width, int height, uint32_t word);

    // 1:1 copies of image pixels: those of alpha 255 replace, others blend. The opaque form trusts
    // that every source alpha is 255.
    void (*image16)(uint16_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride,
                    int width, int height);
    void (*opaque16)(uint16_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride,
                     int width, int height);
    void (*image32)(uint32_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride,
                    int width, int height);

    // Text. On 16 bits a transparent pixel becomes opaque black before it is mixed. The wide form
    // reads coverage and reads and writes pixels in blocks of 16, leaving what lies behind the
    // width unchanged: 16 bytes, and 16 pixels, must be there from the start of the last block on.
    void (*coverage16)(uint16_t *to, ptrdiff_t stride, const CoverageBlock &block, uint16_t word);
    void (*coverageWide16)(uint16_t *to, ptrdiff_t stride, const CoverageBlock &block,
                           uint16_t word);
    void (*coverage32)(uint32_t *to, ptrdiff_t stride, const CoverageBlock &block, uint32_t word);

    // The two halves of bilinear scaling. lower is 0 to 255, the weight of the lower row in 256.
    void (*stretch)(StretchedRow to, const uint32_t *from, const StretchColumns &columns,
                    int count);
    void (*scaled16)(uint16_t *to, StretchedRow upper, StretchedRow bottom, int lower, int count);
    void (*scaledOpaque16)(uint16_t *to, StretchedRow upper, StretchedRow bottom, int lower,
                           int count);
    void (*scaled32)(uint32_t *to, StretchedRow upper, StretchedRow bottom, int lower, int count);
};

// The widest set that this processor runs, chosen once.
const PixelKernels &pixelKernels();

// Every set that this processor runs, the portable one first; the list ends with null.
const PixelKernels *const *allPixelKernels();

// For tests, which hold each set against the formulas; null chooses the widest again.
void usePixelKernels(const PixelKernels *set);
