#include <zrtablewidgethheader>

#include "widgets/table/cellfocus.h"
#include "widgets/table/tableaxis.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrpainter>
#include <zrscrollbar>
#include <zrtablewidget>

ZrTableWidgetHHeader::ZrTableWidgetHHeader(ZrTableWidget *table)
    : ZrWidget(table), owner_(*table), axis_(std::make_unique<TableAxis>())
{
    table_ = table;
    setAttribute(MouseTracking);
}

ZrTableWidgetHHeader::~ZrTableWidgetHHeader() = default;

int ZrTableWidgetHHeader::colCount() const
{
    return axis_->count();
}

const ZrVector<int> &ZrTableWidgetHHeader::colEdges() const
{
    return axis_->edges();
}

bool ZrTableWidgetHHeader::isFocusable() const
{
    const bool sorts = std::find(sortable_.begin(), sortable_.end(), true) != sortable_.end();
    return height() > 0 && (focusable_ || sorts);
}

void ZrTableWidgetHHeader::setSortable(int column, bool sortable)
{
    if (column < 0 || column >= colCount() || sortable == isSortable(column))
        return;
    sortable_.resize(std::size_t(colCount()));
    sortable_[std::size_t(column)] = sortable;
    update(titleRect(column));
}

bool ZrTableWidgetHHeader::isSortable(int column) const
{
    return column >= 0 && column < int(sortable_.size()) && sortable_[std::size_t(column)];
}

int ZrTableWidgetHHeader::firstShown() const
{
    for (int column = 0; column < colCount(); ++column)
        if (axis_->size(column) > 0)
            return column;
    return -1;
}

int ZrTableWidgetHHeader::columnAt(const ZrPoint &point) const
{
    if (!rect().contains(point))
        return -1;
    const int column = axis_->at(point.x() + owner_.hScrollBar()->value());
    return column < colCount() ? column : -1;
}

ZrRect ZrTableWidgetHHeader::titleRect(int column) const
{
    return ZrRect(axis_->edge(column) - owner_.hScrollBar()->value(), 0, axis_->size(column),
                  height());
}

// --- painting ---

void ZrTableWidgetHHeader::paintEvent(ZrPaintEvent *event)
{
    const ZrTableOption &group = owner_.style().table();
    ZrPainter painter(this);
    if (const ZrColor *color = group.colors.get(Zr::TableTitleBackground))
        painter.fillRect(rect(), *color);
    for (int column = 0; column < colCount(); ++column)
        if (event->region().intersects(titleRect(column)))
            paintTitle(painter, column);
    if (const ZrColor *color = group.colors.get(Zr::TableGrid))
        painter.fillRect(ZrRect(0, height() - 1, width(), 1), *color);
    if (owner_.hasFocus() && currentCol_ >= 0 && owner_.currentRow() < 0)
        paintCellFocus(painter, group, titleRect(currentCol_));
}

void ZrTableWidgetHHeader::paintTitle(ZrPainter &painter, int column)
{
    const ZrRect place = titleRect(column);
    if (isSortable(column) && column == hoverCol_ && owner_.hoveredRow() < 0)
        if (const ZrColor *color = owner_.style().table().colors.get(Zr::TableHoverBackground))
            painter.fillRect(place, *color);
    ZrTableWidgetColItem *title = existingCell(column);
    if (!title || place.isEmpty())
        return;
    // The sign keeps its room also while another column sorts: titles do not move by a click.
    const int sign = isSortable(column) ? signRoom() : 0;
    if (!title->widget())
        title->setGeometry(place.left(), place.top(), std::max(1, place.width() - sign),
                           place.height());
    title->paint(painter);
    if (column == sortColumn_)
        paintSortSign(painter, place);
}

int ZrTableWidgetHHeader::signRoom() const
{
    return ZrFontMetrics::lineHeight(owner_.font(0));
}

// A triangle of rows of pixels that points to where the smallest stands.
void ZrTableWidgetHHeader::paintSortSign(ZrPainter &painter, const ZrRect &title) const
{
    const ZrColor *color = owner_.style().list().mark.get(0);
    if (!color)
        return;
    const int rows = std::max(3, signRoom() / 4);
    const int middle = title.right() - signRoom() / 2 - rows / 2;
    const int top = title.top() + (title.height() - rows) / 2;
    for (int i = 0; i < rows; ++i) {
        const int half = sortOrder_ == Zr::Ascending ? i : rows - 1 - i;
        painter.fillRect(ZrRect(middle - half, top + i, 2 * half + 1, 1), *color);
    }
}

// --- pointer ---

void ZrTableWidgetHHeader::mousePressEvent(ZrMouseEvent *event)
{
    event->setAccepted(event->button() == Zr::LeftButton);
    pressedCol_ = event->isAccepted() ? columnAt(event->position()) : -1;
    if (event->isAccepted())
        owner_.setFocus(Zr::MouseFocus);
}

// Whoever clicks twice turns the order round.
void ZrTableWidgetHHeader::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    mousePressEvent(event);
}

void ZrTableWidgetHHeader::mouseReleaseEvent(ZrMouseEvent *event)
{
    event->accept();
    const int column = pressedCol_;
    pressedCol_ = -1;
    if (column >= 0 && column == columnAt(event->position()))
        owner_.titleClicked(column);
}

void ZrTableWidgetHHeader::mouseMoveEvent(ZrMouseEvent *event)
{
    event->accept();
    owner_.setHovered(-1, columnAt(event->position()));
}

void ZrTableWidgetHHeader::leaveEvent(ZrEvent *)
{
    owner_.setHovered(-1, -1);
}
