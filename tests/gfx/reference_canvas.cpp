#include "gfx/reference_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace
{

int fixed(float v)
{
    return int(v * 64);
}

struct Walk {
    bool alongX;
    int start, end, minorStart;
    int64_t step;
};

Walk walkOf(int x1, int y1, int x2, int y2)
{
    Walk w;
    w.alongX = std::abs(x2 - x1) >= std::abs(y2 - y1);
    const int a1 = w.alongX ? x1 : y1, b1 = w.alongX ? y1 : x1;
    const int a2 = w.alongX ? x2 : y2, b2 = w.alongX ? y2 : x2;
    const bool swapped = a1 > a2;
    w.start = swapped ? a2 : a1;
    w.end = swapped ? a1 : a2;
    w.minorStart = swapped ? b2 : b1;
    const int minorEnd = swapped ? b1 : b2;
    w.step = w.end == w.start ? 0 : (int64_t(minorEnd - w.minorStart) * 65536) / (w.end - w.start);
    return w;
}

// Within the ellipse whose radii are half a pixel more than the given ones.
bool isWithin(int64_t x, int64_t y, int64_t a, int64_t b)
{
    const int64_t w = 2 * a + 1, h = 2 * b + 1;
    return 4 * x * x * h * h + 4 * y * y * w * w <= w * w * h * h;
}

} // namespace

bool ReferenceCanvas::inClip(int x, int y) const
{
    return x >= 0 && y >= 0 && x < width_ && y < height_ && x >= state.clip.left &&
           x <= state.clip.right && y >= state.clip.top && y <= state.clip.bottom;
}

uint32_t ReferenceCanvas::opaqueWord(uint32_t argb) const
{
    const uint32_t r = argb >> 16 & 255, g = argb >> 8 & 255, b = argb & 255;
    if (format_ == Format::Framebuffer)
        return 0x8000 | (r >> 3) << 10 | (g >> 3) << 5 | b >> 3;
    return r | g << 8 | b << 16 | 0xff000000u;
}

uint32_t ReferenceCanvas::blended(uint32_t to, uint32_t argb, int alpha) const
{
    const uint32_t from = opaqueWord(argb);
    const int bits = format_ == Format::Framebuffer ? 5 : 8, top = (1 << bits) - 1;
    uint32_t out = 0;
    for (int shift = 0; shift < 3 * bits; shift += bits) {
        const int s = int(from >> shift) & top, d = int(to >> shift) & top;
        out |= uint32_t((alpha * (s - d) + d * 256) >> 8) << shift;
    }
    if (format_ == Format::Framebuffer)
        return out | (to & 0x8000);
    const int d = int(to >> 24), s = alpha;
    return out | uint32_t(d + s - ((s * d + (s * d >> 8) + 128) >> 8)) << 24;
}

void ReferenceCanvas::put(int x, int y, uint32_t argb)
{
    const int alpha = int(argb >> 24);
    at(x, y) = alpha >= 255 ? opaqueWord(argb) : blended(at(x, y), argb, alpha);
}

void ReferenceCanvas::plot(int x, int y, uint32_t argb)
{
    if (argb >> 24 == 0)
        return;
    const int width = std::max(state.penWidth, 1), left = x - width / 2, top = y - width / 2;
    for (int py = top; py < top + width; ++py)
        for (int px = left; px < left + width; ++px)
            if (inClip(px, py))
                put(px, py, argb);
}

void ReferenceCanvas::drawLine(float x1, float y1, float x2, float y2, uint32_t argb)
{
    const int fx1 = fixed(x1) + 31, fy1 = fixed(y1) + 31, fx2 = fixed(x2) + 31,
              fy2 = fixed(y2) + 31;
    if (fx1 == fx2 && fy1 == fy2)
        return;
    const Walk w = walkOf(fx1, fy1, fx2, fy2);
    int64_t minor =
        int64_t(w.minorStart) * 1024 + ((((w.start + 32) & ~63) - w.start + 32) * w.step >> 6);
    for (int i = (w.start + 32) >> 6; i < (w.end + 32) >> 6; ++i, minor += w.step) {
        const int m = int(minor >> 16);
        plot(w.alongX ? i : m, w.alongX ? m : i, argb);
    }
}

void ReferenceCanvas::plotPair(bool alongX, int major, int64_t minor, uint32_t argb, int weight)
{
    const int m = int(minor >> 16), c = int(minor >> 8) & 255;
    const uint64_t first = (argb & 0xffffff) | uint64_t(255 - c) << 24;
    const uint64_t second = (argb & 0xffffff) | uint64_t(c) << 24;
    plot(alongX ? major : m, alongX ? m : major, uint32_t(first * unsigned(weight) >> 6));
    plot(alongX ? major : m + 1, alongX ? m + 1 : major, uint32_t(second * unsigned(weight) >> 6));
}

