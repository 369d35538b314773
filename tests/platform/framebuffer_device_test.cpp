// The kernel's kind of framebuffer: a character device whose shape is asked for by calls. The
// device here is one of zeros that can be mapped; the calls are answered by the test.
#include "platform/framebufferdoor.h"

#include <cerrno>
#include <cstdarg>
#include <functional>
#include <linux/fb.h>

namespace
{

struct Device {
    fb_fix_screeninfo fixed = {};
    fb_var_screeninfo variable = {};
    unsigned long failing = 0; // the call that fails
    int putXOffset = -1;
    int putYOffset = -1;
};
Device *device = nullptr; // null: the kernel answers

int answer(unsigned long call, void *argument)
{
    if (call == device->failing) {
        errno = EIO;
        return -1;
    }
    if (call == FBIOGET_FSCREENINFO)
        *static_cast<fb_fix_screeninfo *>(argument) = device->fixed;
    if (call == FBIOGET_VSCREENINFO)
        *static_cast<fb_var_screeninfo *>(argument) = device->variable;
    if (call == FBIOPUT_VSCREENINFO) {
        const auto *put = static_cast<const fb_var_screeninfo *>(argument);
        device->putXOffset = int(put->xoffset);
        device->putYOffset = int(put->yoffset);
    }
    return 0;
}

class FramebufferDevice : public testing::Test
{
protected:
    FramebufferDevice()
    {
        shape.fixed.smem_len = 256 * 64 * 2; // two screens: the second would be for flipping
        shape.fixed.line_length = 256;
        shape.variable.xres = 100;
        shape.variable.yres = 64;
        shape.variable.yoffset = 64;
        shape.variable.xoffset = 3;
        device = &shape;
    }
    ~FramebufferDevice() override { device = nullptr; }

    Device shape;
    FramebufferDoor door;
};

} // namespace

// The name is the linker's; variadic as the call that it stands for.
extern "C" int __real_ioctl(int descriptor, unsigned long call, ...);
extern "C" int __wrap_ioctl(int descriptor, unsigned long call, ...)
{
    va_list arguments;
    va_start(arguments, call);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    return device ? answer(call, argument) : __real_ioctl(descriptor, call, argument);
}

TEST_F(FramebufferDevice, IsMappedWholeAndShowsItsFirstPlane)
{
    ASSERT_EQ(door.open("/dev/zero"), FramebufferDoor::Result::Ok);
    EXPECT_EQ(door.width(), 100);
    EXPECT_EQ(door.height(), 64);
    EXPECT_EQ(door.lineLength(), 256u);
    EXPECT_EQ(door.length(), 256u * 64 * 2);
    EXPECT_EQ(shape.putXOffset, 0);
    EXPECT_EQ(shape.putYOffset, 0);
    door.base()[door.length() - 1] = 0xA5;
    EXPECT_EQ(door.base()[door.length() - 1], 0xA5);
}

TEST_F(FramebufferDevice, IsRefusedWithALineForWhatFailed)
{
    const struct {
        const char *what;
        std::function<void(Device &)> how;
        const char *printed;
    } rows[] = {
        {"no fixed data", [](Device &d) { d.failing = FBIOGET_FSCREENINFO; },
         "FBIOGET_FSCREENINFO failed: Input/output error\n"},
        {"no shape", [](Device &d) { d.failing = FBIOGET_VSCREENINFO; },
         "FBIOGET_VSCREENINFO failed: Input/output error\n"},
        {"cannot be set", [](Device &d) { d.failing = FBIOPUT_VSCREENINFO; },
         "FBIOPUT_VSCREENINFO failed: Input/output error\n"},
        {"lines too short for the width", [](Device &d) { d.fixed.line_length = 198; },
         "FBIOGET_VSCREENINFO failed: Invalid argument\n"},
        {"less memory than lines", [](Device &d) { d.fixed.smem_len = 256 * 64 - 1; },
         "FBIOGET_VSCREENINFO failed: Invalid argument\n"},
    };
    for (const auto &row : rows) {
        Device bad = shape;
        row.how(bad);
        device = &bad;
        testing::internal::CaptureStderr();
        EXPECT_EQ(door.open("/dev/zero"), FramebufferDoor::Result::Refused) << row.what;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), row.printed) << row.what;
        EXPECT_FALSE(door.isOpen());
    }
}
