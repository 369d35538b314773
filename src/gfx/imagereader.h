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
// Transparent pixels of a size that is allowed; null without memory.
std::unique_ptr<ZrCanvas> makeCanvas(uint32_t width, uint32_t height);
