// Decoding beside the libraries' own shortest way to the same pixels.
#include "bench_pixels.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <jpeglib.h>
#include <png.h>
#include <string>

namespace
{

constexpr int kPngSide = 512, kJpegWidth = 704, kJpegHeight = 576, kQuality = 85;

const std::string &pngFile()
{
    static const std::string file = [] {
        const std::vector<uint32_t> pixels = picture(kPngSide, kPngSide, Alpha::Mixed);
        png_image image = {};
        image.version = PNG_IMAGE_VERSION;
        image.width = image.height = kPngSide;
        image.format = PNG_FORMAT_RGBA;
        std::string bytes(pixels.size() * 8, '\0');
        png_alloc_size_t length = bytes.size();
        png_image_write_to_memory(&image, &bytes[0], &length, 0, pixels.data(), 0, nullptr);
        bytes.resize(length);
        return bytes;
    }();
    return file;
}

const std::string &jpegFile()
{
    static const std::string file = [] {
        std::vector<uint32_t> pixels = picture(kJpegWidth, kJpegHeight, Alpha::Opaque);
        jpeg_compress_struct info;
        jpeg_error_mgr errors;
        info.err = jpeg_std_error(&errors);
        jpeg_create_compress(&info);
        unsigned char *bytes = nullptr;
        unsigned long length = 0;
        jpeg_mem_dest(&info, &bytes, &length);
        info.image_width = kJpegWidth;
        info.image_height = kJpegHeight;
        info.input_components = 4;
        info.in_color_space = JCS_EXT_RGBX;
        jpeg_set_defaults(&info);
        jpeg_set_quality(&info, kQuality, TRUE);
        jpeg_start_compress(&info, TRUE);
        while (info.next_scanline < info.image_height) {
            JSAMPROW row = reinterpret_cast<JSAMPROW>(&pixels[info.next_scanline * kJpegWidth]);
            jpeg_write_scanlines(&info, &row, 1);
        }
        jpeg_finish_compress(&info);
        jpeg_destroy_compress(&info);
        std::string made(reinterpret_cast<char *>(bytes), length);
        std::free(bytes);
        return made;
    }();
    return file;
}

void decode(benchmark::State &state, const std::string &(*file)())
{
    for (auto _ : state) {
        const ZrImage image(file().data(), int(file().size()));
        benchmark::DoNotOptimize(image.bits());
    }
}
BENCHMARK_CAPTURE(decode, png, pngFile);
BENCHMARK_CAPTURE(decode, jpeg, jpegFile);

// Both yardsticks allocate their pixels each time, as an image must.
void libpngSimplified(benchmark::State &state)
{
    for (auto _ : state) {
        png_image image = {};
        image.version = PNG_IMAGE_VERSION;
        png_image_begin_read_from_memory(&image, pngFile().data(), pngFile().size());
        image.format = PNG_FORMAT_RGBA;
        void *pixels = std::malloc(PNG_IMAGE_SIZE(image));
        png_image_finish_read(&image, nullptr, pixels, 0, nullptr);
        benchmark::DoNotOptimize(pixels);
        std::free(pixels);
    }
}
BENCHMARK(libpngSimplified);

void libjpegToRgba(benchmark::State &state)
{
    for (auto _ : state) {
        jpeg_decompress_struct info;
        jpeg_error_mgr errors;
        info.err = jpeg_std_error(&errors);
        jpeg_create_decompress(&info);
        jpeg_mem_src(&info, reinterpret_cast<const unsigned char *>(jpegFile().data()),
                     jpegFile().size());
        jpeg_read_header(&info, TRUE);
        info.out_color_space = JCS_EXT_RGBA;
        jpeg_start_decompress(&info);
        auto *pixels = static_cast<unsigned char *>(std::malloc(kJpegWidth * kJpegHeight * 4));
        while (info.output_scanline < info.output_height) {
            JSAMPROW row = pixels + info.output_scanline * kJpegWidth * 4;
            jpeg_read_scanlines(&info, &row, 1);
        }
        jpeg_finish_decompress(&info);
        jpeg_destroy_decompress(&info);
        benchmark::DoNotOptimize(pixels);
        std::free(pixels);
    }
}
BENCHMARK(libjpegToRgba);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("PNG 512x512 / libpng simplified", "decode/png", "libpngSimplified", 1.05),
    zrbench::atMost("JPEG 704x576 / libjpeg to RGBA", "decode/jpeg", "libjpegToRgba", 1.05),
};

} // namespace
