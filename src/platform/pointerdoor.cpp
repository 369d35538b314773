#include "platform/pointerdoor.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

PointerDoor::PointerDoor() : interrupt_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

bool PointerDoor::open(const char *path)
{
    close();
    descriptor_.reset(::open(path, O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!descriptor_.isOpen())
        descriptor_.reset(::open(path, O_RDONLY | O_NOCTTY | O_CLOEXEC));
    if (!descriptor_.isOpen())
        return false;
    termios terminal;
    const bool isTerminal = tcgetattr(descriptor_.get(), &terminal) == 0;
    if (isTerminal) {
        cfmakeraw(&terminal);
        tcsetattr(descriptor_.get(), TCSANOW, &terminal);
    }
    struct stat node;
    keepsPackets_ = !isTerminal && fstat(descriptor_.get(), &node) == 0 && S_ISCHR(node.st_mode);
    return true;
}

void PointerDoor::close()
{
    descriptor_.reset();
    pendingCount_ = 0;
}

bool PointerDoor::send(const uint8_t *bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = write(descriptor_.get(), bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        count -= size_t(written);
    }
    return true;
}

PointerDoor::Read PointerDoor::readPacket(uint8_t (&packet)[kPacketSize])
{
    for (;;) {
        pollfd doors[2] = {{interrupt_.get(), POLLIN, 0}, {descriptor_.get(), POLLIN, 0}};
        if (poll(doors, 2, -1) < 0) {
            if (errno == EINTR)
                continue;
            return Read::Ended;
        }
        if (doors[0].revents)
            return Read::Interrupted;
        const ssize_t count =
            read(descriptor_.get(), pending_ + pendingCount_, kPacketSize - pendingCount_);
        if (count < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (count <= 0)
            return Read::Ended;
        pendingCount_ += size_t(count);
        if (pendingCount_ == kPacketSize)
            break;
        // A mouse device answers a command with single bytes. Counted into a packet they would
        // shift every packet behind them; a stream, on the other hand, may be cut anywhere.
        if (keepsPackets_) {
            pendingCount_ = 0;
            return Read::Nothing;
        }
    }
    memcpy(packet, pending_, kPacketSize);
    pendingCount_ = 0;
    return Read::Packet;
}

void PointerDoor::interrupt()
{
    const uint64_t one = 1;
    // Only a full counter can refuse this, and then the reader is already told.
    [[maybe_unused]] const ssize_t written = write(interrupt_.get(), &one, sizeof one);
}