void ReferenceCanvas::drawSmoothLine(float x1, float y1, float x2, float y2, uint32_t argb)
{
    const Walk w = walkOf(fixed(x1), fixed(y1), fixed(x2), fixed(y2));
    int64_t minor = (int64_t(w.minorStart - 32) * 1024) - (((w.start & 63) - 32) * w.step >> 6);
    for (int i = w.start >> 6; i <= w.end >> 6; ++i, minor += w.step)
        plotPair(w.alongX, i, minor, argb, 64);
}

void ReferenceCanvas::drawDotLine(float x1, float y1, float x2, float y2, uint32_t argb)
{
    const Walk w = walkOf(fixed(x1), fixed(y1), fixed(x2), fixed(y2));
    const int first = w.start >> 6, last = w.end >> 6;
    const bool isOnePixel = first == last;
    int64_t minor = (int64_t(w.minorStart - 32) * 1024) - (((w.start & 63) - 32) * w.step >> 6);
    const int dash = 2 * std::max(state.penWidth, 1);
    for (int i = first, plotted = 0; i <= last; ++i, minor += w.step) {
        int weight = 64;
        if (i == first)
            weight = isOnePixel ? w.end - w.start : 64 - (w.start & 63);
        else if (i == last)
            weight = w.end & 63;
        plotPair(w.alongX, i, minor, argb, weight);
        if (++plotted == dash) {
            plotted = 0;
            i += dash;
            minor += dash * w.step;
        }
    }
}

void ReferenceCanvas::four(int cx, int cy, int x, int y, uint32_t argb)
{
    plot(cx + x, cy + y, argb);
    plot(cx - x, cy + y, argb);
    plot(cx + x, cy - y, argb);
    plot(cx - x, cy - y, argb);
}

void ReferenceCanvas::drawEllipse(int cx, int cy, int rx, int ry)
{
    if (rx < 1 || ry < 1)
        return;
    // The method in its textbook form, with halves and quarters, which a double holds exactly.
    const double a2 = double(rx - 1) * (rx - 1), b2 = double(ry - 1) * (ry - 1);
    double x = 0, y = ry - 1;
    double d = b2 - a2 * y + a2 / 4;
    while (b2 * x < a2 * y) {
        four(cx, cy, int(x), int(y), state.penColor);
        if (d < 0) {
            x += 1;
            d += 2 * b2 * x + b2;
        } else {
            x += 1;
            y -= 1;
            d += 2 * b2 * x - 2 * a2 * y + b2;
        }
    }
    d = b2 * (x + 0.5) * (x + 0.5) + a2 * (y - 1) * (y - 1) - a2 * b2;
    while (y >= 0) {
        four(cx, cy, int(x), int(y), state.penColor);
        if (d > 0) {
            y -= 1;
            d += a2 - 2 * a2 * y;
        } else {
            y -= 1;
            x += 1;
            d += 2 * b2 * x - 2 * a2 * y + a2;
        }
    }
}

void ReferenceCanvas::fillRect(const ZrRect &rect)
{
    if (state.brushColor >> 24 == 0)
        return;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            if (x >= 0 && y >= 0 && x < width_ && y < height_)
                put(x, y, state.brushColor);
}

void ReferenceCanvas::fillEllipse(int cx, int cy, int rx, int ry)
{
    if (rx < 1 || ry < 1)
        return;
    const int64_t a = rx - 1, b = ry - 1;
    for (int64_t dy = 0; dy <= b; ++dy) {
        int64_t dx = a;
        while (dx > 0 && !isWithin(dx, dy, a, b))
            --dx;
        for (int side = dy == 0 ? 1 : -1; side <= 1; side += 2) {
            const float y = float(cy - side * dy);
            drawLine(float(cx - dx), y, float(cx + dx + 1), y, state.brushColor);
        }
    }
}

void ReferenceCanvas::fillArc(int x, int y, int w, int h, int start, int span)
{
    if (w < 1 || h < 1 || span == 0 || state.brushColor >> 24 == 0)
        return;
    span = std::clamp(span, -360, 360);
    start %= 360;
    if (span < 0) {
        start += span;
        span = -span;
    }
    start = span == 360 ? 0 : (start % 360 + 360) % 360;
    const int cx = x + w / 2, cy = y + h / 2;
    const int side[2] = {(w - 1) / 2, (h - 1) / 2};
    for (int q = start / 90; q * 90 < start + span; ++q) {
        const int from = std::max(start - q * 90, 0), to = std::min(start + span - q * 90, 90);
        const int a = side[q % 2], b = side[1 - q % 2];
        const int fromX = int(a * std::cos(from * 0.017453292) + 0.5);
        const int fromY = int(b * std::sin(from * 0.017453292) + 0.5);
        const int toX = int(a * std::cos(to * 0.017453292) + 0.5);
        const int toY = int(b * std::sin(to * 0.017453292) + 0.5);
        for (int lx = 0; lx <= a; ++lx) {
            for (int ly = 0; ly <= b; ++ly) {
                if (!isWithin(lx, ly, a, b))
                    continue;
                // Below the first ray, or above the last: heights rounded to the nearest.
                if (from > 0 &&
                    (lx > fromX || (fromX && ly < (2 * lx * fromY + fromX) / (2 * fromX))))
                    continue;
                if (to < 90 && lx < toX && ly > (2 * lx * toY + toX) / (2 * toX))
                    continue;
                // An axis that two quadrants of the pie share is the earlier one's.
                if (q != start / 90 && from == 0 && ly == 0)
                    continue;
                if (span == 360 && q == 3 && lx == 0)
                    continue;
                const int sx[4] = {lx, -ly, -lx, ly}, sy[4] = {-ly, -lx, ly, lx};
                if (inClip(cx + sx[q % 4], cy + sy[q % 4]))
                    put(cx + sx[q % 4], cy + sy[q % 4], state.brushColor);
            }
        }
    }
}

