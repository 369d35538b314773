// The door to the pointer: whatever delivers PS/2 packets.
#pragma once

#include "platform/filedescriptor.h"

#include <cstddef>
#include <cstdint>

// One open pointer device. One thread reads; any thread may interrupt it.
class PointerDoor
{
public:
    static constexpr size_t kPacketSize = 4;
    enum class Read {
        Packet,      // packet holds four bytes
        Nothing,     // bytes that are no packet (a device's answer to a command); read again
        Ended,       // the device is gone, or its end was reached
        Interrupted, // interrupt() was called
    };

    PointerDoor();
    PointerDoor(const PointerDoor &) = delete;
    PointerDoor &operator=(const PointerDoor &) = delete;

    // Opens the node (a path as it stands, see boardPath) read-write, and read-only where that is
    // refused. A terminal is put into raw mode. False when neither works; errno tells why.
    bool open(const char *path);
    void close();
    bool isOpen() const { return descriptor_.isOpen(); }

    // Writes commands to the device. False when it takes none, as one opened read-only.
    bool send(const uint8_t *bytes, size_t count);
    // Waits for the next packet.
    Read readPacket(uint8_t (&packet)[kPacketSize]);
    // Makes the waiting read, or else the next, return Interrupted, and every one behind it. Any
    // thread; the only way to end a reader whose device is silent.
    void interrupt();

private:
    FileDescriptor descriptor_;
    FileDescriptor interrupt_;
    bool keepsPackets_ = false; // the device hands out one packet a read, never parts of two
    uint8_t pending_[kPacketSize] = {};
    size_t pendingCount_ = 0;
};
