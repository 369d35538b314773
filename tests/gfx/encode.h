// Picture files made for tests.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct PngKind {
    int colourType; // PNG_COLOR_TYPE_...
    int bits;
    bool isInterlaced;
    bool hasTransparency; // a tRNS chunk: the first palette entry, or the colour of sample 0
};

// A small picture whose samples run through their range, and its pixels as a reader must give them:
// red, green, blue, alpha.
struct EncodedPicture {
    std::string file;
    int width, height;
    std::vector<uint32_t> pixels;
};
EncodedPicture encodePng(const PngKind &kind);

// A picture file of straight pixels.
std::string encodePng(const std::vector<uint32_t> &pixels, int width, int height);

enum class JpegColours { Grey, Rgb, Cmyk };
enum class JpegScans { Baseline, Progressive };
// Every pixel of one value.
std::string encodeJpeg(JpegColours colours, JpegScans scans, int width, int height, uint8_t value);
