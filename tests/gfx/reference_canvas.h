// The canvases' formulas, one pixel at a time and without a thought for speed. The canvases must
// agree with this on every bit.
#pragma once

#include <zrabstractcanvas>
#include <zrfontengine>
#include <zrimage>

#include <cstdint>
#include <vector>

class ReferenceCanvas
{
public:
    enum class Format { Framebuffer, Image };

    ReferenceCanvas(Format format, int width, int height)
        : pixels(size_t(width) * size_t(height)), width_(width), height_(height), format_(format)
    {
    }

    ZrCanvasState state;
    std::vector<uint32_t> pixels; // words of the format

    // As the canvases' own. Circles and arcs are walked here as there, which would tell nothing:
    // they are golden pictures.
    void drawLine(float x1, float y1, float x2, float y2, uint32_t argb);
    void drawSmoothLine(float x1, float y1, float x2, float y2, uint32_t argb);
    void drawDotLine(float x1, float y1, float x2, float y2, uint32_t argb);
    void drawEllipse(int cx, int cy, int rx, int ry);
    void drawGlyphs(int x, int y, const ZrVector<const GlyphBitmap *> &glyphs);
    void drawImage(int x, int y, int w, int h, const ZrImage &image, int sx, int sy, int sw,
                   int sh);
    void fillRect(const ZrRect &rect);
    void fillCircle(int cx, int cy, int radius) { fillEllipse(cx, cy, radius, radius); }
    void fillEllipse(int cx, int cy, int rx, int ry);
    void fillArc(int x, int y, int w, int h, int start, int span);
    void fillRegion(const ZrRegion &region, const ZrColor &colour);

private:
    uint32_t &at(int x, int y) { return pixels[size_t(y) * size_t(width_) + size_t(x)]; }
    bool inClip(int x, int y) const;
    uint32_t opaqueWord(uint32_t argb) const;
    uint32_t blended(uint32_t to, uint32_t argb, int alpha) const;
    void put(int x, int y, uint32_t argb);
    void plot(int x, int y, uint32_t argb);
    void plotPair(bool alongX, int major, int64_t minor, uint32_t argb, int weight);
    void four(int cx, int cy, int x, int y, uint32_t argb);

    int width_, height_;
    Format format_;
};
