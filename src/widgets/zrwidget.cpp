// Creation, tree, attributes, state and the dispatch of events.
#include <zrwidget>

#include "widgets/zrdesktop.h"

#include <cstdio>
#include <zrapplication>
#include <zrcursor>
#include <zrguard>
#include <zrlayout>
#include <zrmemsurface>
#include <zrscreen>

ZrWidget::ZrWidget(ZrWidget *parent) : style_(ZrStyle::applicationStyle())
{
    windowFlags_ = parent ? Child : Window;
    ZrWidget::setParent(parent);
}

ZrWidget::~ZrWidget()
{
    // The children die in the base, when this is no window any more to be told of it.
    if (lastFocus_)
        disconnect(lastFocus_, &lastFocus_->destroyed, this, forgetLastFocus);
    leaveLayout();
    destroySurface();
    ZrDesktop::forgetWidget(this);
}

ZrWidget *ZrWidget::parentWidget() const
{
    ZrObject *owner = parent();
    return owner && owner->isWidgetType() ? static_cast<ZrWidget *>(owner) : nullptr;
}

ZrWidget *ZrWidget::window() const
{
    const ZrWidget *widget = this;
    while (ZrWidget *up = widget->parentWidget())
        widget = up;
    return const_cast<ZrWidget *>(widget);
}

bool ZrWidget::isAncestorOf(const ZrWidget *widget) const
{
    while (widget && widget != this)
        widget = widget->parentWidget();
    return widget == this;
}

void ZrWidget::setParent(ZrObject *newParent)
{
    ZrWidget *parent = static_cast<ZrWidget *>(newParent);
    if (newParent == ZrObject::parent() && newParent)
        return;
    // A layout that brings its widgets along to another owner keeps them.
    if (itemCache_ && itemCache_->holder() && itemCache_->holder()->parentWidget() != parent)
        leaveLayout();
    update(); // what it leaves
    const bool wasVisible = isVisible();
    const bool leavesStack = parent && isWindow() && wasVisible;
    if (parent) {
        destroySurface();
        windowFlags_ &= ~unsigned(Window);
        style_ = parent->style_;
        if (parent->isVisible() != isVisible()) {
            if (parent->isVisible())
                showTree(parent->size());
            else
                hideTree();
        }
        if (parent->isEnabled() != isEnabled())
            setDisabledTree(!parent->isEnabled());
    } else {
        windowFlags_ |= Window;
        style_ = ZrStyle::applicationStyle();
        hideTree();
        if (widgetFlags_ & EnabledByRequest)
            setDisabledTree(false);
    }
    ZrObject::setParent(newParent);
    if (widgetFlags_ & HolesWithin)
        noteHoles();
    styleChanged();
    if (leavesStack)
        ZrDesktop::setActiveWindow(nullptr);
    if (isVisible()) {
        activateLayouts();
        update();
    } else if (wasVisible) {
        ZrDesktop::widgetHidden(this);
    }
}

void ZrWidget::setWindowFlags(unsigned flags)
{
    windowFlags_ = parentWidget() ? flags & ~unsigned(Window) : flags | unsigned(Window);
}

bool ZrWidget::isActiveWindow() const
{
    const ZrWidget *top = window();
    return top == ZrDesktop::activeWindow() || (top->isPopup() && top->isVisible());
}

void ZrWidget::setAttribute(int attribute, bool on)
{
    if (attribute < 0 || attribute > 31) {
        std::puts("setAttribute(): Type is out of range !!!");
        return;
    }
    const std::uint32_t bit = 1u << attribute;
    attributes_ = on ? attributes_ | bit : attributes_ & ~bit;
}

bool ZrWidget::testAttribute(int attribute) const
{
    return attribute >= 0 && attribute <= 31 && (attributes_ >> attribute & 1u);
}

void ZrWidget::setFlag(int flag, bool on)
{
    widgetFlags_ = std::uint16_t(on ? widgetFlags_ | flag : widgetFlags_ & ~flag);
}

void ZrWidget::setEnabled(bool enabled)
{
    if (enabled == bool(widgetFlags_ & EnabledByRequest))
        return;
    setFlag(EnabledByRequest, enabled);
    const ZrWidget *parent = parentWidget();
    if (enabled && parent && !parent->isEnabled())
        return;
    setDisabledTree(!enabled);
    update();
}

