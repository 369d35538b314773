// The door to the framebuffer: a Linux framebuffer device, or a virtual framebuffer in a file.
#pragma once

#include "platform/filedescriptor.h"

#include <cstddef>
#include <cstdint>

// The file form of a framebuffer: a header of 4096 bytes, little-endian, then the pixels.
namespace VirtualFramebuffer
{
constexpr char kMagic[4] = {'Z', 'R', 'F', 'B'};
constexpr uint32_t kVersion = 1;
constexpr size_t kHeaderSize = 4096;
// Byte offsets of the 32-bit fields of the header; the rest of it is zero.
constexpr size_t kOffsetVersion = 4;
constexpr size_t kOffsetWidth = 8;
constexpr size_t kOffsetHeight = 12;
constexpr size_t kOffsetLineLength = 16;
constexpr size_t kOffsetLength = 20;
constexpr size_t kOffsetPixels = 24;
} // namespace VirtualFramebuffer

// One open framebuffer, mapped shared. Not thread-safe; the mapped memory is anybody's who has it.
class FramebufferDoor
{
public:
    enum class Result {
        Ok,
        NotOpened, // the node itself could not be opened; errno tells why and nothing was printed
        Refused,   // a later step failed; its cause went to standard error
    };

    FramebufferDoor() = default;
    ~FramebufferDoor() { close(); }
    FramebufferDoor(const FramebufferDoor &) = delete;
    FramebufferDoor &operator=(const FramebufferDoor &) = delete;

    // Opens the node (a path as it stands, see boardPath) and maps its memory. Steps and their
    // failures, each reported through perror: "FBIOGET_FSCREENINFO failed", "FBIOGET_VSCREENINFO
    // failed", "FBIOPUT_VSCREENINFO failed", "mmap framebuffer failed". A virtual framebuffer with
    // a foreign or short header fails at the first, one whose picture does not fit its memory at
    // the second. After a failure the door is closed and holds no descriptor.
    Result open(const char *path);
    // Unmaps and closes. Does nothing on a closed door.
    void close();

    bool isOpen() const { return descriptor_.isOpen(); }
    int descriptor() const { return descriptor_.get(); }
    // First pixel of the picture; length() bytes from here are mapped.
    uint8_t *base() const { return base_; }
    uint32_t length() const { return length_; }
    // Visible size in pixels, each cut to 16 bits; bytes from one line to the next. At least
    // lineLength() * height() bytes are mapped, and a line holds width() pixels of 16 bits.
    uint16_t width() const { return width_; }
    uint16_t height() const { return height_; }
    uint32_t lineLength() const { return lineLength_; }

private:
    bool readDevice();
    bool readFile();
    bool pictureFits();
    bool map(size_t offset);

    FileDescriptor descriptor_;
    uint8_t *base_ = nullptr;
    void *mapping_ = nullptr;
    size_t mappingSize_ = 0;
    uint32_t length_ = 0;
    uint32_t lineLength_ = 0;
    uint16_t width_ = 0;
    uint16_t height_ = 0;
};