void ReferenceCanvas::fillRegion(const ZrRegion &region, const ZrColor &colour)
{
    if (format_ == Format::Image)
        return;
    for (const ZrRect &rect : region.rects())
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            for (int x = rect.left(); x <= rect.right(); ++x)
                if (x >= 0 && y >= 0 && x < width_ && y < height_)
                    at(x, y) = opaqueWord(colour.argb()) & (colour.alpha() ? 0xffff : 0x7fff);
}

void ReferenceCanvas::drawImage(int x, int y, int w, int h, const ZrImage &image, int sx, int sy,
                                int sw, int sh)
{
    if (sx >= image.width() || sy >= image.height() || x >= width_ || y >= height_)
        return;
    sw = std::min(sw, image.width() - sx);
    sh = std::min(sh, image.height() - sy);
    w = std::min(w, width_ - x);
    h = std::min(h, height_ - y);
    auto pixel = [&](int px, int py) {
        uint32_t rgba;
        std::memcpy(&rgba,
                    image.bits() + 4 * (std::min(py, image.height() - 1) * image.width() +
                                        std::min(px, image.width() - 1)),
                    4);
        return rgba;
    };
    const bool isCopy = sw == w && sh == h;
    const int stepX = w > 1 ? ((sw - 1) << 16) / (w - 1) : 0;
    const int stepY = h > 1 ? ((sh - 1) << 16) / (h - 1) : 0;
    for (int j = 0; j < h; ++j) {
        for (int i = 0; i < w; ++i) {
            uint32_t rgba = 0;
            if (isCopy) {
                rgba = pixel(sx + i, sy + j);
            } else {
                const int px = i * stepX, py = j * stepY;
                const int u = px >> 8 & 255, v = py >> 8 & 255;
                const int left = sx + (px >> 16), top = sy + (py >> 16);
                const uint32_t w11 = unsigned(u * v), w01 = unsigned((256 - u) * v),
                               w10 = unsigned((256 - v) * u), w00 = 65536 - w11 - w01 - w10;
                for (int s = 0; s < 32; s += 8)
                    rgba |= (((pixel(left, top) >> s & 255) * w00 +
                              (pixel(left + 1, top) >> s & 255) * w10 +
                              (pixel(left, top + 1) >> s & 255) * w01 +
                              (pixel(left + 1, top + 1) >> s & 255) * w11) >>
                             16)
                            << s;
            }
            const uint32_t argb = (rgba & 0xff00ff00u) | (rgba & 255) << 16 | (rgba >> 16 & 255);
            if (inClip(x + i, y + j) && argb >> 24)
                put(x + i, y + j, argb);
        }
    }
}

void ReferenceCanvas::drawGlyphs(int x, int y, const ZrVector<const GlyphBitmap *> &glyphs)
{
    if (glyphs.isEmpty() || state.font.pointSize == 0)
        return;
    int descent = -32768, below = -32768;
    for (const GlyphBitmap *g : glyphs) {
        descent = std::max<int>(descent, g->descent);
        below = std::max(below, g->rows - g->top);
    }
    const int baseline = y - (descent + state.font.pointSize / 8 + 1);
    int pen = x;
    for (const GlyphBitmap *g : glyphs) {
        for (int row = 0; row < g->rows; ++row) {
            for (int column = 0; column < g->width; ++column) {
                const uint32_t c = g->buffer[row * g->pitch + column];
                const int px = pen + g->left + column, py = baseline - g->top + row;
                if (c == 0 || !inClip(px, py))
                    continue;
                if (format_ == Format::Framebuffer && c != 255 && !(at(px, py) & 0x8000))
                    at(px, py) = 0x8000;
                put(px, py, (state.penColor & 0xffffff) | c << 24);
            }
        }
        pen += g->advance + state.letterSpacing;
    }
    if (state.font.flags & 8)
        for (int px = x; px < pen - state.letterSpacing; ++px)
            if (inClip(px, baseline + below))
                put(px, baseline + below, state.penColor | 0xff000000u);
}
