// Sizes, places and scrolling.
#include <zrtablewidget>

#include "widgets/table/tableaxis.h"

#include <algorithm>
#include <zrapplication>
#include <zrfontmetrics>
#include <zrscrollbar>

namespace
{

// In lines of text, or fifths of one.
constexpr int RowFifths = 9;
constexpr int TitleFifths = 8;
constexpr int ColumnLines = 6;
constexpr int SideLines = 3;
constexpr int HintRows = 6;

} // namespace

void ZrTableWidget::setDefaultSizes()
{
    const int line = ZrFontMetrics::lineHeight(font(0));
    rows().setDefaultSize(defaultRowHeight_ >= 0 ? defaultRowHeight_ : line * RowFifths / 5);
    columns().setDefaultSize(line * ColumnLines);
}

int ZrTableWidget::titleHeight() const
{
    return titleHeight_ >= 0 ? titleHeight_ : ZrFontMetrics::lineHeight(font(0)) * TitleFifths / 5;
}

int ZrTableWidget::border() const
{
    const ZrSides *width = style().table().borderWidth.get(zrIndex(ZrVisualState::Normal));
    return width ? width->left : 0;
}

// --- sizes ---

void ZrTableWidget::setColumnWidth(int column, int width)
{
    if (columns().setSize(column, width))
        contentsChanged();
}

void ZrTableWidget::setRowHeight(int row, int height)
{
    if (rows().setSize(row, height))
        contentsChanged();
}

void ZrTableWidget::setDefaultRowHeight(int height)
{
    defaultRowHeight_ = height;
    setDefaultSizes();
    contentsChanged();
}

int ZrTableWidget::columnWidth(int column) const
{
    return columns().size(column);
}

int ZrTableWidget::rowHeight(int row) const
{
    return rows().size(row);
}

void ZrTableWidget::setColumnShare(int column, int share)
{
    if (columns().setShare(column, share))
        contentsChanged();
}

void ZrTableWidget::setColumnHidden(int column, bool hidden)
{
    if (columns().setHidden(column, hidden))
        contentsChanged();
}

void ZrTableWidget::setRowHidden(int row, bool hidden)
{
    if (rows().setHidden(row, hidden))
        contentsChanged();
}

bool ZrTableWidget::isColumnHidden(int column) const
{
    return columns().isHidden(column);
}

bool ZrTableWidget::isRowHidden(int row) const
{
    return rows().isHidden(row);
}

void ZrTableWidget::setTitleHeight(int height)
{
    if (height == titleHeight_)
        return;
    titleHeight_ = height;
    contentsChanged();
}

void ZrTableWidget::setRowSideWidth(int width)
{
    if (width == rowSideWidth_)
        return;
    rowSideWidth_ = width;
    contentsChanged();
}

ZrSize ZrTableWidget::sizeHint() const
{
    const int line = ZrFontMetrics::lineHeight(font(0));
    return ZrSize(columns().length() + 2 * border(),
                  titleHeight() + HintRows * line * RowFifths / 5 + 2 * border());
}

// --- places ---

// Many changes in a row are arranged once, before the next flush.
void ZrTableWidget::contentsChanged()
{
    viewPort_->update();
    hHeader_->update();
    vHeader_->update();
    if (arrangePosted_)
        return;
    arrangePosted_ = true;
    ZrApplication::postEvent(this, new ZrEvent(ZrEvent::LayoutRequest)); // owned by the queue
}

bool ZrTableWidget::event(ZrEvent *event)
{
    if (event->type() == ZrEvent::LayoutRequest)
        ensureArranged();
    return ZrWidget::event(event);
}

void ZrTableWidget::ensureArranged()
{
    if (arrangePosted_)
        arrange();
}

