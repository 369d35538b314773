#include <zrcanvas>

#include "gfx/canvasops.h"

#include <zrfontengine>
#include <zrimage>
#include <zrstring>

#include <cstdlib>
#include <cstring>

namespace
{

using Ops = CanvasOps<Format32>;

PixelBuffer<uint32_t> bufferOf(const ZrCanvas &canvas)
{
    return {reinterpret_cast<uint32_t *>(canvas.data()), canvas.width(), canvas.height(),
            canvas.width()};
}

} // namespace

ZrCanvas::ZrCanvas(int width, int height, const ZrColor &colour, const ZrRegion &region)
    : width_(width), height_(height), data_(nullptr)
{
    if (width > 0 && height > 0)
        data_ = static_cast<uint8_t *>(std::calloc(size_t(width) * size_t(height), 4));
    if (!data_) {
        width_ = height_ = 0;
        return;
    }
    // Fresh memory is transparent, and stays untouched until it is drawn into.
    const uint32_t word = Format32::opaque(colour.argb()) & ~(0xffu << 24);
    const uint32_t pixel = word | uint32_t(colour.alpha()) << 24;
    if (pixel == 0)
        return;
    const ZrRect whole(0, 0, width_, height_);
    const ZrRegion filled = region.isEmpty() ? ZrRegion(whole) : region & ZrRegion(whole);
    for (const ZrRect &rect : filled)
        pixelKernels().fill32(bufferOf(*this).at(rect.left(), rect.top()), width_, rect.width(),
                              rect.height(), pixel);
}

ZrCanvas::ZrCanvas(int width, int height, Pixels) : width_(width), height_(height), data_(nullptr)
{
    if (width > 0 && height > 0)
        data_ = static_cast<uint8_t *>(std::malloc(size_t(width) * size_t(height) * 4));
    if (!data_)
        width_ = height_ = 0;
}

void ZrCanvas::clearRows(int first)
{
    contentsChanged();
    if (data_ && first < height_)
        std::memset(data_ + size_t(first) * size_t(width_) * 4, 0,
                    size_t(height_ - first) * size_t(width_) * 4);
}

ZrCanvas::ZrCanvas(const ZrCanvas &other) : ZrCanvas(other.width_, other.height_, Pixels::Undefined)
{
    if (data_)
        std::memcpy(data_, other.data_, size_t(width_) * size_t(height_) * 4);
    opacity_ = other.opacity_;
}

ZrCanvas::~ZrCanvas()
{
    std::free(data_);
}

bool ZrCanvas::isOpaque() const
{
    if (opacity_ == Opacity::Unknown) {
        const PixelBuffer<uint32_t> pixels = bufferOf(*this);
        opacity_ = Opacity::Opaque;
        for (int y = 0; y < height_ && opacity_ == Opacity::Opaque; ++y) {
            uint32_t all = ~0u;
            for (int x = 0; x < width_; ++x)
                all &= *pixels.at(x, y);
            if (all >> 24 != 255)
                opacity_ = Opacity::Mixed;
        }
    }
    return opacity_ == Opacity::Opaque;
}

bool ZrCanvas::beginPaint(ZrPaintSetup &setup)
{
    setup.canvas = this;
    setup.rect = ZrRect(0, 0, width_, height_);
    setup.paintRegion = setup.rect;
    return data_ != nullptr;
}

void ZrCanvas::drawLine(qreal x1, qreal y1, qreal x2, qreal y2, zrargb colour)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_).lines().line(x1, y1, x2, y2, colour);
}

void ZrCanvas::drawSmoothLine(qreal x1, qreal y1, qreal x2, qreal y2, zrargb colour)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_).lines().smoothLine(x1, y1, x2, y2, colour);
}

void ZrCanvas::drawDotLine(qreal x1, qreal y1, qreal x2, qreal y2, zrargb colour)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_).lines().dotLine(x1, y1, x2, y2, colour);
}

void ZrCanvas::drawCircle(int cx, int cy, int radius)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_).shapes().circle(cx, cy, radius, state_->penColor);
}

void ZrCanvas::drawEllipse(int cx, int cy, int rx, int ry)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_).shapes().ellipse(cx, cy, rx, ry, state_->penColor);
}

void ZrCanvas::drawArc(int x, int y, int w, int h, int startAngle, int spanAngle)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_).arc(x, y, w, h, startAngle, spanAngle);
}

void ZrCanvas::drawText(int x, int y, const ZrString &text)
{
    if (state_->font.pointSize == 0)
        return;
    ZrFontEngine engine;
    const ZrVector<const GlyphBitmap *> glyphs = engine.resloveText(text, ZrFont(state_->font));
    if (glyphs.isEmpty())
        return;
    contentsChanged();
    Ops(bufferOf(*this), *state_).glyphs(x, GlyphLine(x, y, glyphs, state_->letterSpacing, 0));
}

void ZrCanvas::drawGlyphs(int x, int y, const ZrVector<const GlyphBitmap *> &glyphs)
{
    if (glyphs.isEmpty() || state_->font.pointSize == 0)
        return;
    contentsChanged();
    const GlyphLine line(x, y, glyphs, state_->letterSpacing, state_->font.pointSize / 8 + 1);
    Ops(bufferOf(*this), *state_).glyphs(x, line);
}

void ZrCanvas::drawImage(int x, int y, int w, int h, const ZrImage &image, int sx, int sy, int sw,
                         int sh)
{
    ImageCall call;
    if (!data_ || !cutImageCall(call, x, y, w, h, image, sx, sy, sw, sh, width_, height_))
        return;
    contentsChanged();
    Ops(bufferOf(*this), *state_).image(call);
}

void ZrCanvas::fillRect(const ZrRect &rect)
{
    const PixelBuffer<uint32_t> buffer = bufferOf(*this);
    const ClipBox cut = boxOf(rect).cutTo(buffer.box());
    if (alphaOf(state_->brushColor) == 0 || cut.isEmpty())
        return;
    contentsChanged();
    Format32::fill(buffer.at(cut.left, cut.top), buffer.stride, cut, state_->brushColor);
}

void ZrCanvas::fillCircle(int cx, int cy, int radius)
{
    fillEllipse(cx, cy, radius, radius);
}

void ZrCanvas::fillEllipse(int cx, int cy, int rx, int ry)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_).shapes().disc(cx, cy, rx, ry, state_->brushColor);
}

void ZrCanvas::fillArc(int x, int y, int w, int h, int startAngle, int spanAngle)
{
    contentsChanged();
    Ops(bufferOf(*this), *state_)
        .shapes()
        .pie(x, y, w, h, startAngle, spanAngle, state_->brushColor);
}

void ZrCanvas::fillRegion(const ZrRegion &, const ZrColor &) {}
