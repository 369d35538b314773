#include "gfx/encode.h"

#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>
#include <png.h>

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
    info.input_components = colours == JpegColours::Grey ? 1 : 3;
    info.in_color_space = colours == JpegColours::Grey ? JCS_GRAYSCALE : JCS_RGB;
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
