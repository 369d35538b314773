// What both canvases do alike, for the pixels of one format and the state of one call.
#pragma once

#include "gfx/glyphline.h"
#include "gfx/imagescaler.h"
#include "gfx/rastershape.h"

#include <zrabstractcanvas>

class ZrImage;

inline ClipBox clipOf(const ZrCanvasState &state)
{
    return {state.clip.left, state.clip.top, state.clip.right, state.clip.bottom};
}

inline ClipBox boxOf(const ZrRect &rect)
{
    return {rect.left(), rect.top(), rect.right(), rect.bottom()};
}

// Both sizes of an image call after they are cut to the image and to the canvas.
struct ImageCall {
    PixelBuffer<const uint32_t> image;
    bool isOpaque;
    ClipBox target; // the whole of it, inside the canvas on its right and bottom
    int sx, sy, sw, sh;

    bool isCopy() const { return target.width() == sw && target.height() == sh; }
};

// False when there is nothing to draw; a target beyond the canvas is reported.
bool cutImageCall(ImageCall &call, int x, int y, int w, int h, const ZrImage &image, int sx, int sy,
                  int sw, int sh, int canvasWidth, int canvasHeight);

template <class Format>
class CanvasOps
{
public:
    using Word = typename Format::Word;

    CanvasOps(const PixelBuffer<Word> &buffer, const ZrCanvasState &state)
        : buffer_(buffer), state_(state), raster_(buffer, clipOf(state), state.penWidth)
    {
    }

    const Raster<Format> &raster() const { return raster_; }
    LineRaster<Format> lines() const { return LineRaster<Format>(raster_); }
    ShapeRaster<Format> shapes() const { return ShapeRaster<Format>(raster_); }

    void glyphs(int x, const GlyphLine &line) const;
    void image(const ImageCall &call) const;

private:
    void glyph(const GlyphLine::Place &place, Word ink) const;

    PixelBuffer<Word> buffer_;
    const ZrCanvasState &state_;
    Raster<Format> raster_;
};

extern template class CanvasOps<Format16>;
extern template class CanvasOps<Format32>;
