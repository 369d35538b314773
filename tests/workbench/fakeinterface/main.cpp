// The least that can stand in for the interface: it boots, opens a hole with a frame around it,
// asks for one picture in it, and paints a dot where the pointer is. With ZR_FAKE_FAULT=die it ends
// behind the boot with status 7; with ZR_FAKE_FAULT=hang it never shows anything.
#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/deviceparams.h"
#include "link/startup.h"
#include "link/wirewriter.h"
#include "live/live_records.h"
#include "platform/boardpath.h"
#include "platform/framebufferdoor.h"
#include "platform/pointerdoor.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace
{

constexpr uint16_t kOpaque = 0x8000;
constexpr uint16_t kFrame = kOpaque | 31 << 10;
constexpr uint16_t kDot = kOpaque | 31;

void paint(const FramebufferDoor &screen)
{
    for (int y = 0; y < screen.height(); ++y) {
        auto *line = reinterpret_cast<uint16_t *>(screen.base() + size_t(y) * screen.lineLength());
        const bool isFrame = y < 100 || y >= screen.height() - 100;
        for (int x = 0; x < screen.width(); ++x)
            line[x] = isFrame || x < 100 || x >= screen.width() - 100 ? kFrame : 0;
    }
}

void askForPicture(const FramebufferDoor &screen)
{
    using live::PreviewRecord;
    WireWriter record(PreviewRecord::Size);
    record.u32(PreviewRecord::OffsetCount, 1)
        .u32(PreviewRecord::OffsetChannel, 2)
        .u16(PreviewRecord::OffsetRect, 100)
        .u16(PreviewRecord::OffsetRect + 2, 100)
        .u16(PreviewRecord::OffsetRect + 4, uint16_t(screen.width() - 200))
        .u16(PreviewRecord::OffsetRect + 6, uint16_t(screen.height() - 200))
        .u16(PreviewRecord::OffsetCrop + 4, live::CropWidth)
        .u16(PreviewRecord::OffsetCrop + 6, live::CropHeight)
        .u32(PreviewRecord::OffsetCellCount, 1);
    appSend(AppMain::liveView, AppLiveView::setPictures, record.data(), uint32_t(record.size()));
}

void followPointer(const FramebufferDoor &screen, PointerDoor &pointer)
{
    int x = 0, y = 0;
    uint8_t packet[PointerDoor::kPacketSize];
    for (;;) {
        switch (pointer.readPacket(packet)) {
        case PointerDoor::Read::Packet:
            x = std::clamp(x + int8_t(packet[1]), 0, screen.width() - 1);
            y = std::clamp(y - int8_t(packet[2]), 0, screen.height() - 1);
            if (packet[0] & 1)
                reinterpret_cast<uint16_t *>(screen.base() + size_t(y) * screen.lineLength())[x] =
                    kDot;
            break;
        case PointerDoor::Read::Nothing:
            break;
        default:
            for (;;)
                pause();
        }
    }
}

} // namespace

int main()
{
    readResourcePath();
    lineBufferOutput();
    appLinkStart(nullptr);
    announceInterface();
    configureApp();
    waitForApp();
    const char *fault = getenv("ZR_FAKE_FAULT");
    if (fault && strcmp(fault, "die") == 0)
        _exit(7);
    FramebufferDoor screen;
    const ZrByteArray node = framebufferNode().toUtf8();
    if (screen.open(boardPath(node.constData()).c_str()) != FramebufferDoor::Result::Ok)
        return 1;
    WireWriter id(4);
    id.u32(0, uint32_t(getpid()));
    appSend(AppMain::system, AppSystem::uiProcessId, id.data(), 4);
    if (!fault) {
        paint(screen);
        askForPicture(screen);
    }
    PointerDoor pointer;
    pointer.open(boardPath("/dev/psaux").c_str());
    const uint8_t wheel[] = {0xF3, 0xC8, 0xF3, 0x64, 0xF3, 0x50};
    pointer.send(wheel, sizeof wheel);
    followPointer(screen, pointer);
}
