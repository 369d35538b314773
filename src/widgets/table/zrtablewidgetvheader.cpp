#include <zrtablewidgetvheader>

#include "widgets/table/tableaxis.h"

#include <algorithm>
#include <zrpainter>
#include <zrscrollbar>
#include <zrtablewidget>

ZrTableWidgetVHeader::ZrTableWidgetVHeader(ZrTableWidget *table)
    : ZrWidget(table), owner_(*table), axis_(std::make_unique<TableAxis>())
{
}

ZrTableWidgetVHeader::~ZrTableWidgetVHeader() = default;

int ZrTableWidgetVHeader::rowCount() const
{
    return axis_->count();
}

const ZrVector<int> &ZrTableWidgetVHeader::rowEdges() const
{
    return axis_->edges();
}

void ZrTableWidgetVHeader::paintEvent(ZrPaintEvent *event)
{
    const ZrTableOption &group = owner_.style().table();
    ZrPainter painter(this);
    if (const ZrColor *color = group.colors.get(Zr::TableTitleBackground))
        painter.fillRect(rect(), *color);
    const int offset = owner_.vScrollBar()->value();
    for (int row = std::max(0, axis_->at(offset)); row < rowCount(); ++row) {
        const ZrRect place(0, axis_->edge(row) - offset, width(), axis_->size(row));
        if (place.top() >= height())
            break;
        if (place.isEmpty() || !event->region().intersects(place))
            continue;
        paintRow(painter, row, place);
        if (const ZrColor *color = group.colors.get(Zr::TableGrid))
            painter.fillRect(ZrRect(0, place.bottom(), width(), 1), *color);
    }
}

void ZrTableWidgetVHeader::paintRow(ZrPainter &painter, int row, const ZrRect &place)
{
    ZrTableWidgetRowItem *item = owner_.existingRow(row);
    if (item && !item->text().isEmpty()) {
        item->setGeometry(place.left(), place.top(), place.width(), place.height());
        item->paint(painter);
    } else if (const ZrColor *color = owner_.style().table().colors.get(Zr::TableTitleForeground)) {
        painter.setFont(owner_.font(0));
        painter.setPen(*color);
        painter.drawText(place, Zr::AlignCenter, ZrString("%1").arg(row + 1));
    }
}
