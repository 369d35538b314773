#include <zrfbcanvas>

#include "gfx/canvasops.h"

#include <zrfontengine>
#include <zrimage>
#include <zrstring>

#include <cassert>
#include <cstdlib>
#include <cstring>

namespace
{

using Ops = CanvasOps<Format16>;

PixelBuffer<uint16_t> screenBuffer(uint16_t *pixels)
{
    if (!pixels)
        return {nullptr, 0, 0, 0};
    return {pixels, ZrFbCanvas::width(), ZrFbCanvas::height(),
            ptrdiff_t(ZrFbCanvas::lineLength() / sizeof(uint16_t))};
}

} // namespace

int ZrFbCanvas::width_ = 0;
int ZrFbCanvas::height_ = 0;
std::uint32_t ZrFbCanvas::lineLength_ = 0;
ZrFbCanvas *ZrFbCanvas::front_ = nullptr;
ZrFbCanvas *ZrFbCanvas::back_ = nullptr;

void ZrFbCanvas::setGeometry(int width, int height, std::uint32_t lineLength)
{
    assert(width >= 0 && height >= 0 && lineLength >= unsigned(width) * 2 && lineLength % 2 == 0);
    width_ = width;
    height_ = height;
    lineLength_ = lineLength;
}

void ZrFbCanvas::rebuildShared(std::uint8_t *framebuffer)
{
    delete front_;
    delete back_;
    front_ = framebuffer ? new ZrFbCanvas(framebuffer) : nullptr;
    back_ = framebuffer ? new ZrFbCanvas : nullptr;
}

void ZrFbCanvas::copyBackToFront(const ZrRect &rect)
{
    const PixelBuffer<uint16_t> from = screenBuffer(back_->data_), to = screenBuffer(front_->data_);
    size_t bytes = size_t(rect.width()) * sizeof(uint16_t);
    int rows = rect.height();
    if (rect.width() == from.stride) {
        bytes *= size_t(rows);
        rows = 1;
    }
    for (int y = rect.top(); y < rect.top() + rows; ++y)
        std::memcpy(to.at(rect.left(), y), from.at(rect.left(), y), bytes);
}

ZrFbCanvas::ZrFbCanvas(std::uint8_t *pixels)
    : data_(reinterpret_cast<uint16_t *>(pixels)), ownsData_(false)
{
}

ZrFbCanvas::ZrFbCanvas()
    : data_(static_cast<uint16_t *>(std::calloc(size_t(height_) + 1, lineLength_))), ownsData_(true)
{
}

ZrFbCanvas::~ZrFbCanvas()
{
    if (ownsData_)
        std::free(data_);
}

bool ZrFbCanvas::beginPaint(ZrPaintSetup &setup)
{
    setup.canvas = this;
    setup.rect = ZrRect(0, 0, width_, height_);
    setup.paintRegion = setup.rect;
    return data_ != nullptr;
}

void ZrFbCanvas::drawLine(qreal x1, qreal y1, qreal x2, qreal y2, zrargb colour)
{
    Ops(screenBuffer(data_), *state_).lines().line(x1, y1, x2, y2, colour);
}

void ZrFbCanvas::drawSmoothLine(qreal x1, qreal y1, qreal x2, qreal y2, zrargb colour)
{
    Ops(screenBuffer(data_), *state_).lines().smoothLine(x1, y1, x2, y2, colour);
}

void ZrFbCanvas::drawDotLine(qreal x1, qreal y1, qreal x2, qreal y2, zrargb colour)
{
    Ops(screenBuffer(data_), *state_).lines().dotLine(x1, y1, x2, y2, colour);
}

void ZrFbCanvas::drawCircle(int cx, int cy, int radius)
{
    Ops(screenBuffer(data_), *state_).shapes().circle(cx, cy, radius, state_->penColor);
}

void ZrFbCanvas::drawEllipse(int cx, int cy, int rx, int ry)
{
    Ops(screenBuffer(data_), *state_).shapes().ellipse(cx, cy, rx, ry, state_->penColor);
}

void ZrFbCanvas::drawArc(int x, int y, int w, int h, int startAngle, int spanAngle)
{
    strokeArc(x, y, w, h, startAngle, spanAngle);
}

void ZrFbCanvas::drawText(int x, int y, const ZrString &text)
{
    if (state_->font.pointSize == 0)
        return;
    ZrFontEngine engine;
    const ZrVector<const GlyphBitmap *> glyphs = engine.resloveText(text, ZrFont(state_->font));
    if (glyphs.isEmpty())
        return;
    Ops(screenBuffer(data_), *state_).glyphs(x, GlyphLine(x, y, glyphs, state_->letterSpacing, 0));
}

void ZrFbCanvas::drawGlyphs(int x, int y, const ZrVector<const GlyphBitmap *> &glyphs)
{
    if (glyphs.isEmpty() || state_->font.pointSize == 0)
        return;
    const GlyphLine line(x, y, glyphs, state_->letterSpacing, state_->font.pointSize / 8 + 1);
    Ops(screenBuffer(data_), *state_).glyphs(x, line);
}

void ZrFbCanvas::drawImage(int x, int y, int w, int h, const ZrImage &image, int sx, int sy, int sw,
                           int sh)
{
    ImageCall call;
    if (data_ && cutImageCall(call, x, y, w, h, image, sx, sy, sw, sh, width_, height_))
        Ops(screenBuffer(data_), *state_).image(call);
}

void ZrFbCanvas::fillRect(const ZrRect &rect)
{
    const PixelBuffer<uint16_t> buffer = screenBuffer(data_);
    const ClipBox cut = boxOf(rect).cutTo(buffer.box());
    if (alphaOf(state_->brushColor) == 0 || cut.isEmpty())
        return;
    Format16::fill(buffer.at(cut.left, cut.top), buffer.stride, cut, state_->brushColor);
}

void ZrFbCanvas::fillCircle(int cx, int cy, int radius)
{
    fillEllipse(cx, cy, radius, radius);
}

void ZrFbCanvas::fillEllipse(int cx, int cy, int rx, int ry)
{
    Ops(screenBuffer(data_), *state_).shapes().disc(cx, cy, rx, ry, state_->brushColor);
}

void ZrFbCanvas::fillArc(int x, int y, int w, int h, int startAngle, int spanAngle)
{
    Ops(screenBuffer(data_), *state_)
        .shapes()
        .pie(x, y, w, h, startAngle, spanAngle, state_->brushColor);
}

void ZrFbCanvas::fillRegion(const ZrRegion &region, const ZrColor &colour)
{
    const PixelBuffer<uint16_t> buffer = screenBuffer(data_);
    for (const ZrRect &rect : region) {
        const ClipBox cut = boxOf(rect).cutTo(buffer.box());
        if (!cut.isEmpty())
            pixelKernels().fill16(buffer.at(cut.left, cut.top), buffer.stride, cut.width(),
                                  cut.height(), word(colour.argb()));
    }
}

void ZrFbCanvas::plot(int x, int y, zrargb argb)
{
    Ops(screenBuffer(data_), *state_).raster().plot(x, y, argb);
}