void ZrWidget::setDisabledTree(bool disabled)
{
    // A widget disabled by its own request stays so when its parents come back.
    if (!disabled && !(widgetFlags_ & EnabledByRequest))
        return;
    setAttribute(Disabled, disabled);
    forEachChildWidget([disabled](ZrWidget &child) { child.setDisabledTree(disabled); });
}

void ZrWidget::styleChanged()
{
    const ZrWidget *parent = parentWidget();
    if (!style_.isOwn())
        style_ = parent ? parent->style_ : ZrStyle::applicationStyle();
    forEachChildWidget([](ZrWidget &child) { child.styleChanged(); });
}

void ZrWidget::setFont(const ZrFont &font, int index)
{
    style_.widgetOption().font.set(index, font);
    update();
}

ZrFont ZrWidget::font(int index) const
{
    const ZrFont *font = style_.widget().font.get(index);
    return font ? *font : ZrFont();
}

void ZrWidget::setFocus(int reason)
{
    if (!isActiveWindow() || ZrDesktop::focusWidget() == this || focusPolicy_ == NoFocus)
        return;
    if (reason == Zr::MouseFocus && focusPolicy_ == KeyFocus)
        return;
    const ZrGuard<ZrWidget> self(this);
    ZrDesktop::setFocusWidget(this, reason);
    if (self && hasFocus())
        window()->rememberFocus(this);
}

void ZrWidget::rememberFocus(ZrWidget *child)
{
    if (lastFocus_ == child)
        return;
    if (lastFocus_)
        disconnect(lastFocus_, &lastFocus_->destroyed, this, forgetLastFocus);
    lastFocus_ = child;
    connect(child, &child->destroyed, this, forgetLastFocus);
}

void ZrWidget::forgetLastFocus(ZrObject *, ZrObject *window, ZrSlotList *)
{
    static_cast<ZrWidget *>(window)->lastFocus_ = nullptr;
}

ZrWidget *ZrWidget::firstFocusable()
{
    if (lastFocus_ && isAncestorOf(lastFocus_)) // it may have moved to another window
        return lastFocus_;
    if (focusPolicy_ != NoFocus)
        return this;
    ZrWidget *found = nullptr;
    forEachChildWidget([&found](ZrWidget &child) {
        if (!found && child.isVisible() && child.isEnabled())
            found = child.firstFocusable();
    });
    return found;
}

ZrWidget *ZrWidget::childAt(const ZrPoint &point)
{
    if (!rect().contains(point))
        return nullptr;
    for (int i = children().size() - 1; i >= 0; --i) {
        if (!children().at(i)->isWidgetType())
            continue;
        auto *child = static_cast<ZrWidget *>(children().at(i));
        if (child->isHidden() || !child->isEnabled() || child->testAttribute(MouseTransparent) ||
            !child->geometry_.contains(point))
            continue;
        return child->childAt(ZrPoint(point.x() - child->pos().x(), point.y() - child->pos().y()));
    }
    return this;
}

void ZrWidget::setCursor(const ZrCursor &cursor)
{
    cursor_ = std::make_unique<ZrCursor>(cursor);
    setAttribute(OwnCursor);
    ZrDesktop::cursorChanged(this);
}

void ZrWidget::unsetCursor()
{
    cursor_.reset();
    setAttribute(OwnCursor, false);
    ZrDesktop::cursorChanged(this);
}

ZrCursor ZrWidget::cursor() const
{
    const ZrWidget *widget = this;
    while (widget && !(widget->testAttribute(OwnCursor) && widget->cursor_))
        widget = widget->parentWidget();
    return widget ? *widget->cursor_ : ZrCursor();
}

