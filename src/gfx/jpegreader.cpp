#include "gfx/imagereader.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio> // jpeglib.h needs FILE
#include <jpeglib.h>
#include <zrcanvas>

namespace
{

// A file may describe a picture in any number of passes over all of it.
constexpr int kMostScans = 64;
// Held coefficients of a picture in several passes.
constexpr long kMostMemory = 128L << 20;
constexpr int kRowsAtOnce = 16;

// All that a jump out of the library must find again lives here, not in locals.
struct JpegDecoder {
    jpeg_decompress_struct info;
    jpeg_error_mgr errors;
    jpeg_progress_mgr progress;
    std::jmp_buf wayOut;
    DecodedCanvas canvas;
    bool isExhausted = false;
    boolean (*fillBuffer)(j_decompress_ptr) = nullptr;

    JpegDecoder();
    ~JpegDecoder() { jpeg_destroy_decompress(&info); }

    bool readHeader(EncodedBytes bytes);
    void readRows();
};

JpegDecoder &decoderOf(j_common_ptr info)
{
    return *static_cast<JpegDecoder *>(info->client_data);
}

void escape(j_common_ptr info)
{
    info->err->output_message(info);
    std::longjmp(decoderOf(info).wayOut, 1);
}

void limitScans(j_common_ptr info)
{
    if (info->is_decompressor &&
        reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMostScans) {
        std::fputs("ZrImage(): JPEG with too many scans\n", stderr);
        std::longjmp(decoderOf(info).wayOut, 1);
    }
}

boolean noteExhaustion(j_decompress_ptr info)
{
    JpegDecoder &decoder = decoderOf(reinterpret_cast<j_common_ptr>(info));
    decoder.isExhausted = true;
    return decoder.fillBuffer(info);
}

JpegDecoder::JpegDecoder()
{
    info.err = jpeg_std_error(&errors);
    errors.error_exit = escape;
    jpeg_create_decompress(&info);
    info.client_data = this;
    info.mem->max_memory_to_use = kMostMemory;
    progress.progress_monitor = limitScans;
    info.progress = &progress;
}

bool JpegDecoder::readHeader(EncodedBytes bytes)
{
    jpeg_mem_src(&info, bytes.data, bytes.length);
    fillBuffer = info.src->fill_input_buffer;
    info.src->fill_input_buffer = noteExhaustion;
    jpeg_read_header(&info, TRUE);
    if (!isAllowedSize(info.image_width, info.image_height)) {
        std::fputs("ZrImage(): JPEG exceeds the pixel limit\n", stderr);
        return false;
    }
    info.out_color_space = JCS_EXT_RGBA;
    // A colour space that does not convert, as CMYK, is refused here.
    jpeg_start_decompress(&info);
    return canvas.make(info.output_width, info.output_height);
}

void JpegDecoder::readRows()
{
    // Behind the end of the bytes the library goes on with grey; what it still holds of the file is
    // no more than one row of blocks.
    JDIMENSION last = info.output_height;
    while (info.output_scanline < last) {
        JSAMPROW rows[kRowsAtOnce];
        const JDIMENSION count = std::min<JDIMENSION>(kRowsAtOnce, last - info.output_scanline);
        for (JDIMENSION i = 0; i < count; ++i)
            rows[i] = canvas.row(int(info.output_scanline + i));
        jpeg_read_scanlines(&info, rows, count);
        canvas.setRowsWritten(int(info.output_scanline));
        if (isExhausted && last == info.output_height)
            last = std::min<JDIMENSION>(last, info.output_scanline +
                                                  JDIMENSION(info.max_v_samp_factor) * DCTSIZE);
    }
    if (last == info.output_height)
        canvas->setOpaque();
}

void decode(JpegDecoder &decoder, EncodedBytes bytes)
{
    if (setjmp(decoder.wayOut))
        return;
    if (decoder.readHeader(bytes))
        decoder.readRows();
}

} // namespace

std::unique_ptr<ZrCanvas> readJpeg(EncodedBytes bytes)
{
    JpegDecoder decoder;
    decode(decoder, bytes);
    return decoder.canvas.take();
}
