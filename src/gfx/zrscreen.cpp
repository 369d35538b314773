#include <zrscreen>

#include "gfx/paintflash.h"
#include "platform/boardpath.h"
#include "platform/framebufferdoor.h"

#include <cstdio>
#include <cstring>
#include <zrcursor>
#include <zrevent>
#include <zrfbcanvas>
#include <zrimage>
#include <zrmemsurface>
#include <zrscreencursor>

namespace
{

// The region as it is, shared, when the rectangle does not cut it.
ZrRegion cutTo(const ZrRegion &region, const ZrRect &rect)
{
    return rect.contains(region.boundingRect()) ? region : region & ZrRegion(rect);
}

void addTo(ZrRegion &sum, const ZrRegion &region)
{
    if (sum.isEmpty())
        sum = region;
    else if (!region.isEmpty())
        sum += region;
}

} // namespace

ZrScreen *ZrScreen::instance_ = nullptr;

ZrScreen::ZrScreen() : framebuffer_(std::make_unique<FramebufferDoor>())
{
    if (!instance_)
        instance_ = this;
}

ZrScreen::~ZrScreen()
{
    close();
    for (ZrMemSurface *surface : surfaces_)
        delete surface;
    ZrFbCanvas::rebuildShared(nullptr);
    if (instance_ == this)
        instance_ = nullptr;
}

bool ZrScreen::isOpen() const
{
    return framebuffer_->isOpen();
}

bool ZrScreen::open(const ZrString &device)
{
    if (isOpen())
        return true;
    if (framebuffer_->open(boardPath(device.toUtf8().constData()).c_str()) !=
        FramebufferDoor::Result::Ok)
        return false;
    const FramebufferDoor &fb = *framebuffer_;
    screenRect_ = ZrRect(0, 0, fb.width(), fb.height());
    std::printf("[GUI-FRAMEWORK]: FrameBuffer length:%d(bytes), (%dx%d) \n", int(fb.length()),
                fb.width(), fb.height());
    ZrFbCanvas::setGeometry(fb.width(), fb.height(), fb.lineLength());
    ZrFbCanvas::rebuildShared(fb.base());
    // The whole display starts transparent, showing the video plane.
    std::memset(fb.base(), 0, size_t(fb.lineLength()) * fb.height());
    const bool isFirst = !cursor_;
    if (isFirst)
        cursor_ = std::make_unique<ZrScreenCursor>(mutex_);
    cursor_->resume(ZrFbCanvas::frontCanvas()->data(), fb.width(), fb.height(), fb.lineLength());
    if (isFirst) {
        std::puts("[GUI-FRAMEWORK]: using software mouse");
        setCursor(ZrCursor(ZrCursor::Arrow));
    }
    return true;
}

void ZrScreen::close()
{
    if (!isOpen())
        return;
    cursor_->suspend();
    fillRegion(screenRect_, ZrColor(0, 0, 0));
    ZrFbCanvas::rebuildShared(nullptr);
    framebuffer_->close();
    clearPending();
}

void ZrScreen::clearPending()
{
    flushPosted_ = false;
    dirtyRegion_.clear();
}

ZrList<ZrObject *> ZrScreen::topLevels() const
{
    ZrList<ZrObject *> objects;
    for (ZrMemSurface *surface : surfaces_)
        objects.append(surface->client()->surfaceObject());
    return objects;
}

// --- What is dirty ---------------------------------------------------------------------------

void ZrScreen::update(const ZrRegion &region)
{
    if (!isOpen())
        return;
    const ZrRegion shown = cutTo(region, screenRect_);
    if (shown.isEmpty())
        return;
    addTo(dirtyRegion_, shown);
    postFlush();
}

void ZrScreen::postFlush()
{
    if (flushPosted_)
        return;
    ZrApplication::postEvent(this, new ZrEvent(ZrEvent::ScreenUpdate)); // owned by the queue
    flushPosted_ = true;
}

void ZrScreen::updateSurface(ZrMemSurface *surface, const ZrRegion &region)
{
    const int index = indexOf(surface);
    if (!isOpen() || index < 0)
        return;
    ZrRegion shown = cutTo(region, screenRect_);
    for (int i = index + 1; i < surfaces_.size() && !shown.isEmpty(); ++i) {
        const ZrSurfaceClient *upper = surfaces_.at(i)->client();
        if (!upper->surfaceHidden() && !upper->surfaceTranslucent())
            shown -= upper->surfaceGeometry();
    }
    if (shown.isEmpty())
        return;
    addTo(dirtyRegion_, shown);
    postFlush();
}