void ZrTableWidget::arrange()
{
    arrangePosted_ = false;
    if (width() <= 0 || height() <= 0)
        return;
    const int inset = border();
    const ZrRect room = rect().adjusted(inset, inset, -inset, -inset);
    const int title = std::min(titleHeight(), room.height());
    const int side =
        rowSideWidth_ < 0 ? ZrFontMetrics::lineHeight(font(0)) * SideLines : rowSideWidth_;
    hHeader_->setVisible(title > 0);
    vHeader_->setVisible(side > 0);
    hHeader_->setGeometry(ZrRect(room.left() + side, room.top(), room.width() - side, title));
    placeBars(room.adjusted(side, title, 0, 0));
    vHeader_->setGeometry(ZrRect(room.left(), room.top() + title, side, viewPort_->height()));
    placeAllWidgets();
}

// A bar takes room, which may make the other one necessary.
void ZrTableWidget::placeBars(const ZrRect &body)
{
    const int across = ZrScrollBar::defaultThickness(*this);
    bool vertical = false;
    bool horizontal = false;
    ZrSize size;
    for (int round = 0; round < 3; ++round) {
        size = ZrSize(std::max(0, body.width() - (vertical ? across : 0)),
                      std::max(0, body.height() - (horizontal ? across : 0)));
        columns().setRoom(size.width());
        vertical |= rows().length() > size.height();
        horizontal |= columns().length() > size.width();
    }
    viewPort_->setGeometry(ZrRect(body.topLeft(), size));
    vScrollBar_->setGeometry(ZrRect(body.left() + size.width(), body.top(), across, size.height()));
    hScrollBar_->setGeometry(ZrRect(body.left(), body.top() + size.height(), size.width(), across));
    vScrollBar_->setVisible(vertical);
    hScrollBar_->setVisible(horizontal);
    vScrollBar_->setPageStep(size.height());
    hScrollBar_->setPageStep(size.width());
    vScrollBar_->setSingleStep(rows().size(std::max(0, firstRowShown())));
    hScrollBar_->setSingleStep(ZrFontMetrics::lineHeight(font(0)));
    vScrollBar_->setRange(0, std::max(0, rows().length() - size.height()));
    hScrollBar_->setRange(0, std::max(0, columns().length() - size.width()));
}

void ZrTableWidget::adopt(ZrTableWidgetColItem &item)
{
    ZrWidget *widget = item.widget();
    const bool isTitle = item.row()->index() < 0;
    if (widget) {
        ++widgetCount_;
        widget->setParent(isTitle ? static_cast<ZrWidget *>(hHeader_) : viewPort_);
        item.passEnabling();
        if (!widget->isHidden())
            widget->show();
    }
    contentsChanged();
}

void ZrTableWidget::placeRow(int row)
{
    const ZrTableWidgetRowItem *item = existingRow(row);
    if (!item)
        return;
    for (int column = 0; column < columnCount(); ++column) {
        ZrTableWidgetColItem *cell = item->existingCell(column);
        if (!cell || !cell->widget())
            continue;
        const ZrRect place = cellRect(row, column);
        cell->setGeometry(place.left(), place.top(), place.width(), place.height());
        watch(*cell, row >= firstPlaced_ && row <= lastPlaced_);
    }
}

// Only what is in sight can get the focus, and ten thousand filters would be as many connections.
void ZrTableWidget::watch(ZrTableWidgetColItem &cell, bool inSight)
{
    if (inSight == cell.watched_)
        return;
    cell.watched_ = inSight;
    if (inSight)
        cell.widget()->installEventFilter(this);
    else
        cell.widget()->removeEventFilter(this);
}

void ZrTableWidget::placeTitles()
{
    for (int column = 0; column < columnCount(); ++column) {
        ZrTableWidgetColItem *cell = hHeader_->existingCell(column);
        if (!cell || !cell->widget())
            continue;
        const ZrRect place = hHeader_->titleRect(column);
        cell->setGeometry(place.left(), place.top(), place.width(), place.height());
    }
}

void ZrTableWidget::placeAllWidgets()
{
    firstPlaced_ = std::max(0, rowAt(0));
    const int last = rowAt(viewPort_->height() - 1);
    lastPlaced_ = last >= 0 ? last : rowCount() - 1;
    if (widgetCount_ == 0)
        return;
    placeTitles();
    for (int row = 0; row < rowCount(); ++row)
        placeRow(row);
}

