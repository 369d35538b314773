#include "gfx/pointerinput.h"

#include <zrgraphics>
#include <zrscreen>
#include <zrscreencursor>

void PointerInput::start(const ZrRect &bounds)
{
    setBounds(bounds);
    watcher_.start();
}

void PointerInput::setBounds(const ZrRect &bounds)
{
    if (!bounds.isEmpty())
        watcher_.setBounds(bounds);
}

void PointerInput::idleTick(int seconds)
{
    tick_ = seconds;
    ZrScreen *screen = ZrScreen::instance();
    ZrScreenCursor *cursor = screen ? screen->cursor() : nullptr;
    const int timeout = cursor ? cursor->timeout() : 0;
    if (timeout <= 0 || isIdle_ || seconds - lastMoveTick_ < timeout)
        return;
    // In this order: an event in between leaves it to the next one to show the pointer.
    cursor->hide();
    isIdle_ = true;
}

void PointerInput::inject(int x, int y, int buttons, bool force)
{
    watcher_.inject(x, y, buttons, force);
}

void PointerInput::mouseMoved(const ZrPoint &position, int buttons, int wheel)
{
    lastMoveTick_ = tick_.load();
    if (ZrScreen *screen = ZrScreen::instance()) {
        screen->moveCursor(position.x(), position.y());
        if (isIdle_.exchange(false) && screen->cursor() && screen->cursor()->timeout() != 0)
            screen->cursor()->show();
    }
    ZrApplication *application = ZrApplication::instance();
    ZrApplication::postEvent(application, new ZrRawMouseEvent(position, buttons, wheel));
}

void zrInstallGraphics()
{
    ZrApplicationParts &parts = ZrApplication::parts();
    parts.makeDisplay = []() -> std::unique_ptr<ZrDisplay> { return std::make_unique<ZrScreen>(); };
    parts.makePointer = []() -> std::unique_ptr<ZrPointerInput> {
        return std::make_unique<PointerInput>();
    };
}
