#include "workbench/board/pointerport.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace
{

constexpr int kLongestStep = 127;
// The commands by which a PS/2 mouse is told to send a fourth byte for its wheel.
constexpr uint8_t kWheelCommands[] = {0xF3, 0xC8, 0xF3, 0x64, 0xF3, 0x50};
constexpr uint8_t kAlwaysSet = 0x08;
constexpr uint8_t kNegativeX = 0x10;
constexpr uint8_t kNegativeY = 0x20;

} // namespace

PointerPort::~PointerPort()
{
    if (!path_.empty())
        unlink(path_.c_str());
}

bool PointerPort::create(const std::string &path)
{
    master_.reset(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    char name[64];
    if (!master_.isOpen() || grantpt(master_.get()) < 0 || unlockpt(master_.get()) < 0 ||
        ptsname_r(master_.get(), name, sizeof name) != 0) {
        fprintf(stderr, "Cannot make a terminal for the pointer: %s\n", strerror(errno));
        return false;
    }
    slave_.reset(open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
    termios terminal;
    if (tcgetattr(slave_.get(), &terminal) == 0) {
        cfmakeraw(&terminal);
        tcsetattr(slave_.get(), TCSANOW, &terminal);
    }
    unlink(path.c_str());
    if (symlink(name, path.c_str()) < 0) {
        fprintf(stderr, "Cannot make the pointer %s: %s\n", path.c_str(), strerror(errno));
        return false;
    }
    path_ = path;
    return true;
}

bool PointerPort::takeCommands()
{
    uint8_t bytes[64];
    for (ssize_t count; (count = read(master_.get(), bytes, sizeof bytes)) > 0;)
        commands_.insert(commands_.end(), bytes, bytes + count);
    const auto found = std::search(commands_.begin(), commands_.end(), std::begin(kWheelCommands),
                                   std::end(kWheelCommands));
    if (found == commands_.end()) {
        // Only the beginning of a sequence may still be completed.
        if (commands_.size() > sizeof kWheelCommands)
            commands_.erase(commands_.begin(), commands_.end() - int(sizeof kWheelCommands));
        return false;
    }
    commands_.clear();
    isRead_ = true;
    home();
    return true;
}

void PointerPort::home()
{
    const int x = x_, y = y_;
    // What nobody has read would move the pointer twice.
    output_.clear();
    tcflush(slave_.get(), TCIFLUSH);
    for (int i = 0; i <= std::max(width_, height_) / kLongestStep; ++i)
        packet(-kLongestStep, kLongestStep, 0);
    x_ = y_ = 0;
    step(x, y);
    flush();
}

void PointerPort::packet(int dx, int dy, int wheel)
{
    const auto flags = uint8_t(kAlwaysSet | (buttons_ & 7) | (dx < 0 ? kNegativeX : 0) |
                               (dy < 0 ? kNegativeY : 0));
    output_.insert(output_.end(), {flags, uint8_t(dx), uint8_t(dy), uint8_t(wheel)});
}

void PointerPort::step(int x, int y)
{
    while (x != x_ || y != y_) {
        const int dx = std::clamp(x - x_, -kLongestStep, kLongestStep);
        const int dy = std::clamp(y - y_, -kLongestStep, kLongestStep);
        x_ += dx;
        y_ += dy;
        packet(dx, -dy, 0); // the device's y axis is up
    }
}

void PointerPort::moveTo(int x, int y, int buttons, int wheel)
{
    x = std::clamp(x, 0, width_ - 1);
    y = std::clamp(y, 0, height_ - 1);
    if (!isRead_) {
        // Nobody is there to move; whoever comes is brought here.
        x_ = x;
        y_ = y;
        return;
    }
    // With the buttons as they were, so that a press happens where it was made.
    step(x, y);
    if (buttons != buttons_ || wheel != 0) {
        buttons_ = buttons;
        packet(0, 0, wheel);
    }
    flush();
}

void PointerPort::flush()
{
    while (!output_.empty()) {
        const ssize_t count = write(master_.get(), output_.data(), output_.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return;
        output_.erase(output_.begin(), output_.begin() + count);
    }
}
