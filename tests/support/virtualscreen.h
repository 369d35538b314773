// A screen for tests: a virtual framebuffer in a temporary folder, an application on it, and a
// clock of the test's own. Destroy everything that lives on the application first.
#pragma once

#include "core/zrtimercore.h"
#include "platform/framebufferdoor.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>
#include <zrapplication>
#include <zrrect>

namespace zrtest
{

// Nanoseconds; the timer thread reads it too.
inline std::atomic<std::int64_t> &fakeTime()
{
    static std::atomic<std::int64_t> time{1000000000};
    return time;
}

// Writes a virtual framebuffer whose pixels are all set. A line length of 0 is that of the width.
inline void makeFramebufferFile(const std::string &path, int width, int height, int lineLength = 0)
{
    const std::size_t line = std::size_t(lineLength ? lineLength : width * 2);
    std::vector<unsigned char> file(VirtualFramebuffer::kHeaderSize);
    const auto put = [&file](std::size_t offset, std::size_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            file[offset + i] = std::uint8_t(value >> (8 * i));
    };
    for (std::size_t i = 0; i < 4; ++i)
        file[i] = std::uint8_t(VirtualFramebuffer::kMagic[i]);
    put(VirtualFramebuffer::kOffsetVersion, VirtualFramebuffer::kVersion);
    put(VirtualFramebuffer::kOffsetWidth, std::size_t(width));
    put(VirtualFramebuffer::kOffsetHeight, std::size_t(height));
    put(VirtualFramebuffer::kOffsetLineLength, line);
    put(VirtualFramebuffer::kOffsetLength, line * std::size_t(height));
    put(VirtualFramebuffer::kOffsetPixels, VirtualFramebuffer::kHeaderSize);
    file.resize(file.size() + line * std::size_t(height), 0xff);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char *>(file.data()), std::streamsize(file.size()));
}

class VirtualScreen
{
public:
    static constexpr char device[] = "/dev/fb0";

    // The parts of the application must have been installed by the caller.
    VirtualScreen(int width, int height, int lineLength = 0)
        : root_(makeRoot()), width_(width), height_(height)
    {
        makeFramebufferFile(framebufferPath(), width, height, lineLength);
        setenv("ZR_ROOT", root_.c_str(), 1);
        ZrTimerCore::setTestClock([] { return fakeTime().load(); });
        application_ = std::make_unique<ZrApplication>(0, nullptr);
        pixels_.open(framebufferPath().c_str());
    }
    ~VirtualScreen()
    {
        application_.reset();
        ZrTimerCore::setTestClock(nullptr);
        unsetenv("ZR_ROOT");
        std::filesystem::remove_all(root_);
    }
    VirtualScreen(const VirtualScreen &) = delete;
    VirtualScreen &operator=(const VirtualScreen &) = delete;

    ZrApplication &application() { return *application_; }
    int width() const { return width_; }
    int height() const { return height_; }
    std::string framebufferPath() const { return root_ + device; }
    // Another mode, for the next time that the screen opens the device.
    void replaceFramebuffer(int width, int height)
    {
        width_ = width;
        height_ = height;
        makeFramebufferFile(framebufferPath(), width, height);
        pixels_.close();
        pixels_.open(framebufferPath().c_str());
    }
    // Handles what is queued, flushes included.
    void settle() { application_->processPending(); }
    void pass(int ms)
    {
        fakeTime() += std::int64_t(ms) * 1000000;
        application_->timerCore()->activate();
        settle();
    }
    std::uint16_t pixel(int x, int y) const
    {
        const std::uint8_t *at = pixels_.base() + y * int(pixels_.lineLength()) + x * 2;
        return std::uint16_t(at[0] | at[1] << 8);
    }
    bool isOpaque(int x, int y) const { return pixel(x, y) & 0x8000; }
    std::vector<std::uint16_t> picture() const
    {
        const std::size_t width = std::size_t(width_);
        std::vector<std::uint16_t> all(width * std::size_t(height_));
        for (std::size_t y = 0; y < std::size_t(height_); ++y)
            std::memcpy(&all[y * width], pixels_.base() + y * pixels_.lineLength(), width * 2);
        return all;
    }
    // Pointer data as the mouse thread would post it.
    void pointer(int x, int y, int buttons = 0, int wheel = 0)
    {
        ZrApplication::postEvent(application_.get(),
                                 new ZrRawMouseEvent(ZrPoint(x, y), buttons, wheel));
        settle();
    }
    void click(int x, int y)
    {
        pointer(x, y);
        pointer(x, y, 1);
        pointer(x, y);
    }

private:
    static std::string makeRoot()
    {
        std::string path = std::filesystem::temp_directory_path() / "zrtest-XXXXXX";
        if (!mkdtemp(path.data()))
            std::abort();
        std::filesystem::create_directories(path + "/dev");
        return path;
    }

    std::string root_;
    int width_;
    int height_;
    std::unique_ptr<ZrApplication> application_;
    FramebufferDoor pixels_;
};

} // namespace zrtest
