#include "gfx/canvasops.h"

#include <zrcanvas>
#include <zrimage>

#include <cstdio>

bool cutImageCall(ImageCall &call, int x, int y, int w, int h, const ZrImage &image, int sx, int sy,
                  int sw, int sh, int canvasWidth, int canvasHeight)
{
    if (sx >= image.width() || sy >= image.height())
        return false;
    if (x >= canvasWidth || y >= canvasHeight) {
        perror("Exceed the device region\n");
        return false;
    }
    call.sx = std::max(sx, 0);
    call.sy = std::max(sy, 0);
    call.sw = std::min(sw, image.width() - call.sx);
    call.sh = std::min(sh, image.height() - call.sy);
    w = int(std::min<int64_t>(w, int64_t(canvasWidth) - x));
    h = int(std::min<int64_t>(h, int64_t(canvasHeight) - y));
    if (call.sw <= 0 || call.sh <= 0 || w <= 0 || h <= 0)
        return false;
    call.target = {x, y, x + w - 1, y + h - 1};
    const ZrCanvas *canvas = image.canvas();
    call.image = {reinterpret_cast<const uint32_t *>(canvas->data()), image.width(), image.height(),
                  image.width()};
    call.isOpaque = canvas->isOpaque();
    return true;
}

namespace
{

void copyImage(uint16_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride,
               int width, int height, bool isOpaque)
{
    const PixelKernels &kernels = pixelKernels();
    (isOpaque ? kernels.opaque16 : kernels.image16)(to, stride, from, fromStride, width, height);
}

void copyImage(uint32_t *to, ptrdiff_t stride, const uint32_t *from, ptrdiff_t fromStride,
               int width, int height, bool)
{
    pixelKernels().image32(to, stride, from, fromStride, width, height);
}

// Coverage may always be read in whole blocks of 16; whether pixels may, depends on where the last
// block ends.
bool blocksFit(const CoverageBlock &block, const PixelBuffer<uint16_t> &to, int x, int y)
{
    constexpr int kBlock = 16;
    const int lastBlock = (block.width - 1) / kBlock * kBlock;
    return to.at(x + lastBlock, y + block.height - 1) + kBlock <= to.at(to.width, to.height - 1);
}

void paintCoverage(const PixelBuffer<uint16_t> &to, int x, int y, const CoverageBlock &block,
                   uint16_t ink)
{
    const PixelKernels &kernels = pixelKernels();
    (blocksFit(block, to, x, y) ? kernels.coverageWide16
                                : kernels.coverage16)(to.at(x, y), to.stride, block, ink);
}

void paintCoverage(const PixelBuffer<uint32_t> &to, int x, int y, const CoverageBlock &block,
                   uint32_t ink)
{
    pixelKernels().coverage32(to.at(x, y), to.stride, block, ink);
}

} // namespace

template <class Format>
void CanvasOps<Format>::arc(int x, int y, int w, int h, int startAngle, int spanAngle) const
{
    const uint32_t pen = state_.penColor;
    if (raster_.isEmpty() || (alphaOf(pen) == 0 && !state_.antialias))
        return;
    const ArcPath &path = arcPath({w, h, startAngle, spanAngle, state_.penWidth, state_.antialias});
    if (path.pixels.empty())
        return arcLines(x, y, path);
    const ClipBox bounds{x + path.left, y + path.top, x + path.right, y + path.bottom};
    const bool isOpen = raster_.clip().contains(bounds);
    const Word ink = Format::opaque(pen);
    if (isOpen && !state_.antialias && alphaOf(pen) == 255) {
        Word *corner = raster_.at(x, y);
        for (int32_t offset : path.offsets(buffer_.stride))
            corner[offset] = ink;
        return;
    }
    for (const ArcPixel &pixel : path.pixels) {
        const int px = x + pixel.x, py = y + pixel.y;
        const int alpha = state_.antialias ? pixel.coverage : alphaOf(pen);
        if (alpha != 0 && (isOpen || raster_.clip().contains(px, py)))
            Raster<Format>::put(*raster_.at(px, py), ink, alpha);
    }
}

template <class Format>
void CanvasOps<Format>::arcLines(int x, int y, const ArcPath &path) const
{
    const LineRaster<Format> line = lines();
    const float left = float(x), top = float(y);
    for (size_t i = 1; i < path.points.size(); ++i) {
        const ZrPointF from = path.points[i - 1], to = path.points[i];
        if (state_.antialias)
            line.smoothLine(left + from.x(), top + from.y(), left + to.x(), top + to.y(),
                            state_.penColor);
        else
            line.line(left + from.x(), top + from.y(), left + to.x(), top + to.y(),
                      state_.penColor);
    }
}

template <class Format>
void CanvasOps<Format>::glyphs(int x, const GlyphLine &line) const
{
    if (raster_.isEmpty())
        return;
    const uint32_t opaquePen = withAlpha(state_.penColor, 255);
    const Word ink = Format::opaque(opaquePen);
    for (const GlyphLine::Place &place : line.places)
        glyph(place, ink);
    if (state_.font.flags & ZrFont::UnderLine)
        raster_.run(x, line.underlineEnd - 1, line.underlineTop, opaquePen);
}

template <class Format>
void CanvasOps<Format>::glyph(const GlyphLine::Place &place, Word ink) const
{
    const GlyphBitmap &bitmap = *place.glyph;
    const ClipBox box{place.left, place.top, place.left + bitmap.width - 1,
                      place.top + bitmap.rows - 1};
    const ClipBox cut = box.cutTo(raster_.clip());
    if (cut.isEmpty())
        return;
    const CoverageBlock block{bitmap.buffer + (cut.top - box.top) * ptrdiff_t(bitmap.pitch) +
                                  (cut.left - box.left),
                              bitmap.pitch, cut.width(), cut.height()};
    paintCoverage(buffer_, cut.left, cut.top, block, ink);
}

template <class Format>
void CanvasOps<Format>::image(const ImageCall &call) const
{
    const ClipBox cut = call.target.cutTo(raster_.clip());
    if (cut.isEmpty())
        return;
    const int dx = cut.left - call.target.left, dy = cut.top - call.target.top;
    if (call.isCopy()) {
        copyImage(buffer_.at(cut.left, cut.top), buffer_.stride,
                  call.image.at(call.sx + dx, call.sy + dy), call.image.stride, cut.width(),
                  cut.height(), call.isOpaque);
        return;
    }
    ImageScaler scaler(call.image,
                       ScaleAxis(call.sx, call.sw, call.target.width(), call.image.width),
                       ScaleAxis(call.sy, call.sh, call.target.height(), call.image.height));
    scaler.draw(buffer_, call.target.left, call.target.top, cut, call.isOpaque);
}

template class CanvasOps<Format16>;
template class CanvasOps<Format32>;
