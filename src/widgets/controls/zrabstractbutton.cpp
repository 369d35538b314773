#include <zrabstractbutton>

#include <zrbuttongroup>
#include <zrguard>
#include <zrtimer>

ZrAbstractButton::ZrAbstractButton(ZrWidget *parent) : ZrAbstractButton(ZrString(), parent) {}

ZrAbstractButton::ZrAbstractButton(const ZrString &text, ZrWidget *parent)
    : ZrFrame(parent), text_(text)
{
    setFocusPolicy(PointerFocus);
    setAttribute(Hover);
}

ZrAbstractButton::~ZrAbstractButton()
{
    if (group_)
        group_->removeButton(this);
}

// --- what it shows ---

void ZrAbstractButton::setText(const ZrString &text)
{
    if (text == text_)
        return;
    text_ = text;
    update();
}

void ZrAbstractButton::setIcon(const ZrPixmap &icon)
{
    icon_ = icon;
    update();
}

ZrSize ZrAbstractButton::iconSize() const
{
    return iconSize_.width() < 0 ? ZrSize(icon_.width(), icon_.height()) : iconSize_;
}

void ZrAbstractButton::setIconSize(const ZrSize &size)
{
    if (size == iconSize_)
        return;
    iconSize_ = size;
    update();
}

void ZrAbstractButton::setDown(bool down)
{
    if (down == down_)
        return;
    down_ = down;
    repaintPress();
}

void ZrAbstractButton::repaintPress()
{
    if (!blockRepaint_)
        update();
}

// --- being checked ---

void ZrAbstractButton::setCheckable(bool checkable)
{
    if (checkable == checkable_)
        return;
    if (!checkable && checked_)
        storeChecked(false);
    checkable_ = checkable;
}

void ZrAbstractButton::setAutoExclusive(bool exclusive)
{
    autoExclusive_ = exclusive;
}

// Whether only the checking of another button may uncheck this one.
bool ZrAbstractButton::holdsExclusiveCheck() const
{
    if (!checked_)
        return false;
    return group_ ? group_->isExclusive() && group_->checkedButton() == this : autoExclusive_;
}

void ZrAbstractButton::setChecked(bool checked)
{
    if (!checkable_ || checked == checked_)
        return;
    if (!checked && holdsExclusiveCheck())
        return;
    storeChecked(checked);
}

void ZrAbstractButton::storeChecked(bool checked)
{
    checked_ = checked;
    if (group_)
        group_->checkedChanged(this);
    else if (checked && autoExclusive_)
        uncheckSiblings();
    update();
    checkStateSet();
}

void ZrAbstractButton::uncheckSiblings()
{
    if (!parent())
        return;
    const ZrList<ZrObject *> siblings = parent()->children();
    for (ZrObject *sibling : siblings) {
        auto *button = dynamic_cast<ZrAbstractButton *>(sibling);
        if (button && button != this && button->checked_ && button->autoExclusive_ &&
            !button->group_)
            button->storeChecked(false);
    }
}

void ZrAbstractButton::nextCheckState()
{
    setChecked(!checked_);
}

void ZrAbstractButton::checkStateSet() {}

bool ZrAbstractButton::hitButton(const ZrPoint &point) const
{
    return rect().contains(point);
}

// --- the click ---

void ZrAbstractButton::click()
{
    const ZrGuard<ZrAbstractButton> self(this);
    if (!holdsExclusiveCheck())
        nextCheckState();
    if (self)
        emit(this, &clicked);
    if (self && group_)
        group_->wasClicked(this);
}

void ZrAbstractButton::animateClick()
{
    if (!isEnabled())
        return;
    setDown(true);
    ZrSingleShotTimer::singleShot(KeyPressMs, this, zrSlot<&ZrAbstractButton::keyPressEnds>);
}

void ZrAbstractButton::keyPressEnds()
{
    setDown(false);
    click();
}

// --- events ---

void ZrAbstractButton::mousePressEvent(ZrMouseEvent *event)
{
    event->ignore();
    if (event->button() != Zr::LeftButton)
        return;
    pressedHere_ = hitButton(event->position());
    if (!pressedHere_)
        return;
    event->accept();
    setDown(true);
    pressedByMouse_ = true;
    const ZrGuard<ZrAbstractButton> self(this);
    emit(this, &pressed);
    if (self)
        setFocus(Zr::MouseFocus);
}

void ZrAbstractButton::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    mousePressEvent(event);
}

void ZrAbstractButton::mouseReleaseEvent(ZrMouseEvent *event)
{
    event->ignore();
    if (!pressedHere_)
        return;
    if (event->button() != Zr::LeftButton || !down_) {
        // Another button may go up while the left one is still held.
        pressedHere_ = event->button() != Zr::LeftButton;
        return;
    }
    pressedHere_ = false;
    pressedByMouse_ = false;
    event->accept();
    setDown(false);
    const ZrGuard<ZrAbstractButton> self(this);
    click();
    if (self)
        emit(this, &released);
}

void ZrAbstractButton::mouseMoveEvent(ZrMouseEvent *event)
{
    event->setAccepted((event->buttons() & Zr::LeftButton) && pressedHere_);
}

void ZrAbstractButton::keyPressEvent(ZrKeyEvent *event)
{
    event->setAccepted(event->key() == Zr::Key_Enter && isEnabled());
    if (event->isAccepted())
        animateClick();
}

void ZrAbstractButton::focusInEvent(ZrFocusEvent *event)
{
    ZrFrame::focusInEvent(event);
    update();
}

void ZrAbstractButton::focusOutEvent(ZrFocusEvent *event)
{
    ZrFrame::focusOutEvent(event);
    update();
}

void ZrAbstractButton::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverEnterEvent(event);
    update();
}

void ZrAbstractButton::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverLeaveEvent(event);
    update();
}
