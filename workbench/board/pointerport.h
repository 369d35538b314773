// The pointer device of the virtual board: a pseudo-terminal that speaks PS/2.
#pragma once

#include "platform/filedescriptor.h"

#include <cstdint>
#include <string>
#include <vector>

// Not thread-safe.
//
// A PS/2 stream only tells movements, of at most 127 a packet, with y upward. The interface turns a
// movement d into d + sign(d) * (d * d >> 14) and keeps the sum inside the screen. 127 * 127 is
// below 2^14, so every movement that fits a packet arrives as it is, and absolute positions can be
// sent as sums of movements, once both sides agree on where the pointer stands. They do after a
// movement longer than the screen to the upper left corner, where the interface holds it. A user
// who sets a higher pointer speed in the interface makes it run ahead of the viewer's.
class PointerPort
{
public:
    PointerPort(int width, int height) : width_(width), height_(height) {}
    ~PointerPort();

    // Makes the terminal and a link to it at the path. False, with a line on standard error.
    bool create(const std::string &path);
    // For poll(): readable when the interface has sent commands.
    int descriptor() const { return master_.get(); }
    // Reads what the interface has written. True once it has asked for the wheel, that is when it
    // has just opened the device; its pointer is then in step again.
    bool takeCommands();
    // Whether the interface reads the pointer.
    bool isRead() const { return isRead_; }

    // Buttons: 1 left, 2 right, 4 middle. Positions are kept inside the screen. What the terminal
    // does not take is sent with the next call.
    void moveTo(int x, int y, int buttons, int wheel = 0);
    void flush();
    bool isEmpty() const { return output_.empty(); }

private:
    void packet(int dx, int dy, int wheel);
    void step(int x, int y);
    void home();

    const int width_;
    const int height_;
    std::string path_;
    FileDescriptor master_;
    FileDescriptor slave_; // kept open, so that the interface may come and go
    std::vector<uint8_t> output_;
    std::vector<uint8_t> commands_;
    int x_ = 0;
    int y_ = 0;
    int buttons_ = 0;
    bool isRead_ = false;
};
