#include <zrlistwidget>

#include "widgets/style/boxmodel.h"
#include "widgets/style/buttonlayout.h"
#include "widgets/style/drawpicture.h"
#include "widgets/style/textdirection.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrguard>
#include <zrpainter>
#include <zrscrollbar>

namespace
{

// Shares of a row's height.
constexpr int MarkShare = 12;   // the bar at the leading edge
constexpr int PaddingShare = 3; // before and behind the text
constexpr int IconPercent = 60;

} // namespace

ZrListWidget::ZrListWidget(ZrWidget *parent) : ZrAbstractScrollArea(parent)
{
    setFocusPolicy(AnyFocus);
    viewport()->setAttribute(MouseTracking);
    setHorizontalScrollBarPolicy(AlwaysOff);
}

// --- rows ---

void ZrListWidget::itemsChanged()
{
    verticalScrollBar()->setSingleStep(rowHeight());
    arrange();
    viewport()->update();
}

void ZrListWidget::setItem(int row, const ZrListWidgetItem &item)
{
    items_[row] = item;
    updateRow(row);
}

void ZrListWidget::insertItem(int row, const ZrListWidgetItem &item)
{
    row = std::clamp(row, 0, count());
    items_.insert(row, item);
    if (row <= currentRow_)
        ++currentRow_;
    hoveredRow_ = -1;
    itemsChanged();
}

void ZrListWidget::setItems(const ZrList<ZrListWidgetItem> &items)
{
    items_ = items;
    hoveredRow_ = -1;
    const bool hadCurrent = currentRow_ >= 0;
    currentRow_ = -1;
    itemsChanged();
    if (hadCurrent)
        emit(this, &currentRowChanged);
}

void ZrListWidget::removeItem(int row)
{
    if (row < 0 || row >= count())
        return;
    items_.removeAt(row);
    hoveredRow_ = -1;
    const bool wasCurrent = row == currentRow_;
    if (wasCurrent)
        currentRow_ = -1;
    else if (row < currentRow_)
        --currentRow_;
    itemsChanged();
    if (wasCurrent)
        emit(this, &currentRowChanged);
}

void ZrListWidget::clear()
{
    setItems(ZrList<ZrListWidgetItem>());
}

void ZrListWidget::setCurrentRow(int row)
{
    if (row < 0 || row >= count() || !items_.at(row).isEnabled())
        row = -1;
    if (row == currentRow_)
        return;
    updateRow(currentRow_);
    currentRow_ = row;
    updateRow(currentRow_);
    scrollToRow(row);
    emit(this, &currentRowChanged);
}

void ZrListWidget::setHoveredRow(int row)
{
    if (row >= 0 && !items_.at(row).isEnabled())
        row = -1;
    if (row == hoveredRow_)
        return;
    updateRow(hoveredRow_);
    hoveredRow_ = row;
    updateRow(hoveredRow_);
}

void ZrListWidget::clearRowStates()
{
    setHoveredRow(-1);
    setCurrentRow(-1);
}

void ZrListWidget::moveCurrent(int direction)
{
    int row = currentRow_ < 0 ? (direction > 0 ? 0 : count() - 1) : currentRow_ + direction;
    while (row >= 0 && row < count() && !items_.at(row).isEnabled())
        row += direction;
    if (row >= 0 && row < count())
        setCurrentRow(row);
}

void ZrListWidget::activate()
{
    emit(this, &itemClicked);
}

// --- geometry ---

int ZrListWidget::rowHeight() const
{
    return rowHeight_ > 0 ? rowHeight_ : lineControlHeight(font(0));
}

void ZrListWidget::setRowHeight(int height)
{
    if (height == rowHeight_)
        return;
    rowHeight_ = height;
    itemsChanged();
}

int ZrListWidget::rowAt(const ZrPoint &point) const
{
    if (!viewport()->rect().contains(point))
        return -1;
    const int row = (point.y() + verticalScrollBar()->value()) / rowHeight();
    return row < count() ? row : -1;
}

