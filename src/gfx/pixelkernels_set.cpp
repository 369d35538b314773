// One set of kernels. This file is compiled once for each instruction set, in a namespace named by
// ZR_KERNEL_SET with ZR_KERNEL_LANES pixels of 16 bits to a register. It must define nothing that
// the linker could share between the sets, so it uses no library templates.
#include "gfx/pixelkernels.h"

#ifndef ZR_KERNEL_SET
#define ZR_KERNEL_SET portable
#define ZR_KERNEL_LANES 8
#endif

#define ZR_INLINE inline __attribute__((always_inline))
#define ZR_LAMBDA __attribute__((always_inline))

namespace ZR_KERNEL_SET
{
namespace
{

constexpr int kLanes = ZR_KERNEL_LANES;

// N pixels side by side; 16-bit lanes carry one component, or one packed pixel, each.
template <int N>
struct Lanes {
    static constexpr int count = N;
    typedef uint8_t Bytes __attribute__((vector_size(N)));
    typedef uint16_t Words __attribute__((vector_size(N * 2)));
    typedef uint32_t Pixels __attribute__((vector_size(N * 4)));
    typedef uint64_t Pairs __attribute__((vector_size(N * 8)));
};
template <int N>
using Words = typename Lanes<N>::Words;
template <int N>
using Pixels = typename Lanes<N>::Pixels;

template <class Vector, class Element>
ZR_INLINE Vector load(const Element *from)
{
    Vector v;
    __builtin_memcpy(&v, from, sizeof v);
    return v;
}

template <class Vector, class Element>
ZR_INLINE void store(Element *to, Vector v)
{
    __builtin_memcpy(to, &v, sizeof v);
}

template <class To, class From>
ZR_INLINE To as(From v)
{
    return __builtin_convertvector(v, To);
}

// Runs the step over a row in the widest blocks first and ever smaller ones behind.
template <class Step>
ZR_INLINE void alongRow(int width, Step step)
{
    int x = 0;
    for (; x + kLanes <= width; x += kLanes)
        step(Lanes<kLanes>(), x);
    if constexpr (kLanes > 16) {
        if (x + 16 <= width) {
            step(Lanes<16>(), x);
            x += 16;
        }
    }
    if constexpr (kLanes > 8) {
        if (x + 8 <= width) {
            step(Lanes<8>(), x);
            x += 8;
        }
    }
    if (x + 4 <= width) {
        step(Lanes<4>(), x);
        x += 4;
    }
    for (; x < width; ++x)
        step(Lanes<1>(), x);
}

// Rows that touch are one long row.
ZR_INLINE void joinRows(ptrdiff_t stride, int &width, int &height)
{
    if (stride == width && height > 0 && int64_t(width) * height < 0x40000000) {
        width *= height;
        height = 1;
    }
}

// --- 16-bit pixels ---------------------------------------------------------------------------

template <int N>
struct Components {
    Words<N> red, green, blue;
};

template <int N>
ZR_INLINE Components<N> unpack(Words<N> pixel)
{
    return {(pixel >> 10) & 31, (pixel >> 5) & 31, pixel & 31};
}

// (alpha * source + (256 - alpha) * destination) >> 8; the weighted source is given, and a product
// and a sum never leave 16 bits. Alpha may be 256, which yields the source itself.
template <int N>
ZR_INLINE Words<N> mix(Words<N> pixel, Words<N> rest, Components<N> weighted)
{
    const Components<N> d = unpack<N>(pixel);
    const Words<N> red = ((d.red * rest + weighted.red) << 2) & 0x7c00;
    const Words<N> green = ((d.green * rest + weighted.green) >> 3) & 0x3e0;
    const Words<N> blue = (d.blue * rest + weighted.blue) >> 8;
    return red | green | blue;
}

// An alpha of 255 counts as 256: such a pixel replaces what was there.
template <int N>
ZR_INLINE Words<N> isFull(Words<N> alpha)
{
    return Words<N>(alpha == 255);
}

void fill16(uint16_t *to, ptrdiff_t stride, int width, int height, uint16_t word)
{
    joinRows(stride, width, height);
    for (; height > 0; --height, to += stride) {
        alongRow(width,
                 [=](auto lanes, int x) ZR_LAMBDA { store(to + x, Words<lanes.count>{} + word); });
    }
}

void blend16(uint16_t *to, ptrdiff_t stride, int width, int height, uint16_t word, int alpha)
{
    joinRows(stride, width, height);
    const uint16_t rest = uint16_t(256 - alpha);
    const uint16_t red = uint16_t(((word >> 10) & 31) * alpha);
    const uint16_t green = uint16_t(((word >> 5) & 31) * alpha);
    const uint16_t blue = uint16_t((word & 31) * alpha);
    for (; height > 0; --height, to += stride) {
        alongRow(width, [=](auto lanes, int x) ZR_LAMBDA {
            constexpr int N = lanes.count;
            const Words<N> none = {};
            const Words<N> pixel = load<Words<N>>(to + x);
            store(to + x, mix<N>(pixel, none + rest, {none + red, none + green, none + blue}) |
                              (pixel & 0x8000));
        });
    }
}

// The four components of N image pixels, colours cut to five bits.
template <int N>
struct ImagePixels {
    Components<N> colour;
    Words<N> alpha;
};

template <int N>
ZR_INLINE ImagePixels<N> split(Pixels<N> pixels)
{
    const Words<N> redGreen = as<Words<N>>(pixels & 0xffff);
    const Words<N> blueAlpha = as<Words<N>>(pixels >> 16);
    return {{(redGreen >> 3) & 31, redGreen >> 11, (blueAlpha >> 3) & 31}, blueAlpha >> 8};
}

template <int N>
ZR_INLINE Words<N> pack(Components<N> c)
{
    return (c.red << 10) | (c.green << 5) | c.blue;
}

template <int N>
ZR_INLINE Words<N> overPixels(Words<N> pixel, ImagePixels<N> image)
{
    const Words<N> full = isFull<N>(image.alpha);
    const Words<N> alpha = image.alpha - full;
    const Words<N> rest = 256 - alpha;
    const Components<N> weighted = {image.colour.red * alpha, image.colour.green * alpha,
                                    image.colour.blue * alpha};
    return mix<N>(pixel, rest, weighted) | ((pixel | full) & 0x8000);
}

// The sum of N values below 256.
template <int N>
ZR_INLINE unsigned sumOf(Words<N> values)
{
    if constexpr (N > 4) {
        Words<N / 2> half[2];
        __builtin_memcpy(half, &values, sizeof values);
        return sumOf<N / 2>(half[0] + half[1]);
    } else if constexpr (N == 4) {
        uint64_t four;
        __builtin_memcpy(&four, &values, sizeof four);
        return unsigned((four * 0x0001000100010001u) >> 48);
    } else {
        return values[0];
    }
}

void image16(uint16_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride, int width,
             int height)
{
    for (; height > 0; --height, to += stride, from += fromStride) {
        alongRow(width, [=](auto lanes, int x) ZR_LAMBDA {
            constexpr int N = lanes.count;
            const ImagePixels<N> image = split<N>(load<Pixels<N>>(from + x));
            // Icons are mostly runs: nothing at all, or nothing to mix.
            const unsigned sum = sumOf<N>(image.alpha);
            if (sum == 0)
                return;
            if (sum == 255 * N)
                store(to + x, pack<N>(image.colour) | 0x8000);
            else
                store(to + x, overPixels<N>(load<Words<N>>(to + x), image));
        });
    }
}

void opaque16(uint16_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride, int width,
              int height)
{
    for (; height > 0; --height, to += stride, from += fromStride) {
        alongRow(width, [=](auto lanes, int x) ZR_LAMBDA {
            constexpr int N = lanes.count;
            const ImagePixels<N> image = split<N>(load<Pixels<N>>(from + x));
            store(to + x, pack<N>(image.colour) | 0x8000);
        });
    }
}

// --- Text --------------------------------------------------------------------------------------

template <int N>
ZR_INLINE Words<N> overText(Words<N> pixel, Words<N> coverage, Components<N> pen)
{
    const Words<N> alpha = coverage - isFull<N>(coverage);
    // All ones where the pixel shows, so that one that does not starts from black.
    const Words<N> shown = Words<N>((pixel & 0x8000) != 0);
    const Words<N> painted = Words<N>(coverage != 0);
    const Words<N> mixed =
        mix<N>(pixel & shown, 256 - alpha, {pen.red * alpha, pen.green * alpha, pen.blue * alpha}) |
        0x8000;
    return (mixed & painted) | (pixel & ~painted);
}

template <int N>
ZR_INLINE Components<N> colourOf(uint16_t word)
{
    return unpack<N>(Words<N>{} + word);
}

void coverage16(uint16_t *to, ptrdiff_t stride, const CoverageBlock &block, uint16_t word)
{
    const uint8_t *from = block.rows;
    for (int y = 0; y < block.height; ++y, to += stride, from += block.pitch) {
        alongRow(block.width, [=](auto lanes, int x) ZR_LAMBDA {
            constexpr int N = lanes.count;
            const Words<N> coverage = as<Words<N>>(load<typename Lanes<N>::Bytes>(from + x));
            store(to + x, overText<N>(load<Words<N>>(to + x), coverage, colourOf<N>(word)));
        });
    }
}

// Ones that slide over a block: read from 16 - n, the first n lanes are kept.
const uint8_t kFirstLanes[32] = {255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255,
                                 255, 255, 255, 255, 255, 0,   0,   0,   0,   0,   0,
                                 0,   0,   0,   0,   0,   0,   0,   0,   0,   0};

void coverageWide16(uint16_t *to, ptrdiff_t stride, const CoverageBlock &block, uint16_t word)
{
    constexpr int N = kLanes < 16 ? kLanes : 16;
    typedef Lanes<N>::Bytes Bytes;
    const Components<N> pen = colourOf<N>(word);
    for (int x = 0; x < block.width; x += N) {
        const int kept = block.width - x < N ? block.width - x : N;
        const Bytes mask = load<Bytes>(kFirstLanes + 16 - kept);
        const uint8_t *from = block.rows + x;
        uint16_t *row = to + x;
        for (int y = 0; y < block.height; ++y, row += stride, from += block.pitch) {
            const Words<N> coverage = as<Words<N>>(load<Bytes>(from) & mask);
            store(row, overText<N>(load<Words<N>>(row), coverage, pen));
        }
    }
}

// --- 32-bit pixels -------------------------------------------------------------------------------

// Both colours of one pair of components in the 16-bit halves of a word at a time.
ZR_INLINE uint32_t over32(uint32_t to, uint32_t from, uint32_t alpha)
{
    const uint32_t rest = 256 - alpha;
    const uint32_t redBlue = (((from & 0xff00ff) * alpha + (to & 0xff00ff) * rest) >> 8) & 0xff00ff;
    const uint32_t green = (((from >> 8) & 0xff) * alpha + ((to >> 8) & 0xff) * rest) & 0xff00;
    const uint32_t d = to >> 24;
    const uint32_t composed = d + alpha - ((alpha * d + (alpha * d >> 8) + 128) >> 8);
    return (composed & 255) << 24 | green | redBlue;
}

void fill32(uint32_t *to, ptrdiff_t stride, int width, int height, uint32_t word)
{
    joinRows(stride, width, height);
    for (; height > 0; --height, to += stride) {
        for (int x = 0; x < width; ++x)
            to[x] = word;
    }
}

void blend32(uint32_t *to, ptrdiff_t stride, int width, int height, uint32_t word)
{
    joinRows(stride, width, height);
    for (; height > 0; --height, to += stride) {
        for (int x = 0; x < width; ++x)
            to[x] = over32(to[x], word, word >> 24);
    }
}

void image32(uint32_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride, int width,
             int height)
{
    for (; height > 0; --height, to += stride, from += fromStride) {
        for (int x = 0; x < width; ++x) {
            const uint32_t alpha = from[x] >> 24;
            to[x] = alpha == 255 ? from[x] : over32(to[x], from[x], alpha);
        }
    }
}

void coverage32(uint32_t *to, ptrdiff_t stride, const CoverageBlock &block, uint32_t word)
{
    const uint8_t *from = block.rows;
    for (int y = 0; y < block.height; ++y, to += stride, from += block.pitch) {
        for (int x = 0; x < block.width; ++x)
            to[x] = from[x] == 255 ? word | 0xff000000 : over32(to[x], word, from[x]);
    }
}

// --- Scaling -------------------------------------------------------------------------------------

constexpr uint64_t kEvenBytes = 0x00ff00ff00ff00ffu;

// Mixes the two pixels of each pair: lanes hold (left, left, right, right) and likewise the
// weights.
template <int N>
ZR_INLINE Pixels<N> mixPair(typename Lanes<N>::Pairs components, typename Lanes<N>::Pairs weights)
{
    typedef typename Lanes<N>::Pairs Pairs;
    typedef Words<N * 4> Lane;
    const Pairs weighted = Pairs(Lane(components) * Lane(weights));
    return as<Pixels<N>>(weighted + (weighted >> 32));
}

void stretch(StretchedRow to, const uint32_t *from, const StretchColumns &columns, int count)
{
    constexpr int kBlock = kLanes >= 16 ? kLanes / 4 : 2;
    auto step = [&](auto lanes, int x) ZR_LAMBDA {
        constexpr int N = lanes.count;
        typedef typename Lanes<N>::Pairs Pairs;
        Pairs pairs;
        for (int i = 0; i < N; ++i) {
            uint64_t pair;
            __builtin_memcpy(&pair, from + columns.first[x + i], sizeof pair);
            pairs[i] = pair;
        }
        const Pairs weights = load<Pairs>(columns.weights + x);
        store(to.redBlue + x, mixPair<N>(pairs & kEvenBytes, weights));
        store(to.greenAlpha + x, mixPair<N>((pairs >> 8) & kEvenBytes, weights));
    };
    int x = 0;
    for (; x + kBlock <= count; x += kBlock)
        step(Lanes<kBlock>(), x);
    for (; x < count; ++x)
        step(Lanes<1>(), x);
}

// (upper * (256 - lower) + bottom * lower) >> 16 of 16-bit lanes, in halves so that no product
// leaves its lane.
template <int N>
ZR_INLINE Pixels<N> mixRows(const uint32_t *upper, const uint32_t *bottom, uint16_t lower)
{
    typedef Words<N * 2> Lane;
    const Lane u = load<Lane>(upper), b = load<Lane>(bottom);
    const uint16_t rest = uint16_t(256 - lower);
    const Lane high = (u >> 8) * rest + (b >> 8) * lower;
    const Lane low = (u & 255) * rest + (b & 255) * lower;
    return Pixels<N>((high + (low >> 8)) >> 8);
}

template <int N>
ZR_INLINE Words<N> fiveBits(Words<N> eight)
{
    return eight >> 3;
}

template <int N>
ZR_INLINE ImagePixels<N> scaledPixels(StretchedRow upper, StretchedRow bottom, int lower, int x)
{
    const Pixels<N> redBlue = mixRows<N>(upper.redBlue + x, bottom.redBlue + x, uint16_t(lower));
    const Pixels<N> greenAlpha =
        mixRows<N>(upper.greenAlpha + x, bottom.greenAlpha + x, uint16_t(lower));
    return {{fiveBits<N>(as<Words<N>>(redBlue & 0xffff)),
             fiveBits<N>(as<Words<N>>(greenAlpha & 0xffff)),
             fiveBits<N>(as<Words<N>>(redBlue >> 16))},
            as<Words<N>>(greenAlpha >> 16)};
}

void scaled16(uint16_t *to, StretchedRow upper, StretchedRow bottom, int lower, int count)
{
    alongRow(count, [=](auto lanes, int x) ZR_LAMBDA {
        constexpr int N = lanes.count;
        store(to + x,
              overPixels<N>(load<Words<N>>(to + x), scaledPixels<N>(upper, bottom, lower, x)));
    });
}

void scaledOpaque16(uint16_t *to, StretchedRow upper, StretchedRow bottom, int lower, int count)
{
    alongRow(count, [=](auto lanes, int x) ZR_LAMBDA {
        constexpr int N = lanes.count;
        const Pixels<N> redBlue =
            mixRows<N>(upper.redBlue + x, bottom.redBlue + x, uint16_t(lower));
        const Pixels<N> greenAlpha =
            mixRows<N>(upper.greenAlpha + x, bottom.greenAlpha + x, uint16_t(lower));
        store(to + x, as<Words<N>>(((redBlue & 0xf8) << 7) | (redBlue >> 19) |
                                   ((greenAlpha & 0xf8) << 2) | 0x8000));
    });
}

void scaled32(uint32_t *to, StretchedRow upper, StretchedRow bottom, int lower, int count)
{
    for (int x = 0; x < count; ++x) {
        const uint32_t redBlue =
            mixRows<1>(upper.redBlue + x, bottom.redBlue + x, uint16_t(lower))[0];
        const uint32_t greenAlpha =
            mixRows<1>(upper.greenAlpha + x, bottom.greenAlpha + x, uint16_t(lower))[0];
        const uint32_t pixel = redBlue | greenAlpha << 8;
        const uint32_t alpha = pixel >> 24;
        to[x] = alpha == 255 ? pixel : over32(to[x], pixel, alpha);
    }
}

} // namespace

#define ZR_TEXT_OF(word) #word
#define ZR_NAME_OF(word) ZR_TEXT_OF(word)

extern const PixelKernels kernels;
const PixelKernels kernels = {
    ZR_NAME_OF(ZR_KERNEL_SET),
    fill16,
    fill32,
    blend16,
    blend32,
    image16,
    opaque16,
    image32,
    coverage16,
    coverageWide16,
    coverage32,
    stretch,
    scaled16,
    scaledOpaque16,
    scaled32,
};

} // namespace ZR_KERNEL_SET
