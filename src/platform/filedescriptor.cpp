#include "platform/filedescriptor.h"

#include <cerrno>
#include <unistd.h>

void FileDescriptor::reset(int descriptor)
{
    if (descriptor_ >= 0 && descriptor_ != descriptor) {
        const int kept = errno;
        close(descriptor_);
        errno = kept;
    }
    descriptor_ = descriptor;
}