ZrRect ZrListWidget::rowRect(int row) const
{
    const int height = rowHeight();
    return ZrRect(0, row * height - verticalScrollBar()->value(), viewport()->width(), height);
}

void ZrListWidget::scrollToRow(int row)
{
    if (row < 0 || viewport()->height() <= 0)
        return;
    ZrScrollBar &bar = *verticalScrollBar();
    const int top = row * rowHeight();
    if (top < bar.value())
        bar.setValue(top);
    else if (top + rowHeight() > bar.value() + bar.pageStep())
        bar.setValue(top + rowHeight() - bar.pageStep());
}

ZrSize ZrListWidget::contentsSize(const ZrSize &viewport) const
{
    return ZrSize(viewport.width(), rowHeight() * count());
}

void ZrListWidget::viewportResized()
{
    scrollToRow(currentRow_);
}

ZrSize ZrListWidget::contentsHint() const
{
    const ZrFont used = font(0);
    const int height = rowHeight();
    int widest = 0;
    for (const ZrListWidgetItem &item : items_)
        widest = std::max(widest, textWidth(item.text(), used) +
                                      (item.icon().isNull() ? 0 : height * IconPercent / 100));
    const int around = 2 * (height / PaddingShare) + height / PaddingShare + 2 * frameInset();
    return ZrSize(widest + around, height * count() + 2 * frameInset());
}

ZrSize ZrListWidget::sizeHint() const
{
    return contentsHint();
}

int ZrListWidget::frameInset() const
{
    const int *ring = focusFrame() ? style().list().focusRing.get(0) : nullptr;
    const ZrSides *border = style().list().borderWidth.get(0);
    return std::max({frameWidth(), ring ? *ring : 0, border ? int(border->left) : 0});
}

void ZrListWidget::updateRow(int row)
{
    if (row >= 0)
        viewport()->update(rowRect(row) & viewport()->rect());
}

void ZrListWidget::scrolled()
{
    viewport()->update();
}

// --- painting ---

void ZrListWidget::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    BoxModel(*this, style().list()).draw(painter, rect());
}

void ZrListWidget::paintRows(const ZrRegion &region)
{
    ZrPainter painter(viewport());
    painter.setFont(font(0));
    const ZrRect bounds = region.boundingRect();
    const int offset = verticalScrollBar()->value();
    const int first = std::max(0, (bounds.top() + offset) / rowHeight());
    const int last = std::min(count() - 1, (bounds.bottom() + offset) / rowHeight());
    for (int row = first; row <= last; ++row)
        if (region.intersects(rowRect(row)))
            paintRow(painter, row);
}

void ZrListWidget::paintRow(ZrPainter &painter, int row)
{
    const RowLook look = rowLook(row);
    const ZrRect place = rowRect(row);
    const ZrListWidgetItem &item = items_.at(row);
    if (look.background)
        painter.fillRect(place, *look.background);
    if (look.mark)
        painter.fillRect(
            ZrRect(place.left(), place.top(), std::max(2, rowHeight() / MarkShare), place.height()),
            *look.mark);
    const int padding = rowHeight() / PaddingShare;
    ZrRect room = place.adjusted(padding, 0, -padding, 0);
    if (!item.icon().isNull()) {
        const int side = rowHeight() * IconPercent / 100;
        const ZrRect square(room.left(), place.top() + (place.height() - side) / 2, side, side);
        if (look.usable)
            drawPicture(painter, square, item.icon());
        else
            drawFadedPicture(painter, square, item.icon());
        room.setLeft(room.left() + side + padding);
    }
    if (!look.foreground || room.isEmpty())
        return;
    painter.setPen(*look.foreground);
    painter.drawText(room, leadingAlignment(item.text()) | Zr::AlignVCenter,
                     ZrFontMetrics::elided(item.text(), font(0), room.width()));
}

