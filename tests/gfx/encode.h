// Picture files made for tests.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A picture file of straight pixels.
std::string encodePng(const std::vector<uint32_t> &pixels, int width, int height);

enum class JpegColours { Grey, Rgb };
enum class JpegScans { Baseline, Progressive };
// Every pixel of one value.
std::string encodeJpeg(JpegColours colours, JpegScans scans, int width, int height, uint8_t value);
