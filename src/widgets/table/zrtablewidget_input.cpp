// Keys, wheel and pointer.
#include <zrtablewidget>

#include "widgets/table/tableaxis.h"

#include <algorithm>
#include <zrapplication>
#include <zrscrollbar>

namespace
{

constexpr int WheelNotch = 120;
constexpr int WheelShare = 20; // of the view port, for a notch

// True when the bar could move that way.
bool moveBar(ZrScrollBar &bar, int by)
{
    const int target = std::clamp(bar.value() + by, bar.minimum(), bar.maximum());
    if (bar.isHidden() || target == bar.value())
        return false;
    bar.setValue(target);
    return true;
}

} // namespace

// --- the current cell ---

void ZrTableWidget::setCurrentCell(int row, int column)
{
    makeCurrent(row, column, Scroll::ToNearEdge);
}

void ZrTableWidget::makeCurrent(int row, int column, Scroll scroll)
{
    ensureArranged();
    if (const Span *span = spanAt(row, column)) {
        row = span->row;
        column = span->column;
    }
    const bool none = row == -1 && column == -1;
    const bool title = row == -1 && column >= 0 && column < columnCount() &&
                       hHeader_->isFocusable() && columns().size(column) > 0;
    if (!none && !title && (!isCell(row, column) || cellRect(row, column).isEmpty()))
        return;
    const int oldRow = currentRow();
    const int oldColumn = currentColumn();
    const bool moves = row != oldRow || column != oldColumn;
    if (moves) {
        vHeader_->currentRow_ = row;
        hHeader_->currentCol_ = column;
        if (oldColumn >= 0)
            updateCell(oldRow, oldColumn);
        if (column >= 0)
            updateCell(row, column);
        if (hasFocus() && (oldColumn < 0) != (column < 0))
            update(); // the ring goes from the cell to the table, or back
    }
    const ZrGuard<ZrTableWidget> self(this);
    if (!none && scroll != Scroll::No)
        scrollTo(row, column, scroll == Scroll::ToFarEdge ? Edge::Far : Edge::Near);
    if (self && moves)
        emit(this, &currentCellChanged);
}

void ZrTableWidget::takeFirstCell()
{
    const int column = hHeader_->firstShown();
    const int row = firstRowShown();
    if (column >= 0 && row >= 0)
        makeCurrent(row, column, Scroll::ToNearEdge);
}

// --- keys ---

void ZrTableWidget::keyPressEvent(ZrKeyEvent *event)
{
    event->ignore();
    if (rowCount() == 0 || columnCount() == 0)
        return;
    ensureArranged();
    switch (event->key()) {
    case Zr::Key_Enter:
        activateCurrent(event);
        return;
    case Zr::Key_Left:
    case Zr::Key_Right:
    case Zr::Key_Up:
    case Zr::Key_Down:
        event->accept();
        moveCurrent(event->key());
        return;
    default:
        return;
    }
}

// What is hidden, and the rest of a cell that spans several.
bool ZrTableWidget::isPassedOver(int row, int column, const Span *from) const
{
    if (row == -1)
        return column >= 0 && column < columnCount() && columns().size(column) == 0;
    if (!isCell(row, column))
        return false;
    return cellRect(row, column).isEmpty() || (from && spanAt(row, column) == from);
}

void ZrTableWidget::moveCurrent(int key)
{
    if (currentColumn() < 0) {
        takeFirstCell();
        return;
    }
    const int down = key == Zr::Key_Down ? 1 : key == Zr::Key_Up ? -1 : 0;
    const int right = key == Zr::Key_Right ? 1 : key == Zr::Key_Left ? -1 : 0;
    const Span *from = spanAt(currentRow(), currentColumn());
    int row = currentRow();
    int column = currentColumn();
    do {
        row += down;
        column += right;
    } while (isPassedOver(row, column, from));
    makeCurrent(row, column, down + right > 0 ? Scroll::ToFarEdge : Scroll::ToNearEdge);
}

void ZrTableWidget::activateCurrent(ZrKeyEvent *event)
{
    const int row = currentRow();
    const int column = currentColumn();
    if (column < 0)
        return;
    const ZrTableWidgetColItem *cell = existingItem(row, column);
    const ZrGuard<ZrWidget> widget(cell ? cell->widget() : nullptr);
    if (widget && widget->isEnabled()) {
        ZrApplication::notify(widget.get(), event);
        // What has no use for Enter itself is gone into.
        if (widget && !event->isAccepted())
            widget->setFocus(Zr::KeyManagerFocus);
        event->accept();
        return;
    }
    event->accept();
    if (row < 0 && hHeader_->isSortable(column))
        titleClicked(column);
    else
        emit(this, &cellActivated);
}

void ZrTableWidget::titleClicked(int column)
{
    if (!hHeader_->isSortable(column)) {
        clickedRow_ = -1;
        clickedColumn_ = column;
        clickedButton_ = Zr::LeftButton;
        emit(this, &cellClicked);
        return;
    }
    const bool again = hHeader_->sortColumn() == column && hHeader_->sortOrder() == Zr::Ascending;
    sortByColumn(column, again ? Zr::Descending : Zr::Ascending);
}

