#include "platform/framebufferdoor.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/fb.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

uint32_t littleWord(const uint8_t *bytes)
{
    return uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8 | uint32_t(bytes[2]) << 16 |
           uint32_t(bytes[3]) << 24;
}

bool refuse(const char *step)
{
    perror(step);
    return false;
}

bool refuse(const char *step, int error)
{
    errno = error;
    return refuse(step);
}

constexpr char kFixedInfo[] = "FBIOGET_FSCREENINFO failed";
constexpr char kVariableInfo[] = "FBIOGET_VSCREENINFO failed";
constexpr char kPutInfo[] = "FBIOPUT_VSCREENINFO failed";
constexpr char kMap[] = "mmap framebuffer failed";

} // namespace

FramebufferDoor::Result FramebufferDoor::open(const char *path)
{
    close();
    descriptor_.reset(::open(path, O_RDWR | O_CLOEXEC));
    if (!descriptor_.isOpen())
        return Result::NotOpened;
    struct stat node;
    const bool isFile = fstat(descriptor_.get(), &node) == 0 && S_ISREG(node.st_mode);
    if (!(isFile ? readFile() : readDevice())) {
        close();
        return Result::Refused;
    }
    return Result::Ok;
}

void FramebufferDoor::close()
{
    if (mapping_)
        munmap(mapping_, mappingSize_);
    mapping_ = nullptr;
    base_ = nullptr;
    mappingSize_ = 0;
    length_ = lineLength_ = 0;
    width_ = height_ = 0;
    descriptor_.reset();
}

bool FramebufferDoor::readDevice()
{
    fb_fix_screeninfo fixed = {};
    if (ioctl(descriptor_.get(), FBIOGET_FSCREENINFO, &fixed) < 0)
        return refuse(kFixedInfo);
    fb_var_screeninfo variable = {};
    if (ioctl(descriptor_.get(), FBIOGET_VSCREENINFO, &variable) < 0)
        return refuse(kVariableInfo);
    length_ = fixed.smem_len;
    lineLength_ = fixed.line_length;
    width_ = uint16_t(variable.xres);
    height_ = uint16_t(variable.yres);
    if (!pictureFits())
        return refuse(kVariableInfo, EINVAL);
    // The visible plane always stands at offset zero: there is no panning and no page flipping.
    variable.xoffset = 0;
    variable.yoffset = 0;
    if (ioctl(descriptor_.get(), FBIOPUT_VSCREENINFO, &variable) < 0)
        return refuse(kPutInfo);
    return map(0);
}

bool FramebufferDoor::readFile()
{
    using namespace VirtualFramebuffer;
    uint8_t header[kHeaderSize];
    struct stat file;
    if (pread(descriptor_.get(), header, sizeof header, 0) != ssize_t(sizeof header) ||
        memcmp(header, kMagic, sizeof kMagic) != 0 ||
        littleWord(header + kOffsetVersion) != kVersion || fstat(descriptor_.get(), &file) < 0)
        return refuse(kFixedInfo, EINVAL);
    length_ = littleWord(header + kOffsetLength);
    lineLength_ = littleWord(header + kOffsetLineLength);
    width_ = uint16_t(littleWord(header + kOffsetWidth));
    height_ = uint16_t(littleWord(header + kOffsetHeight));
    const size_t offset = littleWord(header + kOffsetPixels);
    // Touching a mapping behind the file's end would stop the process, so the file must hold it
    // all.
    if (!pictureFits() || offset < kHeaderSize || offset % sizeof(uint16_t) != 0 ||
        offset + uint64_t(length_) > uint64_t(file.st_size))
        return refuse(kVariableInfo, EINVAL);
    return map(offset);
}

bool FramebufferDoor::pictureFits()
{
    return width_ > 0 && height_ > 0 && lineLength_ >= width_ * sizeof(uint16_t) &&
           uint64_t(lineLength_) * height_ <= length_;
}

bool FramebufferDoor::map(size_t offset)
{
    mappingSize_ = offset + length_;
    void *memory =
        mmap(nullptr, mappingSize_, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor_.get(), 0);
    if (memory == MAP_FAILED)
        return refuse(kMap);
    mapping_ = memory;
    base_ = static_cast<uint8_t *>(memory) + offset;
    return true;
}