// Of the widgets only those move that leave the sight, stay in it or come into it.
void ZrTableWidget::scrolledVertically()
{
    viewPort_->update();
    vHeader_->update();
    const int firstBefore = firstPlaced_;
    const int lastBefore = std::min(lastPlaced_, rowCount() - 1);
    firstPlaced_ = std::max(0, rowAt(0));
    const int last = rowAt(viewPort_->height() - 1);
    lastPlaced_ = last >= 0 ? last : rowCount() - 1;
    if (widgetCount_ == 0)
        return;
    for (int row = firstBefore; row <= lastBefore; ++row)
        if (row < firstPlaced_ || row > lastPlaced_)
            placeRow(row);
    for (int row = firstPlaced_; row <= lastPlaced_; ++row)
        placeRow(row);
}

void ZrTableWidget::scrolledHorizontally()
{
    viewPort_->update();
    hHeader_->update();
    if (widgetCount_ == 0)
        return;
    placeTitles();
    for (int row = 0; row < rowCount(); ++row)
        placeRow(row);
}

ZrRect ZrTableWidget::cellRect(int row, int column) const
{
    if (!isCell(row, column))
        return ZrRect();
    if (const Span *span = spanAt(row, column))
        return spanRect(*span);
    const int left = columns().edge(column) - hScrollBar_->value();
    const int top = rows().edge(row) - vScrollBar_->value();
    return ZrRect(left, top, columns().size(column), rows().size(row));
}

int ZrTableWidget::rowAt(int y) const
{
    const int row = rows().at(y + vScrollBar_->value());
    return row < rowCount() ? row : -1;
}

int ZrTableWidget::columnAt(int x) const
{
    const int column = columns().at(x + hScrollBar_->value());
    return column < columnCount() ? column : -1;
}

void ZrTableWidget::scrollTo(int row, int column, Edge edge)
{
    const auto bring = [edge](ZrScrollBar &bar, int start, int end, int page) {
        const int toStart = start;
        const int toEnd = end - page;
        const int wanted = bar.value();
        int value = edge == Edge::Near ? std::min(std::max(wanted, toEnd), toStart)
                                       : std::max(std::min(wanted, toStart), toEnd);
        bar.setValue(value);
    };
    if (!isCell(row, column) && row != -1)
        return;
    const Span *span = spanAt(row, column);
    const int lastColumn =
        std::min(span ? span->column + span->columns : column + 1, columnCount());
    const ZrGuard<ZrTableWidget> self(this);
    bring(*hScrollBar_, columns().edge(column), columns().edge(lastColumn), viewPort_->width());
    if (!self || row < 0)
        return;
    const int lastRow = std::min(span ? span->row + span->rows : row + 1, rowCount());
    bring(*vScrollBar_, rows().edge(row), rows().edge(lastRow), viewPort_->height());
}

void ZrTableWidget::updateRow(int row)
{
    if (row < 0)
        hHeader_->update();
    else if (row < rowCount())
        viewPort_->update(ZrRect(0, rows().edge(row) - vScrollBar_->value(), viewPort_->width(),
                                 rows().size(row)) &
                          viewPort_->rect());
}

void ZrTableWidget::updateCell(int row, int column)
{
    if (column >= columnCount())
        return; // it has just gone
    if (column < 0 || (row >= 0 && selectionMode_ == SelectRow))
        updateRow(row);
    else if (row < 0)
        hHeader_->update(hHeader_->titleRect(column));
    else
        viewPort_->update(cellRect(row, column) & viewPort_->rect());
}

void ZrTableWidget::resizeEvent(ZrResizeEvent *)
{
    arrange();
}

void ZrTableWidget::styleChanged()
{
    ZrWidget::styleChanged();
    setDefaultSizes();
    contentsChanged();
}

void ZrTableWidget::setFont(const ZrFont &font, int index)
{
    ZrWidget::setFont(font, index);
    setDefaultSizes();
    contentsChanged();
}
