#include <zrtablewidgetcolitem>

#include "widgets/table/naturalorder.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrpainter>
#include <zrtablewidget>

namespace
{

// Room before and behind a text, in quarters of a line: the widget's neighbours must not touch it.
constexpr int PaddingQuarters = 2;

// Of a cell that has no size: out of the view port, so that nobody sees or hits the widget.
const ZrRect Parked(-4, -4, 1, 1);

// Pixels of a margin in 255ths.
int marginPixels(int margin, int length)
{
    return int(margin * (length / 255.0));
}

bool keepsHint(ZrSizePolicy::Policy policy)
{
    return policy == ZrSizePolicy::Fixed || policy == ZrSizePolicy::Minimum;
}

} // namespace

ZrTableWidgetColItem::ZrTableWidgetColItem(const ZrString &text) : text_(text) {}

ZrTableWidgetColItem::~ZrTableWidgetColItem()
{
    releaseWidget();
}

ZrTableWidget *ZrTableWidgetColItem::table() const
{
    return row_ ? row_->table_ : nullptr;
}

void ZrTableWidgetColItem::changed()
{
    if (ZrTableWidget *owner = table())
        owner->updateCell(row_->index(), column_);
}

// --- contents ---

void ZrTableWidgetColItem::setText(const ZrString &text)
{
    if (text == text_)
        return;
    text_ = text;
    changed();
}

ZrString ZrTableWidgetColItem::text() const
{
    return text_;
}

void ZrTableWidgetColItem::releaseWidget()
{
    if (!widget_)
        return;
    ZrWidget *released = widget_.get();
    widget_ = nullptr;
    // It may be the sender of the signal that makes it go.
    released->hide();
    released->deleteLater();
}

void ZrTableWidgetColItem::setWidget(ZrWidget *widget)
{
    if (widget == widget_.get())
        return;
    releaseWidget();
    widget_ = widget;
    watched_ = false;
    if (ZrTableWidget *owner = table())
        owner->adopt(*this);
}

ZrWidget *ZrTableWidgetColItem::widget() const
{
    return widget_.get();
}

void ZrTableWidgetColItem::setEnabled(bool enabled)
{
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    passEnabling();
    changed();
}

void ZrTableWidgetColItem::passEnabling()
{
    if (widget_)
        widget_->setEnabled(enabled_ && (!row_ || row_->enabled_));
}

int ZrTableWidgetColItem::state() const
{
    const ZrTableWidget *owner = table();
    const int flags = owner ? owner->cellState(row_->index(), column_) : 0;
    return enabled_ ? flags : flags | Disabled;
}

// --- look ---

int ZrTableWidgetColItem::styleIndex(int state)
{
    for (int bit = 3; bit >= 0; --bit)
        if (state & 1 << bit)
            return bit + 1;
    return 0;
}

ZrTableCellStyle &ZrTableWidgetColItem::style()
{
    if (!style_)
        style_ = std::make_shared<ZrTableCellStyle>();
    else if (style_.use_count() > 1)
        style_ = std::make_shared<ZrTableCellStyle>(*style_);
    return *style_;
}

int ZrTableWidgetColItem::styles(const ZrTableCellStyle *(&found)[3]) const
{
    int count = 0;
    if (style_)
        found[count++] = style_.get();
    if (row_ && row_ != this && row_->style_)
        found[count++] = row_->style_.get();
    if (const ZrTableWidget *owner = table())
        found[count++] = &owner->cellStyle();
    return count;
}

void ZrTableWidgetColItem::setAlignment(int alignment)
{
    style().alignment.set(0, alignment);
    changed();
}

int ZrTableWidgetColItem::alignment() const
{
    const int *own = pick(&ZrTableCellStyle::alignment);
    return own ? *own : Zr::AlignLeft | Zr::AlignVCenter;
}

void ZrTableWidgetColItem::setMargin(const ZrSides &margin)
{
    style().margin.set(0, margin);
    if (ZrTableWidget *owner = table())
        owner->contentsChanged();
}

ZrSides ZrTableWidgetColItem::margin() const
{
    const ZrSides *own = pick(&ZrTableCellStyle::margin);
    return own ? *own : ZrSides();
}

