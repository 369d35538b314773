#include "gfx/board.h"
#include "gfx/pointerinput.h"
#include "platform/terminal.h"

#include <zrimage>
#include <zrmousewatcher>
#include <zrscreencursor>

#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <sstream>

namespace
{

// "x, y: buttons wheel"
using Events = std::vector<std::string>;

class Recorder : public ZrMouseHandler
{
public:
    void mouseMoved(const ZrPoint &position, int buttons, int wheel) override
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        std::ostringstream event;
        event << position.x() << ", " << position.y() << ": " << buttons << ' ' << wheel;
        events_.push_back(event.str());
        changed_.notify_all();
    }
    Events take(size_t count, std::chrono::seconds deadline = std::chrono::seconds(10))
    {
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait_for(lock, deadline, [&] { return events_.size() >= count; });
        return std::move(events_);
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    Events events_;
};

TEST(MouseWatcher, PacketsMoveWithinBounds)
{
    struct Row {
        const char *what;
        unsigned char packet[4];
        Events expected;
    };
    constexpr unsigned char minus = 0xff;
    const Row rows[] = {
        {"right and down", {0, 10, minus, 0}, {"110, 101: 0 0"}},
        {"nothing changed", {0, 0, 0, 0}, {}},
        {"x overflow", {0x40, 100, 0, 0}, {}},
        {"y overflow", {0x80, 0, 100, 0}, {}},
        {"button only", {1, 0, 0, 0}, {"110, 101: 1 0"}},
        {"sign bits are no buttons", {0x39, 0, 0, 0}, {}},
        {"wheel only", {1, 0, 0, 1}, {"110, 101: 1 120"}},
        {"wheel back", {1, 0, 0, minus}, {"110, 101: 1 -120"}},
        {"fast move", {0, 127, 0, 0}, {"199, 101: 0 0"}},
        {"held at the edge", {0, 127, 0, 0}, {}},
        {"up to the edge", {4, 0, 127, 0}, {"199, 0: 4 0"}},
    };
    Recorder recorder;
    ZrMouseWatcher watcher(&recorder);
    watcher.setBounds(0, 0, 199, 149);
    watcher.inject(100, 100, 0, false);
    recorder.take(1);
    for (const Row &row : rows) {
        watcher.handlePacket(row.packet);
        EXPECT_EQ(recorder.take(0), row.expected) << row.what;
    }
}

TEST(MouseWatcher, SpeedBendsTheMovement)
{
    // dx 20: 20 + (400 >> shift), backwards likewise.
    const int expected[10] = {20, 20, 21, 23, 26, 32, 45, 70, 120, 220};
    Recorder recorder;
    ZrMouseWatcher watcher(&recorder);
    watcher.setBounds(0, 0, 1000, 1000);
    for (int speed = -1; speed <= 10; ++speed) {
        const int step = expected[std::min(std::max(speed, 0), 9)];
        watcher.setSpeed(speed);
        watcher.inject(500, 500, 0, false);
        watcher.handlePacket({0, 20, 0, 0});
        EXPECT_EQ(watcher.position(), ZrPoint(500 + step, 500)) << speed;
        watcher.inject(500, 500, 0, false);
        watcher.handlePacket({0, 256 - 20, 256 - 20, 0});
        EXPECT_EQ(watcher.position(), ZrPoint(500 - step, 500 + step)) << speed;
    }
}

TEST(MouseWatcher, InjectedPositionsTellWhenForced)
{
    Recorder recorder;
    ZrMouseWatcher watcher(&recorder);
    watcher.inject(0, 0, 0, false);
    watcher.inject(0, 0, 0, true);
    watcher.inject(5000, -3, 2, false);
    EXPECT_EQ(recorder.take(2), (Events{"0, 0: 0 0", "800, 0: 2 0"}));
}

TEST(MouseWatcher, FindsADeviceThatComesAndGoes)
{
    const std::filesystem::path root = testing::TempDir() + "zr_board_" + std::to_string(getpid());
    std::filesystem::create_directories(root / "dev");
    setenv("ZR_ROOT", root.c_str(), 1);
    Recorder recorder;
    testing::internal::CaptureStdout();
    {
        ZrMouseWatcher watcher(&recorder);
        watcher.start();
        for (int round = 1; round <= 2; ++round) {
            Terminal mouse;
            std::filesystem::create_symlink(mouse.path(), root / "dev/psaux");
            EXPECT_EQ(mouse.receive(6), "\xf3\xc8\xf3\x64\xf3\x50"); // it is set up now
            mouse.send(std::string("\0\5", 2));
            mouse.send(std::string("\0\0", 2));
            EXPECT_EQ(recorder.take(1), Events{std::to_string(5 * round) + ", 0: 0 0"});
            std::filesystem::remove(root / "dev/psaux");
        }
    }
    unsetenv("ZR_ROOT");
    std::filesystem::remove_all(root);
    const std::string printed = testing::internal::GetCapturedStdout();
    const std::string line = "Mouse device /dev/psaux open failed !!!\n";
    EXPECT_TRUE(printed.empty() || printed == line) << printed;
}

TEST(PointerInput, HidesTheRestingPointerAndShowsTheMovingOne)
{
    Board board;
    PointerInput pointer;
    pointer.setBounds(board.screen->rect());
    board.screen->setCursor(ZrImage(4, 4, ZrColor(255, 255, 255)), 0, 0);
    pointer.inject(10, 10, 0, false);
    ZrScreenCursor &cursor = *board.screen->cursor();
    EXPECT_EQ(cursor.rect(), ZrRect(10, 10, 4, 4));
    cursor.setTimeout(3);
    for (int second = 1; second <= 2; ++second)
        pointer.idleTick(second);
    EXPECT_TRUE(cursor.isVisible());
    pointer.idleTick(3);
    EXPECT_FALSE(cursor.isVisible());
    pointer.inject(12, 12, 0, false);
    EXPECT_TRUE(cursor.isVisible());
    EXPECT_EQ(board.pixel(12, 12), kWhite);
    pointer.idleTick(5);
    EXPECT_TRUE(cursor.isVisible());
    pointer.idleTick(6);
    EXPECT_FALSE(cursor.isVisible());
    EXPECT_EQ(board.pixel(12, 12), kClear);
}

} // namespace
