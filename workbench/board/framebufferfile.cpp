#include "workbench/board/framebufferfile.h"

#include "link/wirewriter.h"
#include "platform/filedescriptor.h"
#include "platform/framebufferdoor.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

FramebufferFile::~FramebufferFile()
{
    if (mapping_)
        munmap(mapping_, mappingSize_);
}

bool FramebufferFile::create(const std::string &path, int width, int height)
{
    using namespace VirtualFramebuffer;
    const size_t lineLength = size_t(width) * sizeof(uint16_t);
    const size_t length = lineLength * size_t(height);
    FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    void *memory = MAP_FAILED;
    mappingSize_ = kHeaderSize + length;
    if (file.isOpen() && ftruncate(file.get(), off_t(mappingSize_)) == 0)
        memory = mmap(nullptr, mappingSize_, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
    if (memory == MAP_FAILED) {
        fprintf(stderr, "Cannot make the framebuffer %s: %s\n", path.c_str(), strerror(errno));
        return false;
    }
    mapping_ = static_cast<uint8_t *>(memory);
    pixels_ = mapping_ + kHeaderSize;
    width_ = width;
    height_ = height;
    WireWriter(mapping_, kHeaderSize)
        .bytes(0, kMagic, sizeof kMagic)
        .u32(kOffsetVersion, kVersion)
        .u32(kOffsetWidth, uint32_t(width))
        .u32(kOffsetHeight, uint32_t(height))
        .u32(kOffsetLineLength, uint32_t(lineLength))
        .u32(kOffsetLength, uint32_t(length))
        .u32(kOffsetPixels, uint32_t(kHeaderSize));
    return true;
}