ZrColor ZrTableWidgetColItem::foreground() const
{
    const int flags = state();
    const ZrTableOption &group = table()->ZrWidget::style().table();
    if (const ZrColor *own = pick(&ZrTableCellStyle::foreground))
        return *own;
    const int part = flags & Disabled    ? Zr::TableCellForegroundDisabled
                     : row_->index() < 0 ? Zr::TableTitleForeground
                     : flags & Selected  ? Zr::TableCurrentForeground
                                         : Zr::TableCellForeground;
    for (const int entry : {part, int(Zr::TableCellForeground)})
        if (const ZrColor *color = group.colors.get(entry))
            return *color;
    return ZrColor(255, 255, 255);
}

ZrFont ZrTableWidgetColItem::textFont() const
{
    const ZrFont *own = pick(&ZrTableCellStyle::font);
    return own ? *own : table()->font(0);
}

// --- geometry ---

void ZrTableWidgetColItem::setGeometry(int x, int y, int w, int h)
{
    if (w <= 0 || h <= 0) {
        rect_ = ZrRect(x, y, 0, 0);
        if (widget_)
            widget_->setGeometry(Parked);
        return;
    }
    const ZrSides kept = margin();
    rect_ = ZrRect::fromEdges(x + marginPixels(kept.left, w), y + marginPixels(kept.top, h),
                              x + w - 1 - marginPixels(kept.right, w),
                              y + h - 1 - marginPixels(kept.bottom, h));
    if (widget_)
        widget_->setGeometry(placedWidget(rect_));
}

ZrRect ZrTableWidgetColItem::placedWidget(const ZrRect &room) const
{
    const ZrSize least = widget_->minimumSize();
    if (room.width() < least.width() && room.height() < least.height())
        return room;
    const ZrSize hint = widget_->sizeHint();
    const ZrSizePolicy policy = widget_->sizePolicy();
    const bool ownWidth = keepsHint(policy.horizontal()) && hint.width() >= 0;
    const bool ownHeight = keepsHint(policy.vertical()) && hint.height() >= 0;
    const int width = ownWidth ? std::max(hint.width(), least.width()) : room.width();
    const int height = ownHeight ? std::max(hint.height(), least.height()) : room.height();
    const int align = alignment();
    const int freeX = std::max(0, room.width() - width);
    const int freeY = std::max(0, room.height() - height);
    const int x = align & Zr::AlignHCenter ? freeX / 2 : align & Zr::AlignRight ? freeX : 0;
    const int y = align & Zr::AlignVCenter ? freeY / 2 : align & Zr::AlignBottom ? freeY : 0;
    return ZrRect(room.left() + x, room.top() + y, width, height);
}

// --- painting ---

void ZrTableWidgetColItem::paintBorder(ZrPainter &painter) const
{
    const ZrSides *width = pick(&ZrTableCellStyle::borderWidth);
    const ZrColor *color = table()->ZrWidget::style().table().colors.get(Zr::TableGrid);
    if (!width || !color)
        return;
    const ZrRect &box = rect_;
    painter.fillRect(ZrRect(box.left(), box.top(), box.width(), width->top), *color);
    painter.fillRect(ZrRect(box.left(), box.top(), width->left, box.height()), *color);
    painter.fillRect(
        ZrRect(box.left(), box.bottom() - width->bottom + 1, box.width(), width->bottom), *color);
    painter.fillRect(ZrRect(box.right() - width->right + 1, box.top(), width->right, box.height()),
                     *color);
}

void ZrTableWidgetColItem::paint(ZrPainter &painter)
{
    if (!table())
        return;
    paintBorder(painter);
    const ZrString shown = text();
    if (shown.isEmpty() || widget_)
        return;
    const ZrFont used = textFont();
    const int *width = pick(&ZrTableCellStyle::width);
    const int padding = width ? *width : ZrFontMetrics::lineHeight(used) * PaddingQuarters / 4;
    const ZrRect room = rect_.adjusted(padding, 0, -padding, 0);
    if (room.isEmpty())
        return;
    painter.setFont(used);
    painter.setPen(foreground());
    painter.drawText(room, alignment(), ZrFontMetrics::elided(shown, used, room.width()));
}

bool ZrTableWidgetColItem::sortsBefore(const ZrTableWidgetColItem &other) const
{
    return naturallyBefore(text(), other.text());
}