// --- focus ---

void ZrTableWidget::focusInEvent(ZrFocusEvent *event)
{
    ZrWidget::focusInEvent(event);
    update();
    // Whoever clicks has pointed at a cell already, or is about to.
    if (currentColumn() < 0 && event->reason() != Zr::MouseFocus)
        takeFirstCell();
}

void ZrTableWidget::focusOutEvent(ZrFocusEvent *event)
{
    ZrWidget::focusOutEvent(event);
    update();
}

bool ZrTableWidget::eventFilter(ZrObject *watched, ZrEvent *event)
{
    if (event->type() == ZrEvent::FocusIn && watched->parent() == viewPort_)
        widgetFocused(*static_cast<ZrWidget *>(watched),
                      static_cast<ZrFocusEvent *>(event)->reason());
    return ZrWidget::eventFilter(watched, event);
}

// The cell of a widget that is used is the current one.
void ZrTableWidget::widgetFocused(const ZrWidget &widget, int reason)
{
    const ZrPoint middle = widget.geometry().center();
    const int row = rowAt(middle.y());
    const int column = columnAt(middle.x());
    const ZrTableWidgetColItem *cell = existingItem(row, column);
    if (row >= 0 && cell && cell->widget() == &widget)
        makeCurrent(row, column, reason == Zr::KeyManagerFocus ? Scroll::ToNearEdge : Scroll::No);
}

// --- pointer ---

bool ZrTableWidget::viewPortEvent(ZrEvent *event)
{
    switch (event->type()) {
    case ZrEvent::MousePress:
    case ZrEvent::MouseDoubleClick:
        pointerPressed(static_cast<ZrMouseEvent *>(event));
        return true;
    case ZrEvent::MouseRelease:
        pointerReleased(static_cast<ZrMouseEvent *>(event));
        return true;
    case ZrEvent::MouseMove: {
        const ZrPoint at = static_cast<ZrMouseEvent *>(event)->position();
        setHovered(rowAt(at.y()), columnAt(at.x()));
        event->accept();
        return true;
    }
    case ZrEvent::Leave:
        setHovered(-1, -1);
        return true;
    case ZrEvent::LayoutRequest: // the hint of a widget has changed
        contentsChanged();
        return false;
    default:
        return false;
    }
}

void ZrTableWidget::pointerPressed(ZrMouseEvent *event)
{
    event->accept();
    ensureArranged();
    const ZrGuard<ZrTableWidget> self(this);
    setFocus(Zr::MouseFocus);
    if (!self)
        return;
    pressedRow_ = rowAt(event->position().y());
    pressedColumn_ = columnAt(event->position().x());
    if (pressedColumn_ < 0)
        pressedRow_ = -1;
    if (pressedRow_ < 0)
        return;
    const int row = pressedRow_;
    const bool twice =
        event->type() == ZrEvent::MouseDoubleClick && event->button() == Zr::LeftButton;
    if (twice) {
        clickedRow_ = pressedRow_;
        clickedColumn_ = pressedColumn_;
        clickedButton_ = event->button();
        pressedRow_ = -1; // the release that follows is no click
    }
    makeCurrent(row, pressedColumn_, Scroll::No);
    if (self && twice)
        emit(this, &cellDoubleClicked);
}

void ZrTableWidget::pointerReleased(ZrMouseEvent *event)
{
    event->accept();
    const int row = std::exchange(pressedRow_, -1);
    // Whoever slides off the cell before letting go did not mean it.
    if (row < 0 || row != rowAt(event->position().y()) ||
        pressedColumn_ != columnAt(event->position().x()))
        return;
    clickedRow_ = row;
    clickedColumn_ = pressedColumn_;
    clickedButton_ = event->button();
    emit(this, &cellClicked);
}

void ZrTableWidget::setHovered(int row, int column)
{
    if (row >= 0 && column < 0 && selectionMode_ != SelectRow)
        row = -1;
    if (row == vHeader_->hoverRow_ && column == hHeader_->hoverCol_)
        return;
    const int oldRow = vHeader_->hoverRow_;
    const int oldColumn = hHeader_->hoverCol_;
    const bool sameRow = row == oldRow && row >= 0 && selectionMode_ == SelectRow;
    vHeader_->hoverRow_ = row;
    hHeader_->hoverCol_ = column;
    if (sameRow)
        return;
    updateHovered(oldRow, oldColumn);
    updateHovered(row, column);
}

void ZrTableWidget::updateHovered(int row, int column)
{
    // A title shows the pointer only when a click does something.
    if (row >= 0 || hHeader_->isSortable(column))
        updateCell(row, column);
}

void ZrTableWidget::wheelEvent(ZrWheelEvent *event)
{
    ensureArranged();
    const int notches = event->delta() / WheelNotch;
    event->setAccepted(moveBar(*vScrollBar_, -notches * viewPort_->height() / WheelShare) ||
                       moveBar(*hScrollBar_, -notches * viewPort_->width() / WheelShare));
    // Another cell has come under the pointer; the next move tells which.
    if (event->isAccepted())
        setHovered(-1, -1);
}

void ZrTableWidget::paintEvent(ZrPaintEvent *)
{
    style().drawTable(this);
}
