#include "workbench/board/board.h"
#include "workbench/board/compositor.h"
#include "workbench/board/videoplane.h"

#include "link/wirewriter.h"
#include "live/live_records.h"
#include "platform/framebufferdoor.h"
#include "platform/pointerdoor.h"
#include "support/deadline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <zrmousewatcher>

namespace
{

// Where the interface takes the pointer to be; at first as far as can be from where it is homed.
class Follower : public ZrMouseHandler
{
public:
    Follower(int width, int height)
    {
        watcher_.setBounds(0, 0, width - 1, height - 1);
        watcher_.inject(width - 1, height - 1, 0, false);
    }
    void take(const uint8_t (&packet)[4]) { watcher_.handlePacket(packet); }
    void mouseMoved(const ZrPoint &position, int nowPressed, int turned) override
    {
        x = position.x();
        y = position.y();
        buttons = nowPressed;
        wheel += turned / 120;
    }
    int x = 0, y = 0, buttons = 0, wheel = 0;

private:
    ZrMouseWatcher watcher_{this};
};

TEST(Board, ThePointerArrivesExactlyWhereTheViewerPointsFromWhereverItStood)
{
    Board board(1920, 1080);
    ASSERT_TRUE(board.create());
    board.pointer().moveTo(1900, 1000, 0); // before anybody reads
    PointerDoor door;
    ASSERT_TRUE(door.open((board.root() + "/dev/psaux").c_str()));
    const uint8_t wheel[] = {0xF3, 0xC8, 0xF3, 0x64, 0xF3, 0x50};
    ASSERT_TRUE(door.send(wheel, sizeof wheel));
    ASSERT_TRUE(eventually([&] { return board.pointer().takeCommands(); }));
    Follower follower(1920, 1080);
    const auto follow = [&](auto arrived) {
        uint8_t packet[4];
        for (int i = 0; i < 1000 && !arrived(); ++i) {
            ASSERT_EQ(door.readPacket(packet), PointerDoor::Read::Packet);
            ASSERT_EQ(packet[0] & 0xC0, 0); // no overflow
            follower.take(packet);
        }
        EXPECT_TRUE(arrived());
    };
    follow([&] { return follower.x == 1900 && follower.y == 1000; });
    struct {
        int x, y, buttons, wheel;
    } const rows[] = {{0, 0, 0, 0},     {1919, 1079, 1, 0}, {960, 540, 1, 0}, {961, 539, 0, 0},
                      {961, 539, 0, 1}, {961, 539, 0, -2},  {5, 1000, 2, 0},  {5, 1000, 0, 0}};
    int turned = 0;
    for (const auto &row : rows) {
        board.pointer().moveTo(row.x, row.y, row.buttons, row.wheel);
        turned += row.wheel;
        follow([&] {
            return follower.x == row.x && follower.y == row.y && follower.buttons == row.buttons &&
                   follower.wheel == turned;
        });
    }
}

TEST(Board, LeavesNothingBehind)
{
    std::string root;
    {
        Board board(1280, 720);
        ASSERT_TRUE(board.create());
        root = board.root();
        FramebufferDoor door;
        EXPECT_EQ(door.open((root + "/dev/fb0").c_str()), FramebufferDoor::Result::Ok);
        EXPECT_EQ(door.width(), 1280);
        door.base()[2 * (1280 * 3 + 5)] = 0x34;
        EXPECT_EQ(board.framebuffer().line(3)[5], 0x34);
    }
    EXPECT_FALSE(std::filesystem::exists(root));
    const std::string mine = testing::TempDir() + "zrboard" + std::to_string(getpid());
    std::filesystem::create_directory(mine);
    std::ofstream(mine + "/note") << "x";
    {
        Board board(1280, 720);
        ASSERT_TRUE(board.create(mine));
    }
    EXPECT_TRUE(std::filesystem::exists(mine + "/note"));
    EXPECT_FALSE(std::filesystem::exists(mine + "/dev/psaux"));
    std::filesystem::remove_all(mine);
}

TEST(Board, ThePanelCarriesLinesBothWays)
{
    Board board(1280, 720);
    ASSERT_TRUE(board.create());
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    strncpy(address.sun_path, (board.root() + "/dev/panel").c_str(), sizeof address.sun_path - 1);
    const int panel = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(connect(panel, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    board.panel().poll();
    ASSERT_TRUE(board.panel().isConnected());
    board.panel().sendLine("key 28");
    char line[16] = {};
    EXPECT_EQ(read(panel, line, sizeof line), 7);
    EXPECT_STREQ(line, "key 28\n");
    ASSERT_EQ(write(panel, "led 17 0 0\nled 1", 16), 16);
    board.panel().poll();
    EXPECT_EQ(board.panel().takeLines(), std::vector<std::string>{"led 17 0 0"});
    close(panel);
    board.panel().poll();
    EXPECT_FALSE(board.panel().isConnected());
}

TEST(Compositor, TheAlphaBitDecidesAndFiveBitsBecomeEight)
{
    const uint16_t over[] = {0x0000, 0x7FFF, 0x8000, 0xFFFF, 0x8000 | 31 << 10, 0x8000 | 16 << 5};
    const uint32_t under[] = {1, 2, 3, 4, 5, 6};
    uint32_t out[6];
    Compositor::composeLine(over, under, out, 6);
    const uint32_t expected[] = {1, 2, 0, 0xFFFFFF, 0xFF0000, 0x008400};
    EXPECT_TRUE(std::equal(out, out + 6, expected));
}

TEST(Compositor, ComposesOnlyTilesThatChangedAndMissesNone)
{
    Board board(1280, 720);
    ASSERT_TRUE(board.create());
    FramebufferDoor door;
    ASSERT_EQ(door.open((board.root() + "/dev/fb0").c_str()), FramebufferDoor::Result::Ok);
    Picture plane(1280, 720);
    Compositor compositor(1280, 720);
    EXPECT_EQ(compositor.compose(board.framebuffer(), plane, {}).size(), 20u * 45);
    EXPECT_TRUE(compositor.compose(board.framebuffer(), plane, {}).empty());
    EXPECT_FALSE(compositor.framebufferChanged());
    reinterpret_cast<uint16_t *>(door.base())[1280 * 719 + 1279] = 0xFFFF;
    const auto corner = compositor.compose(board.framebuffer(), plane, {});
    ASSERT_EQ(corner.size(), 1u);
    EXPECT_EQ(corner[0], (Area{1216, 704, 1280, 720}));
    EXPECT_TRUE(compositor.framebufferChanged());
    EXPECT_EQ(compositor.picture().line(719)[1279], 0xFFFFFFu);
    plane.fill({63, 15, 65, 17}, 0x123456);
    EXPECT_EQ(compositor.compose(board.framebuffer(), plane, {{63, 15, 65, 17}}).size(), 4u);
    EXPECT_FALSE(compositor.framebufferChanged());
    EXPECT_EQ(compositor.picture().line(16)[64], 0x123456u);
}

std::vector<uint8_t> pictureRecord(uint32_t count, const std::vector<live::WireRect> &rects)
{
    using live::PreviewRecord;
    WireWriter record(PreviewRecord::Size);
    record.u32(PreviewRecord::OffsetCount, count);
    for (size_t i = 0; i < rects.size(); ++i)
        record.u32(PreviewRecord::OffsetChannel + 4 * i, uint32_t(i))
            .u16(PreviewRecord::OffsetRect + 8 * i, rects[i].x)
            .u16(PreviewRecord::OffsetRect + 8 * i + 2, rects[i].y)
            .u16(PreviewRecord::OffsetRect + 8 * i + 4, rects[i].width)
            .u16(PreviewRecord::OffsetRect + 8 * i + 6, rects[i].height);
    return {record.data(), record.data() + record.size()};
}

TEST(VideoPlane, ShowsPicturesExactlyInTheirRectangles)
{
    VideoPlane plane(640, 360);
    const auto tiles =
        VideoPlane::decode(pictureRecord(2, {{10, 20, 100, 50}, {300, 0, 200, 360}}));
    ASSERT_EQ(tiles.size(), 2u);
    plane.setTiles(tiles);
    plane.advance(3000);
    for (int y = 0; y < 360; ++y) {
        for (int x = 0; x < 640; ++x) {
            const bool inside = (x >= 10 && x < 110 && y >= 20 && y < 70) || (x >= 300 && x < 500);
            ASSERT_EQ(plane.picture().line(y)[x] != 0, inside) << x << ' ' << y;
        }
    }
}

TEST(VideoPlane, RedrawsOnlyWhatMovedAndLeavesNoTrace)
{
    const auto tiles =
        VideoPlane::decode(pictureRecord(2, {{10, 20, 300, 150}, {320, 0, 320, 360}}));
    VideoPlane moved(640, 360), fresh(640, 360);
    moved.setTiles(tiles);
    for (unsigned moment = 0; moment < 60000; moment += 137) {
        const Picture before = moved.picture();
        const auto changed = moved.advance(moment);
        for (int y = 0; y < 360; ++y) {
            for (int x = 0; x < 640; ++x) {
                if (moved.picture().line(y)[x] == before.line(y)[x])
                    continue;
                ASSERT_TRUE(std::any_of(changed.begin(), changed.end(), [&](const Area &area) {
                    return x >= area.left && x < area.right && y >= area.top && y < area.bottom;
                }));
            }
        }
    }
    moved.advance(5000);
    fresh.setTiles(tiles);
    fresh.advance(5000);
    for (int y = 0; y < 360; ++y)
        ASSERT_TRUE(std::equal(moved.picture().line(y), moved.picture().line(y) + 640,
                               fresh.picture().line(y)));
}

TEST(VideoPlane, TakesAnyRecordWithoutHarm)
{
    VideoPlane plane(64, 64);
    plane.setTiles(VideoPlane::decode(
        pictureRecord(0xFFFFFFFF, {{65535, 65535, 65535, 65535}, {0, 0, 65535, 65535}})));
    plane.advance(1);
    EXPECT_NE(plane.picture().line(63)[63], 0u);
    EXPECT_TRUE(VideoPlane::decode({}).empty());
    EXPECT_TRUE(VideoPlane::decode({9, 0, 0, 0, 1}).empty());
}

} // namespace
