#include <zrmousewatcher>

#include "platform/boardpath.h"
#include "platform/pointerdoor.h"

#include <algorithm>
#include <cstdio>

namespace
{

// Turns on the wheel, with packets of four bytes: sample rates 200, 100, 80.
constexpr uint8_t kWheelSequence[] = {0xf3, 0xc8, 0xf3, 0x64, 0xf3, 0x50};
constexpr int kOverflowBits = 0xc0;
constexpr int kButtonBits = 0x07;
constexpr int kWheelNotch = 120;
constexpr int kRetryMs = 1000;
constexpr int kAccelShifts[] = {14, 10, 8, 7, 6, 5, 4, 3, 2, 1};
constexpr int kFastest = int(std::size(kAccelShifts)) - 1;

int accelerated(int delta, int shift)
{
    const int extra = delta * delta >> shift;
    return delta < 1 ? delta - extra : delta + extra;
}

} // namespace

ZrMouseWatcher::ZrMouseWatcher(ZrMouseHandler *target, const char *path)
    : target_(target), path_(path), door_(std::make_unique<PointerDoor>())
{
}

ZrMouseWatcher::~ZrMouseWatcher()
{
    stop();
}

void ZrMouseWatcher::setBounds(int minX, int minY, int maxX, int maxY)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    minX_ = minX;
    minY_ = minY;
    maxX_ = std::max(minX, maxX);
    maxY_ = std::max(minY, maxY);
}

void ZrMouseWatcher::setBounds(const ZrRect &bounds)
{
    setBounds(bounds.left(), bounds.top(), bounds.right(), bounds.bottom());
}

void ZrMouseWatcher::setSpeed(int speed)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    accelShift_ = kAccelShifts[std::clamp(speed, 0, kFastest)];
}

ZrPoint ZrMouseWatcher::position() const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return ZrPoint(curX_, curY_);
}

ZrMouseWatcher::News ZrMouseWatcher::moveTo(int x, int y, int buttons)
{
    x = std::clamp(x, minX_, maxX_);
    y = std::clamp(y, minY_, maxY_);
    const bool isChanged = x != curX_ || y != curY_ || buttons != buttons_;
    curX_ = x;
    curY_ = y;
    buttons_ = buttons;
    return {ZrPoint(x, y), buttons, isChanged};
}

void ZrMouseWatcher::handlePacket(const unsigned char (&packet)[packetSize])
{
    if (packet[0] & kOverflowBits)
        return;
    const int dx = static_cast<signed char>(packet[1]), dy = static_cast<signed char>(packet[2]);
    const int wheel = static_cast<signed char>(packet[3]) * kWheelNotch;
    News news;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        // The device's y axis points up.
        news = moveTo(curX_ + accelerated(dx, accelShift_), curY_ - accelerated(dy, accelShift_),
                      packet[0] & kButtonBits);
    }
    if (news.isChanged || wheel != 0)
        target_->mouseMoved(news.position, news.buttons, wheel);
}

void ZrMouseWatcher::inject(int x, int y, int buttons, bool force)
{
    News news;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        news = moveTo(x, y, buttons);
    }
    if (news.isChanged || force)
        target_->mouseMoved(news.position, news.buttons, 0);
}

void ZrMouseWatcher::run()
{
    bool isNamed = false;
    while (!stopRequested()) {
        if (!watchDevice() && !isNamed) {
            std::printf("Mouse device %s open failed !!!\n", path_.c_str());
            isNamed = true;
        }
        waitForDevice();
    }
}

// Until the device goes away. False when it could not be opened.
bool ZrMouseWatcher::watchDevice()
{
    if (!door_->open(boardPath(path_.c_str()).c_str()))
        return false;
    door_->send(kWheelSequence, sizeof kWheelSequence);
    for (;;) {
        unsigned char packet[packetSize];
        const PointerDoor::Read result = door_->readPacket(packet);
        if (result == PointerDoor::Read::Packet)
            handlePacket(packet);
        else if (result != PointerDoor::Read::Nothing)
            break;
    }
    door_->close();
    return true;
}

void ZrMouseWatcher::waitForDevice()
{
    retry_.lock();
    if (!stopRequested())
        retry_.wait(kRetryMs);
    retry_.unlock();
}

void ZrMouseWatcher::wake()
{
    door_->interrupt();
    retry_.lock();
    retry_.wakeAll();
    retry_.unlock();
}
