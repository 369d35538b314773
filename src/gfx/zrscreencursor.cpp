#include <zrfbcanvas>
#include <zrscreencursor>

#include <cstring>

using Lock = std::lock_guard<std::mutex>;

void ZrScreenCursor::resume(uint16_t *framebuffer, int width, int height, uint32_t lineLength)
{
    const Lock lock(mutex_);
    suspended_ = false;
    fbBase_ = framebuffer;
    width_ = width;
    height_ = height;
    lineLength_ = lineLength;
}

void ZrScreenCursor::suspend()
{
    const Lock lock(mutex_);
    suspended_ = true;
    flags_ &= ~Drawn;
    fbBase_ = nullptr;
}

void ZrScreenCursor::setImage(const ZrImage &image, int hotX, int hotY)
{
    const Lock lock(mutex_);
    if (suspended_ || !fbBase_)
        return;
    restore();
    flags_ &= ~Drawn;
    takeImage(image);
    const int x = posX_ + hotX_ - hotX, y = posY_ + hotY_ - hotY;
    hotX_ = int16_t(hotX);
    hotY_ = int16_t(hotY);
    save(x, y);
    draw();
}

void ZrScreenCursor::takeImage(const ZrImage &image)
{
    image_ = image;
    imageWidth_ = image_.width();
    imageHeight_ = image_.height();
    if ((underWidth_ != imageWidth_ || underHeight_ != imageHeight_) && !image_.isNull()) {
        underData_.assign(size_t(imageWidth_) * size_t(imageHeight_), 0);
        underWidth_ = imageWidth_;
        underHeight_ = imageHeight_;
    }
    pixels_ = static_cast<const ZrImage &>(image_).bits();
}

bool ZrScreenCursor::move(int x, int y, const ZrRect &guard)
{
    const Lock lock(mutex_);
    if (suspended_ || !fbBase_)
        return true;
    const int left = x - hotX_, top = y - hotY_;
    if (!guard.isEmpty() && (guard.contains(x, y) || guard.intersects(imageRect(left, top)) ||
                             (isDrawn() && guard.intersects(imageRect(posX_, posY_)))))
        return false;
    restore();
    save(left, top);
    draw();
    return true;
}

void ZrScreenCursor::repaint(const ZrRegion &region)
{
    const Lock lock(mutex_);
    if (suspended_ || !isDrawn() || !visible_)
        return;
    const ZrRegion beneath = region & ZrRegion(onScreen(imageRect(posX_, posY_)));
    if (beneath.isEmpty())
        return;
    for (const ZrRect &rect : beneath)
        saveRect(rect);
    draw();
}

void ZrScreenCursor::setVisible(bool visible)
{
    const Lock flushLock(framebufferMutex_);
    const Lock lock(mutex_);
    if (visible_ == visible)
        return;
    if (!visible && !suspended_)
        restore();
    visible_ = visible;
    if (visible && !suspended_ && isDrawn()) {
        // What lies there now may have been repainted while the cursor was hidden.
        saveRect(onScreen(imageRect(posX_, posY_)));
        draw();
    }
}

bool ZrScreenCursor::isVisible() const
{
    const Lock lock(mutex_);
    return visible_;
}

void ZrScreenCursor::setTimeout(int seconds)
{
    {
        const Lock lock(mutex_);
        timeout_ = seconds;
    }
    setVisible(seconds != 0);
}

int ZrScreenCursor::timeout() const
{
    const Lock lock(mutex_);
    return timeout_;
}

ZrRect ZrScreenCursor::rect() const
{
    const Lock lock(mutex_);
    return isDrawn() && visible_ ? imageRect(posX_, posY_) : ZrRect();
}

uint16_t *ZrScreenCursor::pixelAt(int x, int y) const
{
    return fbBase_ + y * ptrdiff_t(lineLength_ / sizeof(uint16_t)) + x;
}

// Rows are as long as the image, however much of it is on the screen.
uint16_t *ZrScreenCursor::underAt(int x, int y)
{
    return underData_.data() + (y - posY_) * ptrdiff_t(underWidth_) + (x - posX_);
}

void ZrScreenCursor::save(int x, int y)
{
    flags_ |= Drawn;
    posX_ = x;
    posY_ = y;
    if (visible_)
        saveRect(onScreen(imageRect(x, y)));
}

void ZrScreenCursor::saveRect(const ZrRect &rect)
{
    for (int y = rect.top(); y <= rect.bottom() && !rect.isEmpty(); ++y)
        std::memcpy(underAt(rect.left(), y), pixelAt(rect.left(), y),
                    size_t(rect.width()) * sizeof(uint16_t));
}

void ZrScreenCursor::draw()
{
    if (!pixels_ || !visible_)
        return;
    const ZrRect shown = onScreen(imageRect(posX_, posY_));
    for (int y = shown.top(); y <= shown.bottom(); ++y) {
        uint16_t *to = pixelAt(0, y);
        for (int x = shown.left(); x <= shown.right(); ++x) {
            const uint8_t *p = pixels_ + 4 * (ptrdiff_t(y - posY_) * imageWidth_ + (x - posX_));
            if (p[3] != 0)
                to[x] = ZrFbCanvas::word(0xff000000u | unsigned(p[0]) << 16 | unsigned(p[1]) << 8 |
                                         p[2]);
        }
    }
}

void ZrScreenCursor::restore()
{
    if (!isDrawn() || !visible_)
        return;
    const ZrRect shown = onScreen(imageRect(posX_, posY_));
    for (int y = shown.top(); y <= shown.bottom() && !shown.isEmpty(); ++y)
        std::memcpy(pixelAt(shown.left(), y), underAt(shown.left(), y),
                    size_t(shown.width()) * sizeof(uint16_t));
}
