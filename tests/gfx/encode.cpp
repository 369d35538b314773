#include "gfx/encode.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <jpeglib.h>
#include <png.h>

namespace
{

constexpr int kWidth = 13, kHeight = 9, kColours = 16;

// Sample c of pixel (x, y), in the range of the bit depth.
unsigned sample(int x, int y, int c, int bits)
{
    const unsigned value = unsigned(x * 37 + y * 101 + c * 59) * 2654435761u;
    return value >> (32 - bits);
}

uint32_t toEight(unsigned value, int bits)
{
    return bits == 16 ? value >> 8 : value * 255 / ((1u << bits) - 1);
}

uint32_t paletteColour(unsigned index)
{
    return (index * 16) | (255 - index * 16) << 8 | (index * 7) << 16;
}

uint32_t expectedPixel(const PngKind &kind, int x, int y)
{
    const unsigned first = sample(x, y, 0, kind.bits);
    if (kind.colourType == PNG_COLOR_TYPE_PALETTE)
        return paletteColour(first) | (kind.hasTransparency && first == 0 ? 0u : 255u) << 24;
    const bool hasColour = kind.colourType & PNG_COLOR_MASK_COLOR;
    const bool hasAlpha = kind.colourType & PNG_COLOR_MASK_ALPHA;
    unsigned v[4];
    for (int c = 0; c < 4; ++c)
        v[c] = sample(x, y, c, kind.bits);
    const uint32_t red = toEight(v[0], kind.bits);
    const uint32_t green = hasColour ? toEight(v[1], kind.bits) : red;
    const uint32_t blue = hasColour ? toEight(v[2], kind.bits) : red;
    uint32_t alpha = hasAlpha ? toEight(v[hasColour ? 3 : 1], kind.bits) : 255;
    if (kind.hasTransparency && v[0] == 0 && (!hasColour || (v[1] == 0 && v[2] == 0)))
        alpha = 0;
    return red | green << 8 | blue << 16 | alpha << 24;
}

std::string packedRow(const PngKind &kind, int channels, int y)
{
    std::string row(size_t(kWidth * channels * kind.bits + 7) / 8, '\0');
    int at = 0;
    for (int x = 0; x < kWidth; ++x) {
        for (int c = 0; c < channels; ++c, at += kind.bits) {
            const unsigned value = sample(x, y, c, kind.bits);
            if (kind.bits == 16)
                row[size_t(at / 8 + 1)] = char(value);
            row[size_t(at / 8)] |= char(kind.bits == 16 ? value >> 8
                                                        : value << (8 - kind.bits - at % 8));
        }
    }
    return row;
}

void append(png_structp png, png_bytep bytes, size_t length)
{
    static_cast<std::string *>(png_get_io_ptr(png))->append(reinterpret_cast<char *>(bytes), length);
}

} // namespace

EncodedPicture encodePng(const PngKind &kind)
{
    EncodedPicture picture{{}, kWidth, kHeight, {}};
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &picture.file, append, nullptr);
    png_set_IHDR(png, info, kWidth, kHeight, kind.bits, kind.colourType,
                 kind.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (kind.colourType == PNG_COLOR_TYPE_PALETTE) {
        png_color palette[kColours];
        for (unsigned i = 0; i < kColours; ++i) {
            const uint32_t c = paletteColour(i);
            palette[i] = {png_byte(c), png_byte(c >> 8), png_byte(c >> 16)};
        }
        png_set_PLTE(png, info, palette, 1 << kind.bits);
    }
    const png_byte clear = 0;
    png_color_16 black = {};
    if (kind.hasTransparency)
        png_set_tRNS(png, info, &clear, 1, &black);
    png_write_info(png, info);
    const int channels = png_get_channels(png, info);
    std::vector<std::string> rows;
    std::vector<png_bytep> pointers;
    for (int y = 0; y < kHeight; ++y)
        rows.push_back(packedRow(kind, channels, y));
    for (std::string &row : rows)
        pointers.push_back(reinterpret_cast<png_bytep>(&row[0]));
    png_write_image(png, pointers.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            picture.pixels.push_back(expectedPixel(kind, x, y));
    return picture;
}

std::string encodePng(const std::vector<uint32_t> &pixels, int width, int height)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = png_uint_32(width);
    image.height = png_uint_32(height);
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t length = 0;
    png_image_write_to_memory(&image, nullptr, &length, 0, pixels.data(), 0, nullptr);
    std::string file(length, '\0');
    png_image_write_to_memory(&image, &file[0], &length, 0, pixels.data(), 0, nullptr);
    file.resize(length);
    return file;
}

std::string encodeJpeg(JpegColours colours, JpegScans scans, int width, int height, uint8_t value)
{
    jpeg_compress_struct info;
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char *bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &bytes, &length);
    info.image_width = JDIMENSION(width);
    info.image_height = JDIMENSION(height);
    info.input_components = colours == JpegColours::Grey ? 1 : colours == JpegColours::Rgb ? 3 : 4;
    info.in_color_space = colours == JpegColours::Grey  ? JCS_GRAYSCALE
                          : colours == JpegColours::Rgb ? JCS_RGB
                                                        : JCS_CMYK;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 90, TRUE);
    if (scans == JpegScans::Progressive)
        jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    std::vector<uint8_t> row(size_t(width * info.input_components), value);
    JSAMPROW rows[] = {row.data()};
    while (info.next_scanline < info.image_height)
        jpeg_write_scanlines(&info, rows, 1);
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string file(reinterpret_cast<char *>(bytes), length);
    std::free(bytes);
    return file;
}
