#include "gfx/imagereader.h"

#include <csetjmp>
#include <cstring>
#include <png.h>
#include <zrcanvas>
#include <zrimage>

namespace
{

// All that a jump out of the library must find again lives here, not in locals.
struct PngDecoder {
    EncodedBytes bytes;
    size_t position = 0;
    png_structp png = nullptr;
    png_infop info = nullptr;
    DecodedCanvas canvas;

    explicit PngDecoder(EncodedBytes encoded) : bytes(encoded) {}
    ~PngDecoder() { png_destroy_read_struct(&png, &info, nullptr); }

    bool prepare();
    void readHeader();
    void readRows();
};

void giveBytes(png_structp png, png_bytep to, size_t length)
{
    PngDecoder &decoder = *static_cast<PngDecoder *>(png_get_io_ptr(png));
    if (length > decoder.bytes.length - decoder.position)
        png_error(png, "Read Error");
    std::memcpy(to, decoder.bytes.data + decoder.position, length);
    decoder.position += length;
}

bool PngDecoder::prepare()
{
    png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    info = png ? png_create_info_struct(png) : nullptr;
    if (!info)
        return false;
    png_set_read_fn(png, this, giveBytes);
    png_set_user_limits(png, ZrImage::maxSide, ZrImage::maxSide);
    return true;
}

// To red, green, blue and alpha of eight bits, whatever the file holds.
void PngDecoder::readHeader()
{
    png_read_info(png, info);
    const png_uint_32 width = png_get_image_width(png, info);
    const png_uint_32 height = png_get_image_height(png, info);
    if (!isAllowedSize(width, height))
        png_error(png, "Image exceeds the pixel limit");
    const int type = png_get_color_type(png, info);
    const bool hasAlpha = (type & PNG_COLOR_MASK_ALPHA) || png_get_valid(png, info, PNG_INFO_tRNS);
    png_set_expand(png);
    png_set_strip_16(png);
    png_set_packing(png);
    if (!(type & PNG_COLOR_MASK_COLOR))
        png_set_gray_to_rgb(png);
    if (!hasAlpha)
        png_set_add_alpha(png, 0xff, PNG_FILLER_AFTER);
    if (!canvas.make(width, height))
        png_error(png, "Out of memory");
}

void PngDecoder::readRows()
{
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    const size_t rowBytes = size_t(canvas->width()) * 4;
    if (png_get_rowbytes(png, info) != rowBytes)
        png_error(png, "Unexpected row length");
    if (passes > 1)
        canvas.clear();
    for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < canvas->height(); ++y) {
            png_read_row(png, canvas.row(y), nullptr);
            canvas.setRowsWritten(pass == 0 ? y + 1 : canvas->height());
        }
    }
}

// True when every row was read.
bool decode(PngDecoder &decoder)
{
    if (setjmp(png_jmpbuf(decoder.png)))
        return false;
    decoder.readHeader();
    decoder.readRows();
    return true;
}

} // namespace

std::unique_ptr<ZrCanvas> readPng(EncodedBytes bytes)
{
    PngDecoder decoder(bytes);
    if (!decoder.prepare())
        return nullptr;
    decode(decoder);
    std::unique_ptr<ZrCanvas> canvas = decoder.canvas.take();
    // Looked up once here, so that drawing knows it.
    if (canvas)
        canvas->isOpaque();
    return canvas;
}
