#include "platform/boardpath.h"
#include "platform/framebufferdoor.h"
#include "platform/pointerdoor.h"
#include "platform/terminal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>
#include <unistd.h>
#include <vector>

namespace
{

TEST(BoardPath, PutsTheRootBeforeAbsolutePathsOnly)
{
    struct {
        const char *root, *path, *whole;
    } const rows[] = {
        {nullptr, "/dev/fb0", "/dev/fb0"},          {"", "/dev/fb0", "/dev/fb0"},
        {"./board", "/dev/fb0", "./board/dev/fb0"}, {"./board/", "/dev/fb0", "./board/dev/fb0"},
        {"./board", "style/x.ini", "style/x.ini"},  {"./board", "", ""},
    };
    for (const auto &row : rows) {
        row.root ? setenv("ZR_ROOT", row.root, 1) : unsetenv("ZR_ROOT");
        EXPECT_EQ(boardPath(row.path), row.whole);
    }
    unsetenv("ZR_ROOT");
}

struct Header {
    const char *magic = "ZRFB";
    uint32_t version = 1, width = 64, height = 32, lineLength = 128, length = 4096, pixels = 4096;
};

class VirtualFramebufferTest : public testing::Test
{
protected:
    ~VirtualFramebufferTest() override { std::filesystem::remove(path_); }

    void write(const Header &header, size_t fileSize)
    {
        std::vector<char> bytes(fileSize);
        const uint32_t words[] = {header.version,    header.width,  header.height,
                                  header.lineLength, header.length, header.pixels};
        if (fileSize >= 28) {
            std::copy_n(header.magic, 4, bytes.begin());
            std::copy_n(reinterpret_cast<const char *>(words), 24, bytes.begin() + 4);
        }
        std::ofstream(path_, std::ios::binary).write(bytes.data(), std::streamsize(fileSize));
    }

    std::string path_ = testing::TempDir() + "zrfb" + std::to_string(getpid());
};

TEST_F(VirtualFramebufferTest, MapsThePixelsBehindTheHeader)
{
    write({}, 8192);
    FramebufferDoor door;
    ASSERT_EQ(door.open(path_.c_str()), FramebufferDoor::Result::Ok);
    EXPECT_EQ(door.width(), 64);
    EXPECT_EQ(door.height(), 32);
    EXPECT_EQ(door.lineLength(), 128u);
    EXPECT_EQ(door.length(), 4096u);
    door.base()[0] = 0x5A;
    door.base()[4095] = 0xA5;
    door.close();
    EXPECT_EQ(door.base(), nullptr);
    std::ifstream file(path_, std::ios::binary);
    file.seekg(4096);
    EXPECT_EQ(file.get(), 0x5A);
    file.seekg(8191);
    EXPECT_EQ(file.get(), 0xA5);
}

TEST_F(VirtualFramebufferTest, RefusesWhatCannotBeMappedSafelyAndKeepsNoDescriptor)
{
    Header foreign, future, wide, tall, noPixels, odd;
    foreign.magic = "PPM6";
    future.version = 2;
    wide.width = 65;
    tall.height = 33;
    noPixels.width = 0;
    odd.pixels = 4097;
    struct {
        Header header;
        size_t fileSize;
        const char *printed;
    } const rows[] = {
        {{}, 0, "FBIOGET_FSCREENINFO failed"},
        {{}, 4095, "FBIOGET_FSCREENINFO failed"},
        {foreign, 8192, "FBIOGET_FSCREENINFO failed"},
        {future, 8192, "FBIOGET_FSCREENINFO failed"},
        {{}, 8191, "FBIOGET_VSCREENINFO failed"},
        {wide, 8192, "FBIOGET_VSCREENINFO failed"},
        {tall, 8192, "FBIOGET_VSCREENINFO failed"},
        {noPixels, 8192, "FBIOGET_VSCREENINFO failed"},
        {odd, 8193, "FBIOGET_VSCREENINFO failed"},
    };
    const int lowest = dup(0);
    ::close(lowest);
    for (const auto &row : rows) {
        write(row.header, row.fileSize);
        FramebufferDoor door;
        testing::internal::CaptureStderr();
        EXPECT_EQ(door.open(path_.c_str()), FramebufferDoor::Result::Refused);
        EXPECT_EQ(testing::internal::GetCapturedStderr().find(row.printed), 0u);
        EXPECT_FALSE(door.isOpen());
    }
    const int next = dup(0);
    EXPECT_EQ(next, lowest);
    ::close(next);
}

TEST(FramebufferDoor, TellsAMissingNodeFromADeviceThatIsNoFramebuffer)
{
    FramebufferDoor door;
    EXPECT_EQ(door.open("/nonexistent/fb0"), FramebufferDoor::Result::NotOpened);
    testing::internal::CaptureStderr();
    EXPECT_EQ(door.open("/dev/null"), FramebufferDoor::Result::Refused);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "FBIOGET_FSCREENINFO failed: Inappropriate ioctl for device\n");
}

TEST(PointerDoor, DeliversRawPacketsFromATerminalHoweverTheyAreCut)
{
    Terminal terminal;
    PointerDoor door;
    ASSERT_TRUE(door.open(terminal.path().c_str()));
    // Bytes that a cooked terminal would swallow or translate: CR, interrupt, end of file, XOFF.
    terminal.send("\x0D\x03\x04\x13\x08\x01");
    uint8_t packet[4];
    ASSERT_EQ(door.readPacket(packet), PointerDoor::Read::Packet);
    EXPECT_EQ((std::vector<uint8_t>(packet, packet + 4)), (std::vector<uint8_t>{13, 3, 4, 19}));
    std::thread rest([&] { terminal.send(std::string("\xFF\0", 2)); });
    ASSERT_EQ(door.readPacket(packet), PointerDoor::Read::Packet);
    rest.join();
    EXPECT_EQ((std::vector<uint8_t>(packet, packet + 4)), (std::vector<uint8_t>{8, 1, 255, 0}));
    terminal.hangUp();
    EXPECT_EQ(door.readPacket(packet), PointerDoor::Read::Ended);
}

TEST(PointerDoor, AnInterruptEndsAWaitingReaderForGood)
{
    Terminal terminal;
    PointerDoor door;
    ASSERT_TRUE(door.open(terminal.path().c_str()));
    std::thread stopper([&] { door.interrupt(); });
    uint8_t packet[4];
    EXPECT_EQ(door.readPacket(packet), PointerDoor::Read::Interrupted);
    stopper.join();
    EXPECT_EQ(door.readPacket(packet), PointerDoor::Read::Interrupted);
}

TEST(PointerDoor, FallsBackToReadOnlyAndReportsAMissingDevice)
{
    PointerDoor door;
    EXPECT_FALSE(door.open("/nonexistent/psaux"));
    // A folder opens for reading alone, whoever asks.
    EXPECT_TRUE(door.open(testing::TempDir().c_str()));
    const uint8_t byte = 0xF3;
    EXPECT_FALSE(door.send(&byte, 1));
    uint8_t packet[4];
    EXPECT_EQ(door.readPacket(packet), PointerDoor::Read::Ended);
}

} // namespace
