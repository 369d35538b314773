#include <zrdrag>

#include "link/startup.h"
#include "widgets/zrdesktop.h"

#include <cstdio>
#include <zrapplication>
#include <zrcursor>
#include <zrpainter>
#include <zrscreen>

namespace
{

constexpr char kDragPointer[] = "cursor-image/cursor-drag.png";

} // namespace

// --- Data and picture --------------------------------------------------------------------------

int ZrMimeData::indexOf(const ZrString &format) const
{
    for (int i = 0; i < entries_.size(); ++i) {
        if (entries_.at(i).format == format)
            return i;
    }
    return -1;
}

void ZrMimeData::setData(const ZrString &format, const ZrByteArray &bytes)
{
    const int index = indexOf(format);
    if (index >= 0)
        entries_[index].bytes = bytes;
    else
        entries_.append({format, bytes});
}

ZrByteArray ZrMimeData::data(const ZrString &format) const
{
    const int index = indexOf(format);
    return index >= 0 ? entries_.at(index).bytes : ZrByteArray();
}

ZrList<ZrString> ZrMimeData::formats() const
{
    ZrList<ZrString> names;
    for (const Entry &entry : entries_)
        names.append(entry.format);
    return names;
}

ZrShapedPixmapWidget::ZrShapedPixmapWidget()
{
    setAttribute(MouseTransparent);
    setAttribute(Translucent);
    setAttribute(DeleteOnClose, false);
}

void ZrShapedPixmapWidget::setPixmap(const ZrImage &pixmap, const ZrPoint &hotSpot)
{
    pixmap_ = pixmap;
    hotSpot_ = hotSpot;
    resize(ZrSize(pixmap.width(), pixmap.height()));
    update();
}

void ZrShapedPixmapWidget::followPointer(const ZrPoint &global)
{
    move(global - hotSpot_);
}

void ZrShapedPixmapWidget::paintEvent(ZrPaintEvent *)
{
    ZrPainter(this).drawPixmap(0, 0, pixmap_);
}

// --- One drag ----------------------------------------------------------------------------------

void ZrDrag::setMimeData(ZrMimeData *data)
{
    if (mimeData_ == data)
        return;
    delete mimeData_;
    mimeData_ = data;
    if (data)
        data->setParent(this);
}

void ZrDrag::setPixmap(const ZrImage &pixmap, const ZrPoint &hotSpot)
{
    pixmap_ = pixmap;
    hotSpot_ = hotSpot;
}

bool ZrDrag::start()
{
    if (!mimeData_) {
        std::puts("ZrDrag: No mimedata set before starting the drag");
        return false;
    }
    return ZrDragManager::instance()->start(this);
}

// --- The drag under way --------------------------------------------------------------------------

ZrDragManager *ZrDragManager::instance_ = nullptr;

ZrDragManager *ZrDragManager::instance()
{
    if (!instance_)
        new ZrDragManager; // owned by the application
    return instance_;
}

ZrDragManager::ZrDragManager() : ZrObject(ZrApplication::instance())
{
    instance_ = this;
}

ZrDragManager::~ZrDragManager()
{
    instance_ = nullptr;
}

bool ZrDragManager::start(ZrDrag *drag)
{
    if (drag_)
        return false;
    drag_ = drag;
    connect(drag, &drag->destroyed, this, zrSlot<&ZrDragManager::dragDestroyed>);
    ZrApplication::instance()->installEventFilter(this);
    if (ZrScreen *screen = ZrScreen::instance())
        screen->setCursor(ZrCursor(ZrImage(resolveResourcePath(kDragPointer)), 0, 0));
    picture_.setPixmap(drag->pixmap(), drag->hotSpot());
    picture_.followPointer(ZrDesktop::pointerPosition());
    if (!drag->pixmap().isNull()) {
        picture_.show();
        picture_.raise();
    }
    moveTo(ZrDesktop::pointerPosition());
    return true;
}

void ZrDragManager::cancel()
{
    if (!drag_)
        return;
    leaveTarget();
    finish();
}

bool ZrDragManager::eventFilter(ZrObject *watched, ZrEvent *event)
{
    if (!watched) {
        std::puts("ZrDragManager::eventFilter: No object");
        return false;
    }
    if (!drag_)
        return false;
    switch (event->type()) {
    case ZrEvent::MouseMove:
        moveTo(static_cast<ZrMouseEvent *>(event)->globalPosition());
        return true;
    case ZrEvent::MouseRelease:
        drop(static_cast<ZrMouseEvent *>(event)->globalPosition());
        // The source sees its button go up, as it saw it go down.
        return false;
    case ZrEvent::MousePress:
    case ZrEvent::MouseDoubleClick:
    case ZrEvent::Wheel:
        return true;
    case ZrEvent::KeyPress:
        if (static_cast<ZrKeyEvent *>(event)->key() == Zr::Key_Escape)
            cancel();
        return true;
    default:
        return false;
    }
}

void ZrDragManager::moveTo(const ZrPoint &global)
{
    picture_.followPointer(global);
    ZrWidget *widget = ZrDesktop::widgetAt(global);
    if (widget != target_) {
        leaveTarget();
        enter(widget, global);
    }
    if (!drag_ || !target_ || !isWanted_)
        return;
    ZrDragMoveEvent move(target_->mapFromGlobal(global), drag_->mimeData());
    ZrApplication::notify(target_, &move);
}

void ZrDragManager::enter(ZrWidget *widget, const ZrPoint &global)
{
    target_ = widget;
    isWanted_ = false;
    if (!widget)
        return;
    connect(widget, &widget->destroyed, this, zrSlot<&ZrDragManager::targetDestroyed>);
    ZrDragEnterEvent event(widget->mapFromGlobal(global), drag_->mimeData());
    ZrApplication::notify(widget, &event);
    isWanted_ = event.isAccepted();
}

void ZrDragManager::leaveTarget()
{
    if (!target_)
        return;
    ZrWidget *left = target_;
    const bool wasWanted = isWanted_;
    disconnect(left, &left->destroyed, this, zrSlot<&ZrDragManager::targetDestroyed>);
    target_ = nullptr;
    isWanted_ = false;
    if (wasWanted) {
        ZrDragLeaveEvent event;
        ZrApplication::notify(left, &event);
    }
}

void ZrDragManager::drop(const ZrPoint &global)
{
    moveTo(global);
    if (!drag_)
        return;
    if (target_ && isWanted_) {
        ZrDropEvent event(ZrEvent::Drop, target_->mapFromGlobal(global), drag_->mimeData());
        ZrApplication::notify(target_, &event);
        isWanted_ = false; // dropped, not left
        if (drag_)
            drag_->isDropped_ = true;
    }
    cancel();
}

void ZrDragManager::finish()
{
    ZrDrag *drag = drag_;
    drag_ = nullptr;
    picture_.hide();
    ZrApplication::instance()->removeEventFilter(this);
    ZrDesktop::restoreCursor();
    disconnect(drag, &drag->destroyed, this, zrSlot<&ZrDragManager::dragDestroyed>);
    emit(drag, &drag->finished);
    drag->deleteLater();
}

void ZrDragManager::targetDestroyed()
{
    target_ = nullptr;
    isWanted_ = false;
}

// The source went away with its drag: nothing is left to tell anybody.
void ZrDragManager::dragDestroyed()
{
    drag_ = nullptr;
    leaveTarget();
    picture_.hide();
    ZrDesktop::restoreCursor();
    ZrApplication::instance()->removeEventFilter(this);
}
