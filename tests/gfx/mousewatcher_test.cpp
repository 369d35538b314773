#include "gfx/board.h"
#include "gfx/pointerinput.h"

#include <zrimage>
#include <zrmousewatcher>
#include <zrscreencursor>

#include <condition_variable>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <mutex>

namespace
{

struct Event {
    ZrPoint position;
    int buttons, wheel;
    bool operator==(const Event &o) const
    {
        return position == o.position && buttons == o.buttons && wheel == o.wheel;
    }
};

void PrintTo(const Event &e, std::ostream *out)
{
    *out << "(" << e.position.x() << ", " << e.position.y() << ") buttons " << e.buttons
         << " wheel " << e.wheel;
}

class Recorder : public ZrMouseHandler
{
public:
    void mouseMoved(const ZrPoint &position, int buttons, int wheel) override
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        events_.push_back({position, buttons, wheel});
        changed_.notify_all();
    }
    std::vector<Event> take(size_t count, std::chrono::seconds deadline = std::chrono::seconds(10))
    {
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait_for(lock, deadline, [&] { return events_.size() >= count; });
        return std::move(events_);
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Event> events_;
};

using Packet = unsigned char[4];

TEST(MouseWatcher, PacketsMoveWithinBounds)
{
    struct Row {
        const char *what;
        unsigned char packet[4];
        std::vector<Event> expected;
    };
    constexpr unsigned char minus = 0xff;
    const Row rows[] = {
        {"right and down", {0, 10, minus, 0}, {{ZrPoint(110, 101), 0, 0}}},
        {"nothing changed", {0, 0, 0, 0}, {}},
        {"x overflow", {0x40, 100, 0, 0}, {}},
        {"y overflow", {0x80, 0, 100, 0}, {}},
        {"button only", {1, 0, 0, 0}, {{ZrPoint(110, 101), 1, 0}}},
        {"sign bits are no buttons", {0x39, 0, 0, 0}, {}},
        {"wheel only", {1, 0, 0, 1}, {{ZrPoint(110, 101), 1, 120}}},
        {"wheel back", {1, 0, 0, minus}, {{ZrPoint(110, 101), 1, -120}}},
        {"fast move", {0, 127, 0, 0}, {{ZrPoint(199, 101), 0, 0}}},
        {"held at the edge", {0, 127, 0, 0}, {}},
        {"up to the edge", {4, 0, 127, 0}, {{ZrPoint(199, 0), 4, 0}}},
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
    const std::vector<Event> expected = {{ZrPoint(0, 0), 0, 0}, {ZrPoint(800, 0), 2, 0}};
    EXPECT_EQ(recorder.take(2), expected);
}

// A pointer on a pseudo-terminal, at the place where the device's node is.
class TerminalMouse
{
public:
    explicit TerminalMouse(const std::filesystem::path &node) : node_(node)
    {
        terminal_ = posix_openpt(O_RDWR | O_NOCTTY);
        grantpt(terminal_);
        unlockpt(terminal_);
        std::filesystem::create_symlink(ptsname(terminal_), node_);
    }
    ~TerminalMouse()
    {
        std::filesystem::remove(node_);
        close(terminal_);
    }
    // Blocks until the watcher has set the device up.
    std::string readSetup()
    {
        std::string bytes(6, '\0');
        for (size_t got = 0; got < bytes.size();) {
            const ssize_t count = read(terminal_, &bytes[got], bytes.size() - got);
            if (count <= 0)
                return std::string();
            got += size_t(count);
        }
        return bytes;
    }
    void send(const std::string &bytes)
    {
        ASSERT_EQ(write(terminal_, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    }

private:
    std::filesystem::path node_;
    int terminal_;
};

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
            TerminalMouse mouse(root / "dev/psaux");
            EXPECT_EQ(mouse.readSetup(), "\xf3\xc8\xf3\x64\xf3\x50");
            mouse.send(std::string("\0\5", 2));
            mouse.send(std::string("\0\0", 2));
            const std::vector<Event> expected = {{ZrPoint(5 * round, 0), 0, 0}};
            EXPECT_EQ(recorder.take(1), expected);
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