void ZrScreen::updateWholeSurface(ZrMemSurface *surface)
{
    if (surface)
        updateSurface(surface, surface->rect());
}

// --- The stack -------------------------------------------------------------------------------

int ZrScreen::indexOf(const ZrMemSurface *surface) const
{
    for (int i = 0; i < surfaces_.size(); ++i) {
        if (surfaces_.at(i) == surface)
            return i;
    }
    return -1;
}

ZrMemSurface *ZrScreen::createSurface(ZrSurfaceClient *toplevel)
{
    ZrMemSurface *surface = new ZrFbMemSurface(this, toplevel); // owned by the stack
    surfaces_.append(surface);
    return surface;
}

void ZrScreen::destroySurface(ZrMemSurface *surface)
{
    const int index = indexOf(surface);
    if (index < 0)
        return;
    updateWholeSurface(surface);
    surfaces_.removeAt(index);
    delete surface;
}

void ZrScreen::raiseSurface(ZrMemSurface *surface)
{
    const int index = indexOf(surface);
    if (index < 0 || index == surfaces_.size() - 1)
        return;
    if (surface->client()->surfaceVisible()) {
        ZrRegion exposed;
        for (int i = index + 1; i < surfaces_.size(); ++i) {
            if (!surfaces_.at(i)->client()->surfaceHidden())
                exposed += surface->rect() & surfaces_.at(i)->rect();
        }
        if (!exposed.isEmpty())
            update(exposed);
    }
    surfaces_.removeAt(index);
    surfaces_.append(surface);
}

void ZrScreen::lowerSurface(ZrMemSurface *surface)
{
    const int index = indexOf(surface);
    if (index <= 0)
        return;
    if (surface->client()->surfaceVisible()) {
        ZrRegion uncovered;
        for (int i = 0; i < index; ++i) {
            if (!surfaces_.at(i)->client()->surfaceHidden())
                uncovered += surface->rect() & surfaces_.at(i)->rect();
        }
        for (int i = index + 1; i < surfaces_.size() && !uncovered.isEmpty(); ++i) {
            const ZrSurfaceClient *upper = surfaces_.at(i)->client();
            if (!upper->surfaceHidden() && !upper->surfaceTranslucent())
                uncovered -= upper->surfaceGeometry();
        }
        if (!uncovered.isEmpty())
            update(uncovered);
    }
    surfaces_.removeAt(index);
    surfaces_.prepend(surface);
}

// --- Straight to the framebuffer -------------------------------------------------------------

void ZrScreen::fillRegion(const ZrRegion &region, const ZrColor &colour)
{
    if (isOpen())
        ZrFbCanvas::frontCanvas()->fillRegion(region, colour);
}

void ZrScreen::blit(const ZrImage &image, const ZrPoint &dstPoint, const ZrRect &srcRect,
                    bool skipTransparent)
{
    const ZrRect whole(0, 0, image.width(), image.height());
    if (!isOpen() || image.isNull() || !whole.contains(srcRect))
        return;
    const ZrRect target = ZrRect(dstPoint, srcRect.size()) & screenRect_;
    const ZrPoint toSource = srcRect.topLeft() - dstPoint;
    const std::lock_guard<std::mutex> lock(mutex_);
    setGuard(target);
    uint16_t *framebuffer = ZrFbCanvas::frontCanvas()->data();
    for (int y = target.top(); y <= target.bottom(); ++y) {
        uint16_t *to = framebuffer + y * ptrdiff_t(framebuffer_->lineLength() / sizeof(uint16_t));
        const uint8_t *from = image.bits() + 4 * ptrdiff_t(y + toSource.y()) * image.width();
        for (int x = target.left(); x <= target.right(); ++x) {
            const uint8_t *p = from + 4 * (x + toSource.x());
            if (p[3] == 0 && skipTransparent)
                continue;
            to[x] = ZrFbCanvas::word(unsigned(p[3]) << 24 | unsigned(p[0]) << 16 |
                                     unsigned(p[1]) << 8 | p[2]);
        }
    }
    cursor_->repaint(target);
    setGuard(ZrRect());
}

// --- The pointer -----------------------------------------------------------------------------

void ZrScreen::setGuard(const ZrRect &rect)
{
    const std::lock_guard<std::mutex> lock(guardMutex_);
    guardRect_ = rect.isEmpty()
                     ? ZrRect()
                     : rect.adjusted(-kGuardMargin, -kGuardMargin, kGuardMargin, kGuardMargin);
}

