#include "workbench/board/pngfile.h"

#include <cstdio>
#include <cstring>
#include <png.h>
#include <unistd.h>

bool writePng(const Picture &picture, const std::string &path)
{
    std::vector<uint8_t> bytes(size_t(picture.width()) * size_t(picture.height()) * 3);
    uint8_t *out = bytes.data();
    for (int y = 0; y < picture.height(); ++y) {
        const uint32_t *line = picture.line(y);
        for (int x = 0; x < picture.width(); ++x, out += 3) {
            out[0] = uint8_t(line[x] >> 16);
            out[1] = uint8_t(line[x] >> 8);
            out[2] = uint8_t(line[x]);
        }
    }
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = png_uint_32(picture.width());
    image.height = png_uint_32(picture.height());
    image.format = PNG_FORMAT_RGB;
    const std::string beside = path + ".part";
    const bool written =
        png_image_write_to_file(&image, beside.c_str(), 0, bytes.data(), 0, nullptr) != 0;
    if (written && rename(beside.c_str(), path.c_str()) == 0)
        return true;
    fprintf(stderr, "Cannot write %s: %s\n", path.c_str(),
            written ? "it cannot be replaced" : image.message);
    unlink(beside.c_str());
    return false;
}
