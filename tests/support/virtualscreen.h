// A screen for tests: a virtual framebuffer in a temporary folder, an application on it, and a
// clock of the test's own. Destroy everything that lives on the application first.
#pragma once

#include "core/zrtimercore.h"
#include "platform/framebufferdoor.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
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

// Writes the header and clear pixels of a virtual framebuffer.
inline void makeFramebufferFile(const std::string &path, int width, int height)
{
    std::vector<unsigned char> file(VirtualFramebuffer::kHeaderSize +
                                    std::size_t(width) * std::size_t(height) * 2);
    const auto put = [&file](std::size_t offset, std::uint32_t value) {
        for (int i = 0; i < 4; ++i)
            file[offset + std::size_t(i)] = std::uint8_t(value >> (8 * i));
    };
    for (std::size_t i = 0; i < 4; ++i)
        file[i] = std::uint8_t(VirtualFramebuffer::kMagic[i]);
    put(VirtualFramebuffer::kOffsetVersion, VirtualFramebuffer::kVersion);
    put(VirtualFramebuffer::kOffsetWidth, std::uint32_t(width));
    put(VirtualFramebuffer::kOffsetHeight, std::uint32_t(height));
    put(VirtualFramebuffer::kOffsetLineLength, std::uint32_t(width) * 2);
    put(VirtualFramebuffer::kOffsetLength, std::uint32_t(width) * std::uint32_t(height) * 2);
    put(VirtualFramebuffer::kOffsetPixels, VirtualFramebuffer::kHeaderSize);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char *>(file.data()), std::streamsize(file.size()));
}

class VirtualScreen
{
public:
    // The parts of the application must have been installed by the caller.
    VirtualScreen(int width, int height) : root_(makeRoot()), width_(width), height_(height)
    {
        makeFramebufferFile(root_ + "/dev/fb0", width, height);
        setenv("ZR_ROOT", root_.c_str(), 1);
        ZrTimerCore::setTestClock([] { return fakeTime().load(); });
        application_ = std::make_unique<ZrApplication>(0, nullptr);
        pixels_.open((root_ + "/dev/fb0").c_str());
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
        std::vector<std::uint16_t> all;
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x)
                all.push_back(pixel(x, y));
        }
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
