#include <zrcombobox>

#include "widgets/controls/editabletext.h"
#include "widgets/style/boxmodel.h"
#include "widgets/style/buttonlayout.h"

#include <algorithm>
#include <zrapplication>
#include <zrguard>
#include <zrinnerlistwidget>

ZrComboBox::ZrComboBox(ZrWidget *parent) : ZrFrame(parent)
{
    setFocusPolicy(AnyFocus);
    setAttribute(Hover);
}

ZrComboBox::~ZrComboBox() = default;

// --- rows ---

void ZrComboBox::insertItem(int index, const ZrString &text, int data)
{
    index = std::clamp(index, 0, count());
    items_.insert(index, ZrListWidgetItem(text, data));
    if (current_ < 0)
        setCurrentIndex(index);
    else if (index <= current_)
        ++current_;
}

void ZrComboBox::removeItem(int index)
{
    if (index < 0 || index >= count())
        return;
    items_.removeAt(index);
    if (index < current_) {
        --current_;
    } else if (index == current_) {
        current_ = -1;
        setCurrentIndex(std::min(index, count() - 1));
    }
}

void ZrComboBox::clear()
{
    items_.clear();
    setCurrentIndex(-1);
}

ZrString ZrComboBox::itemText(int index) const
{
    return index >= 0 && index < count() ? items_.at(index).text() : ZrString();
}

void ZrComboBox::setItemText(int index, const ZrString &text)
{
    if (index < 0 || index >= count() || items_.at(index).text() == text)
        return;
    items_[index].setText(text);
    if (index == current_)
        update();
}

int ZrComboBox::itemData(int index) const
{
    return index >= 0 && index < count() ? items_.at(index).data() : 0;
}

void ZrComboBox::setItemData(int index, int data)
{
    if (index >= 0 && index < count())
        items_[index].setData(data);
}

bool ZrComboBox::isItemEnabled(int index) const
{
    return index >= 0 && index < count() && items_.at(index).isEnabled();
}

void ZrComboBox::setItemEnabled(int index, bool enabled)
{
    if (index >= 0 && index < count())
        items_[index].setEnabled(enabled);
}

int ZrComboBox::findText(const ZrString &text) const
{
    for (int i = 0; i < count(); ++i)
        if (items_.at(i).text() == text)
            return i;
    return -1;
}

int ZrComboBox::findData(int data) const
{
    for (int i = 0; i < count(); ++i)
        if (items_.at(i).data() == data)
            return i;
    return -1;
}

void ZrComboBox::setCurrentIndex(int index)
{
    if (index < 0 || index >= count())
        index = -1;
    if (index == current_)
        return;
    current_ = index;
    setEditText(itemText(index));
    update();
    emit(this, &currentIndexChanged);
}

ZrString ZrComboBox::currentText() const
{
    return edit_ ? edit_->text() : itemText(current_);
}

// --- the pop-up ---

void ZrComboBox::setMaxVisibleItems(int rows)
{
    maxVisible_ = std::max(1, rows);
}

bool ZrComboBox::isPopupVisible() const
{
    return popup_ && popup_->isVisible();
}

void ZrComboBox::showPopup()
{
    ZrList<ZrListWidgetItem> rows = items_;
    rows += extraRows();
    if (isPopupVisible() || rows.isEmpty())
        return;
    if (!popup_) {
        popup_ = std::make_unique<ZrInnerListWidget>();
        connect(popup_.get(), &popup_->itemClicked, this, zrSlot<&ZrComboBox::chosen>);
        connect(popup_.get(), &popup_->closed, this, zrSlot<&ZrComboBox::popupClosed>);
    }
    popup_->style() = style();
    popup_->setRowHeight(popupRowHeight());
    popup_->setItems(rows);
    placePopup();
    popup_->setCurrentRow(current_);
    popup_->show();
    update();
}

// Below the control, or above it where there is more room; never beyond the screen.
void ZrComboBox::placePopup()
{
    const ZrRect screen = ZrApplication::instance()->desktopRect();
    const ZrRect control(mapToGlobal(ZrPoint(0, 0)), size());
    const ZrSize hint = popup_->contentsHint();
    const int rows = std::min(popup_->count(), maxVisible_);
    const int wanted = hint.height() - (popup_->count() - rows) * popup_->rowHeight();
    const int below = screen.bottom() - control.bottom();
    const int above = control.top() - screen.top();
    const bool upward = wanted > below && above > below;
    const int height = std::min(wanted, upward ? above : below);
    const int width = std::min(screen.width(), std::max(control.width(), hint.width()));
    const int left = std::max(screen.left(), std::min(control.left(), screen.right() - width + 1));
    popup_->setGeometry(
        ZrRect(left, upward ? control.top() - height : control.bottom() + 1, width, height));
}

void ZrComboBox::hidePopup()
{
    if (popup_)
        popup_->close();
}

void ZrComboBox::chosen()
{
    const ZrGuard<ZrComboBox> self(this);
    const int row = popup_->currentRow();
    if (row >= count())
        return extraRowChosen(row - count());
    if (row == current_)
        setEditText(itemText(row)); // what was typed gives way to the row it was typed over
    setCurrentIndex(row);
    if (self)
        emit(this, &activated);
}

void ZrComboBox::popupClosed()
{
    update();
}

// --- geometry ---

ZrRect ZrComboBox::arrowRect() const
{
    const int side = std::min(height(), width());
    return ZrRect(width() - side, 0, side, height());
}

ZrRect ZrComboBox::textRect() const
{
    ZrRect text = BoxModel(*this, style().comboBox()).contents(rect());
    text.setRight(std::min(text.right(), arrowRect().left() - 1));
    return text;
}

ZrSize ZrComboBox::sizeHint() const
{
    const BoxModel box(*this, style().comboBox());
    const int height = lineControlHeight(box.font());
    int widest = height * 2;
    for (const ZrListWidgetItem &item : items_)
        widest = std::max(widest, textWidth(item.text(), box.font()));
    return ZrSize(widest + box.surplus().width() + height, height);
}

ZrSize ZrComboBox::minimumSizeHint() const
{
    const BoxModel box(*this, style().comboBox());
    const int height = lineControlHeight(box.font());
    return ZrSize(height * 3 + box.surplus().width(), height);
}

// --- events ---

void ZrComboBox::paintEvent(ZrPaintEvent *)
{
    style().drawComboBox(this);
}

void ZrComboBox::keyPressEvent(ZrKeyEvent *event)
{
    const bool enter = event->key() == Zr::Key_Enter;
    event->setAccepted(enter || (edit_ && editKey(*event)));
    if (!enter || isServed())
        return; // Enter on the screen's keyboard ends the entry
    if (isPopupVisible())
        hidePopup();
    else
        showPopup();
}

void ZrComboBox::mousePressEvent(ZrMouseEvent *event)
{
    event->setAccepted(event->button() == Zr::LeftButton);
    if (!event->isAccepted())
        return;
    if (edit_ && textRect().contains(event->position()))
        putCursor(event->position());
    else
        showPopup();
}

void ZrComboBox::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    mousePressEvent(event);
}

void ZrComboBox::focusInEvent(ZrFocusEvent *event)
{
    ZrFrame::focusInEvent(event);
    update();
}

void ZrComboBox::focusOutEvent(ZrFocusEvent *event)
{
    ZrFrame::focusOutEvent(event);
    update();
}

void ZrComboBox::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverEnterEvent(event);
    update();
}

void ZrComboBox::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverLeaveEvent(event);
    update();
}

void ZrComboBox::hideEvent(ZrHideEvent *)
{
    hidePopup();
}
