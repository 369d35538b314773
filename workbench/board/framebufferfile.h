// The framebuffer file of the virtual board, seen from the side of the monitor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

class FramebufferFile
{
public:
    FramebufferFile() = default;
    ~FramebufferFile();
    FramebufferFile(const FramebufferFile &) = delete;
    FramebufferFile &operator=(const FramebufferFile &) = delete;

    // Makes the file, all pixels clear, and maps it. False, with a line on standard error.
    bool create(const std::string &path, int width, int height);

    int width() const { return width_; }
    int height() const { return height_; }
    // A line of A1R5G5B5 pixels, as the interface left it at this moment.
    const uint16_t *line(int y) const
    {
        return reinterpret_cast<const uint16_t *>(pixels_) + size_t(y) * size_t(width_);
    }

private:
    uint8_t *mapping_ = nullptr;
    size_t mappingSize_ = 0;
    const uint8_t *pixels_ = nullptr;
    int width_ = 0;
    int height_ = 0;
};
