#include "workbench/vncview.h"

#include "workbench/board/panelkeys.h"

#include <cstdio>
#include <netinet/in.h>
#include <rfb/rfb.h>

struct VncView::Screen {
    rfbScreenInfoPtr info = nullptr;
    std::function<void(const Mouse &)> onMouse;
    KeyLine onKey;
    int lastMask = 0;

    static void pointerMoved(int mask, int x, int y, rfbClientPtr client);
    static void keyChanged(rfbBool down, rfbKeySym symbol, rfbClientPtr client);
};

namespace
{

// Bits of a VNC pointer event. The wheel arrives as presses of two further buttons.
constexpr int kLeft = 1, kMiddle = 2, kRight = 4, kWheelUp = 8, kWheelDown = 16;

void ignoreLine(const char *, ...) {}

int buttonsOf(int mask)
{
    return (mask & kLeft ? 1 : 0) | (mask & kRight ? 2 : 0) | (mask & kMiddle ? 4 : 0);
}

// The pixels are 0x00RRGGBB words.
void setFormat(rfbPixelFormat *format)
{
    format->redShift = 16;
    format->greenShift = 8;
    format->blueShift = 0;
}

} // namespace

VncView::VncView() = default;

VncView::~VncView()
{
    stop();
}

void VncView::Screen::pointerMoved(int mask, int x, int y, rfbClientPtr client)
{
    auto *screen = static_cast<Screen *>(client->screen->screenData);
    const int pressed = mask & ~screen->lastMask;
    screen->lastMask = mask;
    const int wheel = (pressed & kWheelDown ? 1 : 0) - (pressed & kWheelUp ? 1 : 0);
    screen->onMouse({x, y, buttonsOf(mask), wheel});
    rfbDefaultPtrAddEvent(mask, x, y, client);
}

void VncView::Screen::keyChanged(rfbBool down, rfbKeySym symbol, rfbClientPtr client)
{
    const auto *screen = static_cast<Screen *>(client->screen->screenData);
    const std::string line = down ? panelLineOfKey(std::uint32_t(symbol)) : std::string();
    if (!line.empty() && screen->onKey)
        screen->onKey(line);
}

bool VncView::start(Picture *picture, int port, const std::function<void(const Mouse &)> &onMouse)
{
    rfbLog = ignoreLine;
    rfbErr = ignoreLine;
    rfbScreenInfoPtr info =
        rfbGetScreen(nullptr, nullptr, picture->width(), picture->height(), 8, 3, 4);
    if (!info)
        return false;
    screen_ = std::make_unique<Screen>();
    screen_->info = info;
    screen_->onMouse = onMouse;
    screen_->onKey = onKey_;
    setFormat(&info->serverFormat);
    info->frameBuffer = reinterpret_cast<char *>(picture->line(0));
    info->desktopName = "Recorder";
    info->alwaysShared = TRUE;
    info->cursor = nullptr; // the interface paints its own
    info->screenData = screen_.get();
    info->ptrAddEvent = Screen::pointerMoved;
    info->kbdAddEvent = Screen::keyChanged;
    info->port = port;
    info->listenInterface = htonl(INADDR_LOOPBACK);
    // Left at its default the library listens on every IPv6 address of the machine.
    info->ipv6port = 0;
    // Its own HTTP server stays off: without an IPv6 socket it aborts on the first request.
    info->httpDir = nullptr;
    info->httpPort = 0;
    info->http6Port = 0;
    rfbInitServer(info);
    if (info->listenSock >= 0)
        return true;
    stop();
    return false;
}

bool VncView::startNear(Picture *picture, int port, int tries,
                        const std::function<void(const Mouse &)> &onMouse)
{
    for (int next = port; next < port + tries && next <= 65535; ++next) {
        if (start(picture, next, onMouse))
            return true;
    }
    fprintf(stderr, "Cannot serve VNC: no port from %d on is free\n", port);
    return false;
}

void VncView::stop()
{
    if (!screen_)
        return;
    rfbShutdownServer(screen_->info, TRUE);
    screen_->info->frameBuffer = nullptr;
    rfbScreenCleanup(screen_->info);
    screen_.reset();
}

int VncView::port() const
{
    return screen_ ? screen_->info->port : 0;
}

void VncView::markChanged(const std::vector<Area> &areas)
{
    for (const Area &area : areas)
        rfbMarkRectAsModified(screen_->info, area.left, area.top, area.right, area.bottom);
}

void VncView::run(int milliseconds)
{
    rfbProcessEvents(screen_->info, milliseconds * 1000L);
}
