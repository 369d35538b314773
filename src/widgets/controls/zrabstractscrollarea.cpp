#include <zrabstractscrollarea>

#include <algorithm>
#include <zrscrollbar>

// Hands what it gets to its owner first.
class ZrAbstractScrollArea::Viewport : public ZrWidget
{
public:
    explicit Viewport(ZrAbstractScrollArea *owner) : ZrWidget(owner), owner_(*owner) {}

    bool event(ZrEvent *event) override
    {
        return owner_.viewportEvent(event) || ZrWidget::event(event);
    }

private:
    ZrAbstractScrollArea &owner_; // and parent
};

ZrAbstractScrollArea::ZrAbstractScrollArea(ZrWidget *parent)
    : ZrFrame(parent),
      viewport_(new Viewport(this)),                     // a child
      vertical_(new ZrScrollBar(Zr::Vertical, this)),    // a child
      horizontal_(new ZrScrollBar(Zr::Horizontal, this)) // a child
{
    viewport_->setObjectName(ZrString("zr_scrollarea_viewport"));
    for (ZrScrollBar *bar : {vertical_, horizontal_}) {
        bar->hide();
        bar->setRange(0, 0);
        connect(bar, &bar->valueChanged, this, zrSlot<&ZrAbstractScrollArea::scrolled>);
    }
}

void ZrAbstractScrollArea::setVerticalScrollBarPolicy(ScrollBarPolicy policy)
{
    if (policy == verticalPolicy_)
        return;
    verticalPolicy_ = policy;
    arrange();
}

void ZrAbstractScrollArea::setHorizontalScrollBarPolicy(ScrollBarPolicy policy)
{
    if (policy == horizontalPolicy_)
        return;
    horizontalPolicy_ = policy;
    arrange();
}

void ZrAbstractScrollArea::styleChanged()
{
    ZrFrame::styleChanged();
    arrange();
}

bool ZrAbstractScrollArea::viewportEvent(ZrEvent *)
{
    return false;
}

ZrSize ZrAbstractScrollArea::contentsSize(const ZrSize &viewport) const
{
    return viewport;
}

int ZrAbstractScrollArea::frameInset() const
{
    return frameWidth();
}

void ZrAbstractScrollArea::arrange()
{
    if (arranging_ || width() <= 0 || height() <= 0)
        return;
    arranging_ = true;
    const int inset = frameInset();
    const ZrRect room = rect().adjusted(inset, inset, -inset, -inset);
    const int across = ZrScrollBar::defaultThickness(*this);
    bool needsVertical = verticalPolicy_ == AlwaysOn;
    bool needsHorizontal = horizontalPolicy_ == AlwaysOn;
    ZrSize size;
    ZrSize total;
    // A bar takes room, which may make the other one necessary.
    for (int round = 0; round < 3; ++round) {
        size = ZrSize(std::max(0, room.width() - (needsVertical ? across : 0)),
                      std::max(0, room.height() - (needsHorizontal ? across : 0)));
        total = contentsSize(size);
        needsVertical |= verticalPolicy_ == AsNeeded && total.height() > size.height();
        needsHorizontal |= horizontalPolicy_ == AsNeeded && total.width() > size.width();
    }
    viewport_->setGeometry(ZrRect(room.topLeft(), size));
    vertical_->setGeometry(ZrRect(room.left() + size.width(), room.top(), across, size.height()));
    horizontal_->setGeometry(ZrRect(room.left(), room.top() + size.height(), size.width(), across));
    vertical_->setVisible(needsVertical);
    horizontal_->setVisible(needsHorizontal);
    fitScrollBar(vertical_, size.height(), total.height());
    fitScrollBar(horizontal_, size.width(), total.width());
    arranging_ = false;
    viewportResized();
}

void ZrAbstractScrollArea::fitScrollBar(ZrScrollBar *bar, int page, int total)
{
    bar->setPageStep(page);
    bar->setRange(0, std::max(0, total - page));
}

void ZrAbstractScrollArea::resizeEvent(ZrResizeEvent *)
{
    arrange();
}

void ZrAbstractScrollArea::wheelEvent(ZrWheelEvent *event)
{
    ZrScrollBar *bar = vertical_->maximum() > 0 ? vertical_ : horizontal_;
    event->setAccepted(bar->maximum() > 0);
    if (event->isAccepted() && event->delta() != 0)
        bar->setValue(bar->value() + (event->delta() > 0 ? -bar->singleStep() : bar->singleStep()));
}
