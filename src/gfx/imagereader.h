// Decoders from bytes to a canvas. Each checks the header's size before it allocates, prints what
// its library has to say on standard error, and returns null when there is no picture; one that
// breaks off behind its header comes with what was read, the rest transparent.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

class ZrCanvas;

struct EncodedBytes {
    const uint8_t *data;
    size_t length;
};

// By the first bytes. Anything unknown, or shorter than eight bytes, is no picture.
std::unique_ptr<ZrCanvas> readImage(EncodedBytes bytes);

std::unique_ptr<ZrCanvas> readPng(EncodedBytes bytes);
std::unique_ptr<ZrCanvas> readJpeg(EncodedBytes bytes);
std::unique_ptr<ZrCanvas> readBmp(EncodedBytes bytes);

bool isAllowedSize(uint64_t width, uint64_t height);

// The canvas that a decoder writes from the top. What it does not reach is transparent in the end,
// yet pixels that are written anyway are not cleared first, and a large claim costs no memory until
// rows come.
class DecodedCanvas
{
public:
    // False without memory.
    bool make(uint32_t width, uint32_t height);
    ZrCanvas *operator->() const { return canvas_.get(); }
    explicit operator bool() const { return canvas_ != nullptr; }
    uint8_t *row(int y) const;
    // All rows above this one have been written.
    void setRowsWritten(int rows) { rowsWritten_ = rows; }
    // For a decoder that does not go from the top.
    void clear();
    std::unique_ptr<ZrCanvas> take();

private:
    std::unique_ptr<ZrCanvas> canvas_;
    int rowsWritten_ = 0;
    bool isClear_ = false;
};