ZrListWidget::RowLook ZrListWidget::rowLook(int row) const
{
    const ZrListOption &group = style().list();
    const bool usable = isEnabled() && items_.at(row).isEnabled();
    const bool current = row == currentRow_;
    const int state = zrIndex(!usable              ? ZrVisualState::Disabled
                              : row == hoveredRow_ ? ZrVisualState::Hover
                                                   : ZrVisualState::Normal);
    RowLook look;
    look.usable = usable;
    look.foreground = group.foreground.get(state);
    if (!look.foreground)
        look.foreground = group.foreground.get(zrIndex(ZrVisualState::Normal));
    if (!look.foreground)
        look.foreground = style().label().foreground.get(zrIndex(ZrVisualState::Normal));
    if (row == hoveredRow_)
        look.background = group.background.get(zrIndex(ZrVisualState::Hover));
    if (!current || !usable)
        return look;
    if (const ZrColor *color = group.selectedForeground.get(0))
        look.foreground = color;
    if (const ZrColor *color = group.selectedBackground.get(0))
        look.background = color;
    look.mark = group.mark.get(0);
    return look;
}

// --- events ---

bool ZrListWidget::viewportEvent(ZrEvent *event)
{
    switch (event->type()) {
    case ZrEvent::Paint:
        paintRows(static_cast<ZrPaintEvent *>(event)->region());
        return true;
    case ZrEvent::MousePress:
    case ZrEvent::MouseDoubleClick:
        pointerPressed(static_cast<ZrMouseEvent *>(event));
        return true;
    case ZrEvent::MouseRelease:
        pointerReleased(static_cast<ZrMouseEvent *>(event));
        return true;
    case ZrEvent::MouseMove:
        setHoveredRow(rowAt(static_cast<ZrMouseEvent *>(event)->position()));
        event->accept();
        return true;
    case ZrEvent::Leave:
        setHoveredRow(-1);
        return true;
    default:
        return ZrAbstractScrollArea::viewportEvent(event);
    }
}

void ZrListWidget::pointerPressed(ZrMouseEvent *event)
{
    event->setAccepted(event->button() == Zr::LeftButton);
    if (!event->isAccepted())
        return;
    const ZrGuard<ZrListWidget> self(this);
    setFocus(Zr::MouseFocus);
    pressedRow_ = rowAt(event->position());
    if (self && pressedRow_ >= 0 && items_.at(pressedRow_).isEnabled())
        setCurrentRow(pressedRow_);
}

void ZrListWidget::pointerReleased(ZrMouseEvent *event)
{
    event->accept();
    const int row = pressedRow_;
    pressedRow_ = -1;
    // Whoever slides off the row before letting go did not mean it.
    if (row >= 0 && row == currentRow_ && row == rowAt(event->position()))
        activate();
}

void ZrListWidget::keyPressEvent(ZrKeyEvent *event)
{
    event->accept();
    const int before = currentRow_;
    switch (event->key()) {
    case Zr::Key_Up:
    case Zr::Key_Down: {
        const ZrGuard<ZrListWidget> self(this);
        moveCurrent(event->key() == Zr::Key_Down ? 1 : -1);
        // At the end the key goes on, and the focus with it.
        if (self && currentRow_ == before)
            event->ignore();
        return;
    }
    case Zr::Key_Enter:
        event->setAccepted(currentRow_ >= 0);
        if (currentRow_ >= 0)
            activate();
        return;
    case Zr::Key_Escape: {
        const ZrGuard<ZrListWidget> self(this);
        clearRowStates();
        if (self && isWindow())
            close();
        else
            event->ignore();
        return;
    }
    default:
        event->ignore();
    }
}

void ZrListWidget::focusInEvent(ZrFocusEvent *event)
{
    ZrAbstractScrollArea::focusInEvent(event);
    update();
}

void ZrListWidget::focusOutEvent(ZrFocusEvent *event)
{
    ZrAbstractScrollArea::focusOutEvent(event);
    update();
}