bool ZrWidget::event(ZrEvent *event)
{
    offerToLayouts(*event);
    switch (event->type()) {
    case ZrEvent::MousePress: {
        const ZrGuard<ZrWidget> self(this);
        if (focusPolicy_ & PointerFocus)
            setFocus(Zr::MouseFocus);
        if (self)
            mousePressEvent(static_cast<ZrMouseEvent *>(event));
        return true;
    }
    case ZrEvent::MouseRelease:
        mouseReleaseEvent(static_cast<ZrMouseEvent *>(event));
        return true;
    case ZrEvent::MouseDoubleClick:
        mouseDoubleClickEvent(static_cast<ZrMouseEvent *>(event));
        return true;
    case ZrEvent::MouseMove:
        mouseMoveEvent(static_cast<ZrMouseEvent *>(event));
        return true;
    case ZrEvent::Wheel:
        wheelEvent(static_cast<ZrWheelEvent *>(event));
        return true;
    case ZrEvent::Paint:
        paintEvent(static_cast<ZrPaintEvent *>(event));
        return true;
    case ZrEvent::KeyPress:
        keyPressEvent(static_cast<ZrKeyEvent *>(event));
        return true;
    case ZrEvent::KeyRelease:
        keyReleaseEvent(static_cast<ZrKeyEvent *>(event));
        return true;
    case ZrEvent::FocusIn:
        focusInEvent(static_cast<ZrFocusEvent *>(event));
        return true;
    case ZrEvent::FocusOut:
        focusOutEvent(static_cast<ZrFocusEvent *>(event));
        return true;
    case ZrEvent::Enter:
        enterEvent(event);
        return true;
    case ZrEvent::Leave:
        leaveEvent(event);
        return true;
    case ZrEvent::Show:
        showEvent(static_cast<ZrShowEvent *>(event));
        return true;
    case ZrEvent::Hide:
        hideEvent(static_cast<ZrHideEvent *>(event));
        return true;
    case ZrEvent::Resize:
        resizeEvent(static_cast<ZrResizeEvent *>(event));
        return true;
    case ZrEvent::HoverEnter:
        hoverEnterEvent(static_cast<ZrHoverEvent *>(event));
        return true;
    case ZrEvent::HoverLeave:
        hoverLeaveEvent(static_cast<ZrHoverEvent *>(event));
        return true;
    case ZrEvent::Close:
        closeEvent(static_cast<ZrCloseEvent *>(event));
        return true;
    case ZrEvent::DragEnter:
        dragEnterEvent(event);
        return true;
    case ZrEvent::DragMove:
        dragMoveEvent(event);
        return true;
    case ZrEvent::DragLeave:
        dragLeaveEvent(event);
        return true;
    case ZrEvent::Drop:
        dropEvent(event);
        return true;
    case ZrEvent::Broadcast: // the screen has another size, and texts with it
        if (itemCache_)
            itemCache_->invalidate();
        return ZrObject::event(event);
    default:
        return ZrObject::event(event);
    }
}

void ZrWidget::paintEvent(ZrPaintEvent *)
{
    style_.drawWidget(this);
}

void ZrWidget::mousePressEvent(ZrMouseEvent *event)
{
    event->ignore();
    if (isPopup() && !rect().contains(event->position()))
        close();
}

void ZrWidget::keyPressEvent(ZrKeyEvent *event)
{
    if (isPopup() && event->key() == Zr::Key_Escape) {
        event->accept();
        close();
        return;
    }
    event->ignore();
}

void ZrWidget::keyReleaseEvent(ZrKeyEvent *event)
{
    event->ignore();
}

void ZrWidget::focusInEvent(ZrFocusEvent *)
{
    setFlag(HasFocus, true);
}

void ZrWidget::focusOutEvent(ZrFocusEvent *)
{
    setFlag(HasFocus, false);
}

void ZrWidget::hoverEnterEvent(ZrHoverEvent *)
{
    setFlag(Hovered, true);
}

void ZrWidget::hoverLeaveEvent(ZrHoverEvent *)
{
    setFlag(Hovered, false);
}

void ZrWidget::closeEvent(ZrCloseEvent *event)
{
    event->accept();
}

void ZrWidget::mouseReleaseEvent(ZrMouseEvent *) {}
void ZrWidget::mouseDoubleClickEvent(ZrMouseEvent *) {}
void ZrWidget::mouseMoveEvent(ZrMouseEvent *) {}
void ZrWidget::wheelEvent(ZrWheelEvent *) {}
void ZrWidget::enterEvent(ZrEvent *) {}
void ZrWidget::leaveEvent(ZrEvent *) {}
void ZrWidget::showEvent(ZrShowEvent *) {}
void ZrWidget::hideEvent(ZrHideEvent *) {}
void ZrWidget::resizeEvent(ZrResizeEvent *) {}
void ZrWidget::dropEvent(ZrEvent *) {}
void ZrWidget::dragMoveEvent(ZrEvent *) {}
void ZrWidget::dragEnterEvent(ZrEvent *) {}
void ZrWidget::dragLeaveEvent(ZrEvent *) {}