void ZrScreen::moveCursor(int x, int y)
{
    if (!cursor_)
        return;
    if (mutex_.try_lock()) {
        cursor_->move(x, y);
        mutex_.unlock();
        return;
    }
    {
        // A flush is busy. While this is held it cannot turn to another rectangle.
        const std::lock_guard<std::mutex> guardLock(guardMutex_);
        if (cursor_->move(x, y, guardRect_))
            return;
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    cursor_->move(x, y);
}

void ZrScreen::setCursor(const ZrImage &image, int hotX, int hotY)
{
    if (cursor_)
        cursor_->setImage(image, hotX, hotY);
}

void ZrScreen::setCursor(const ZrCursor &cursor)
{
    setCursor(cursor.image(), cursor.hotSpot().x(), cursor.hotSpot().y());
}

void ZrScreen::setCursorTimeout(int seconds)
{
    if (cursor_)
        cursor_->setTimeout(seconds);
}

// --- Flush -----------------------------------------------------------------------------------

void ZrScreen::setGuiEnabled(bool enabled)
{
    if (guiEnabled_ == enabled)
        return;
    guiEnabled_ = enabled;
    markAllDirty();
}

bool ZrScreen::event(ZrEvent *event)
{
    if (event->type() == ZrEvent::ScreenUpdate)
        flush();
    return true;
}

void ZrScreen::showBlack()
{
    const std::lock_guard<std::mutex> lock(mutex_);
    setGuard(screenRect_);
    fillRegion(screenRect_, ZrColor(0, 0, 0));
    cursor_->repaint(screenRect_);
    setGuard(ZrRect());
}

void ZrScreen::flushNow()
{
    if (flushPosted_)
        flush();
}

void ZrScreen::flush()
{
    if (isOpen() && !guiEnabled_)
        showBlack();
    if (!isOpen() || !guiEnabled_) {
        clearPending();
        return;
    }
    const ZrRegion unpainted = paintSurfaces();
    PaintFlash::show(*this, dirtyRegion_);
    for (const ZrRect &rect : dirtyRegion_)
        present(rect);
    ZrRegion clear = visibleHoles();
    addTo(clear, unpainted);
    if (!clear.isEmpty())
        punch(clear);
    clearPending();
}

// Bottom first, into the back buffer. Returns what of the dirty region no surface painted.
ZrRegion ZrScreen::paintSurfaces()
{
    ZrRegion remaining = dirtyRegion_;
    for (int i = 0; i < surfaces_.size(); ++i) {
        ZrMemSurface *surface = surfaces_.at(i);
        if (surface->client()->surfaceHidden())
            continue;
        // What the surface shows itself, and what it must paint for a translucent one above it.
        ZrRegion solid = cutTo(remaining, surface->rect());
        if (!solid.isEmpty())
            surface->client()->subtractHoles(solid);
        ZrRegion overlaid;
        for (int above = i + 1; above < surfaces_.size() && !solid.isEmpty(); ++above) {
            const ZrSurfaceClient *upper = surfaces_.at(above)->client();
            if (upper->surfaceHidden())
                continue;
            const ZrRegion cover = solid & ZrRegion(upper->surfaceGeometry());
            solid -= cover;
            if (upper->surfaceTranslucent())
                overlaid += cover;
        }
        addTo(overlaid, solid);
        if (overlaid.isEmpty())
            continue;
        surface->flush(overlaid);
        surface->endFlush();
        if (solid == remaining)
            remaining.clear();
        else
            remaining -= solid;
    }
    return remaining;
}

void ZrScreen::present(const ZrRect &rect)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    setGuard(rect);
    ZrFbCanvas::copyBackToFront(rect);
    // The guard falls behind the cursor's repaint: until then what lies under the cursor is older
    // than what was copied, and no move may put it back.
    cursor_->repaint(rect);
    setGuard(ZrRect());
}

// The holes in the dirty region that no higher surface covers, hidden and translucent ones
// included.
ZrRegion ZrScreen::visibleHoles() const
{
    ZrRegion holes;
    for (int i = 0; i < surfaces_.size(); ++i) {
        ZrRegion own;
        surfaces_.at(i)->client()->addHoles(own);
        if (own.isEmpty())
            continue;
        own &= surfaces_.at(i)->rect();
        own &= dirtyRegion_;
        for (int above = i + 1; above < surfaces_.size() && !own.isEmpty(); ++above)
            own -= surfaces_.at(above)->rect();
        addTo(holes, own);
    }
    return holes;
}

void ZrScreen::punch(const ZrRegion &region)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    setGuard(region.boundingRect());
    fillRegion(region, ZrColor(0, 0, 0, 0));
    cursor_->repaint(region);
    setGuard(ZrRect());
}
