#include <zrscrollarea>

#include <algorithm>
#include <zrfontmetrics>
#include <zrscrollbar>

namespace
{

// Lines of text that a notch of the wheel scrolls.
constexpr int WheelLines = 3;

// The bar's value after which first..last lie in a page of it, changed as little as possible.
int valueToShow(const ZrScrollBar &bar, int first, int last)
{
    int value = bar.value();
    if (last >= value + bar.pageStep())
        value = last - bar.pageStep() + 1;
    return std::min(value, first);
}

} // namespace

ZrScrollArea::ZrScrollArea(ZrWidget *parent) : ZrAbstractScrollArea(parent)
{
    const int step = ZrFontMetrics::lineHeight(font(0)) * WheelLines;
    verticalScrollBar()->setSingleStep(step);
    horizontalScrollBar()->setSingleStep(step);
}

void ZrScrollArea::setWidget(ZrWidget *widget)
{
    if (widget == widget_.get())
        return;
    delete widget_.get();
    widget_ = widget;
    if (widget) {
        widget->setParent(viewport());
        widget->installEventFilter(this);
        if (widget->width() <= 0 || widget->height() <= 0)
            widget->adjustSize();
        widget->show();
    }
    arrange();
}

void ZrScrollArea::setWidgetResizable(bool resizable)
{
    if (resizable == widgetResizable_)
        return;
    widgetResizable_ = resizable;
    arrange();
}

void ZrScrollArea::ensureVisible(const ZrWidget *child)
{
    if (!widget_ || !child || !widget_->isAncestorOf(child))
        return;
    ZrRect place(ZrPoint(0, 0), child->size());
    for (const ZrWidget *step = child; step != widget_.get(); step = step->parentWidget())
        place.translate(step->pos());
    ZrScrollBar &vertical = *verticalScrollBar();
    ZrScrollBar &horizontal = *horizontalScrollBar();
    vertical.setValue(valueToShow(vertical, place.top(), place.bottom()));
    horizontal.setValue(valueToShow(horizontal, place.left(), place.right()));
}

ZrSize ZrScrollArea::sizeHint() const
{
    return widget_ ? widget_->sizeHint() : ZrFrame::sizeHint();
}

bool ZrScrollArea::eventFilter(ZrObject *watched, ZrEvent *event)
{
    if (event->type() == ZrEvent::Resize && watched == widget_.get())
        arrange();
    return false;
}

// A layout request of the widget arrives here: the viewport has no layout.
bool ZrScrollArea::viewportEvent(ZrEvent *event)
{
    if (event->type() == ZrEvent::LayoutRequest)
        arrange();
    return false;
}

ZrSize ZrScrollArea::contentsSize(const ZrSize &viewport) const
{
    if (!widget_)
        return viewport;
    if (!widgetResizable_)
        return widget_->size();
    const int width = std::max(viewport.width(), widget_->minimumSizeHint().width());
    const int height = widget_->hasHeightForWidth() ? widget_->heightForWidth(width)
                                                    : widget_->sizeHint().height();
    return ZrSize(width, std::max(viewport.height(), height));
}

void ZrScrollArea::viewportResized()
{
    placeWidget();
}

void ZrScrollArea::scrolled()
{
    placeWidget();
}

void ZrScrollArea::placeWidget()
{
    if (!widget_)
        return;
    const ZrPoint at(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    if (widgetResizable_)
        widget_->setGeometry(ZrRect(at, contentsSize(viewport()->size())));
    else
        widget_->move(at);
}
