#include "ui/input/keynavigation.h"

#include "ui/controls/cwidget.h"
#include "widgets/zrdesktop.h"

#include <algorithm>
#include <zrabstractscrollarea>
#include <zrapplication>
#include <zrlistwidget>
#include <zrscrollbar>
#include <zrtablewidget>

namespace
{

using Direction = KeyNavigation::Direction;

constexpr int Step = 15; // pixels between two points of the search
constexpr int Edge = 10; // pixels of the window's rim that are not searched
constexpr int BesideLeft = 5;
constexpr int BesideRight = 10;

// Widgets that can have the focus of the keys.
const char *const Takers[] = {
    "ZrAbstractButton", "ZrComboBox",   "ZrInnerListWidget", "ZrLineEdit",
    "ZrGroupBox",       "ZrDateEdit",   "ZrTextEdit",        "ZrAbstractSlider",
    "ZrSpinBox",        "ZrListWidget", "ZrTableWidget",     "CWidget",
};

// Widgets that walk among parts of their own.
const char *const Walkers[] = {"ZrTableWidget", "ZrListWidget", "ZrInnerListWidget", "CWidget"};

// Widgets that change a value by arrows, between Enter and Enter.
const char *const Adjusters[] = {"ZrAbstractSlider", "ZrSpinBox"};

// Widgets whose cells or rows hold other widgets: a search from inside stays inside.
const char *const Holders[] = {"ZrTableWidget", "ZrListWidget"};

template <std::size_t Count>
bool isOneOf(const ZrWidget *widget, const char *const (&classes)[Count])
{
    return std::any_of(std::begin(classes), std::end(classes),
                       [widget](const char *name) { return widget->inherits(name); });
}

int keyOf(Direction direction)
{
    switch (direction) {
    case Direction::Up:
        return Zr::Key_Up;
    case Direction::Down:
        return Zr::Key_Down;
    case Direction::Left:
        return Zr::Key_Left;
    default:
        return Zr::Key_Right;
    }
}

bool offerToComposite(CWidget *widget, Direction direction)
{
    switch (direction) {
    case Direction::Up:
        return widget->upKey();
    case Direction::Down:
        return widget->downKey();
    case Direction::Left:
        return widget->leftKey();
    default:
        return widget->rightKey();
    }
}

ZrWidget *holderOf(const ZrWidget *widget)
{
    for (ZrWidget *up = widget->parentWidget(); up; up = up->parentWidget())
        if (isOneOf(up, Holders))
            return up;
    return nullptr;
}

} // namespace

void KeyNavigation::arrow(Direction direction)
{
    recomputeFocus();
    if (!focus_ || offerArrow(direction) || scrollTowards(direction))
        return;
    moveFocus(direction);
}

void KeyNavigation::enter()
{
    recomputeFocus();
    if (!focus_)
        return;
    if (isOneOf(focus_.get(), Adjusters)) {
        editing_ = !editing_;
        return;
    }
    if (auto *composite = dynamic_cast<CWidget *>(focus_.get()))
        composite->clickKey();
    else
        send(focus_.get(), Zr::Key_Enter);
}

void KeyNavigation::key(int key)
{
    recomputeFocus();
    ZrWidget *target = focus_ ? focus_.get() : topWindow();
    if (target)
        send(target, key);
}

void KeyNavigation::text(const ZrString &text)
{
    recomputeFocus();
    if (focus_)
        send(focus_.get(), 0, text);
}

ZrWidget *KeyNavigation::topWindow() const
{
    ZrWidget *popup = ZrDesktop::activePopup();
    return popup ? popup : ZrDesktop::activeWindow();
}

void KeyNavigation::recomputeFocus()
{
    ZrWidget *window = topWindow();
    ZrWidget *holder = ZrDesktop::focusWidget();
    const bool moved = window != window_.get() || holder != focus_.get();
    window_ = window;
    if (!moved && focus_ && focus_->isVisible() && focus_->isEnabled())
        return;
    editing_ = false;
    const bool usable = holder && window && window->isAncestorOf(holder) && holder->isVisible() &&
                        holder->isEnabled() && isOneOf(holder, Takers);
    focus_ = usable ? holder : nullptr;
    if (usable)
        editing_ = isOneOf(holder, Walkers);
    else if (window)
        focusFirst();
}

bool KeyNavigation::focusFirst()
{
    for (int y = Edge; y < window_->height(); y += Step)
        for (int x = Edge; x < window_->width(); x += Step)
            if (tryFocusAt(ZrPoint(x, y)))
                return true;
    return false;
}

ZrWidget *KeyNavigation::takerAt(const ZrPoint &point) const
{
    for (ZrWidget *widget = window_->childAt(point); widget; widget = widget->parentWidget()) {
        if (isOneOf(widget, Takers) && widget->focusPolicy() != ZrWidget::NoFocus)
            return widget;
        if (widget == window_.get())
            break;
    }
    return nullptr;
}

bool KeyNavigation::tryFocusAt(const ZrPoint &point, Side side)
{
    ZrWidget *widget = takerAt(point);
    if (!widget || widget == focus_.get() || !widget->isVisible() || !widget->isEnabled())
        return false;
    if (side != Side::Any) {
        const int middle = focusPlace().center().y();
        const ZrRect place = inWindow(widget);
        if (side == Side::Above ? place.bottom() >= middle : place.top() <= middle)
            return false;
    }
    const ZrGuard<ZrWidget> guard(widget);
    widget->setFocus(Zr::KeyManagerFocus);
    if (!guard || !widget->hasFocus())
        return false;
    focus_ = widget;
    editing_ = isOneOf(widget, Walkers);
    if (auto *composite = dynamic_cast<CWidget *>(widget)) {
        const ZrRect place = inWindow(widget);
        composite->focusIn(ZrPoint(point.x() - place.left(), point.y() - place.top()));
    }
    return true;
}

bool KeyNavigation::offerArrow(Direction direction)
{
    if (!editing_)
        return false;
    if (auto *composite = dynamic_cast<CWidget *>(focus_.get()))
        return offerToComposite(composite, direction);
    if (auto *table = dynamic_cast<ZrTableWidget *>(focus_.get()))
        return offerToTable(table, keyOf(direction));
    return send(focus_.get(), keyOf(direction));
}

// A table takes every arrow; one that moves nothing there leads out of it.
bool KeyNavigation::offerToTable(ZrTableWidget *table, int key)
{
    const int row = table->currentRow();
    const int column = table->currentColumn();
    const ZrGuard<ZrTableWidget> guard(table);
    const bool taken = send(table, key);
    return taken && (!guard || table->currentRow() != row || table->currentColumn() != column);
}

// What lies beyond the visible part of a scroll area cannot be found until it has been scrolled to.
bool KeyNavigation::scrollTowards(Direction direction)
{
    const bool along = direction == Direction::Left || direction == Direction::Right;
    for (ZrWidget *up = focus_->parentWidget(); up; up = up->parentWidget()) {
        auto *area = dynamic_cast<ZrAbstractScrollArea *>(up);
        if (!area || isOneOf(up, Holders))
            continue;
        ZrScrollBar *bar = along ? area->horizontalScrollBar() : area->verticalScrollBar();
        const bool back = direction == Direction::Left || direction == Direction::Up;
        const ZrGuard<ZrWidget> before(focus_.get());
        while (bar->value() != (back ? bar->minimum() : bar->maximum())) {
            if (moveFocus(direction) && up->isAncestorOf(focus_.get()))
                return true;
            if (before.get() != focus_.get() && before)
                focus_ = before.get();
            bar->setValue(bar->value() + (back ? -bar->singleStep() : bar->singleStep()));
        }
        return false;
    }
    return false;
}

bool KeyNavigation::moveFocus(Direction direction)
{
    const ZrRect area = bounds();
    const ZrRect from = focusPlace();
    bool found = false;
    switch (direction) {
    case Direction::Right:
        found = searchAlong(area, from, Step) || searchBesideAbove(area, from, Step);
        break;
    case Direction::Left:
        found = searchAlong(area, from, -Step) || searchBesideAbove(area, from, -Step);
        break;
    case Direction::Down:
        found = searchAcross(area, from, Step, Side::Below) ||
                searchAcross(area, from, Step, Side::Any);
        break;
    case Direction::Up:
        found = searchAcross(area, from, -Step, Side::Above) ||
                searchAcross(area, from, -Step, Side::Any);
        break;
    }
    if (found)
        return true;
    // Out of the cells of a table the way leads through the table itself.
    ZrWidget *holder = holderOf(focus_.get());
    if (!holder || holder->focusPolicy() == ZrWidget::NoFocus)
        return false;
    holder->setFocus(Zr::KeyManagerFocus);
    focus_ = holder;
    editing_ = true;
    return true;
}

ZrRect KeyNavigation::bounds() const
{
    const ZrWidget *holder = holderOf(focus_.get());
    return holder ? inWindow(holder)
                  : ZrRect::fromEdges(Edge, Edge, window_->width() - 1 - Edge,
                                      window_->height() - 1 - Edge);
}

// Along the row of the focus, then row by row.
bool KeyNavigation::searchAlong(const ZrRect &area, const ZrRect &from, int step)
{
    const bool right = step > 0;
    int x = right ? from.right() + BesideRight : from.left() - BesideLeft;
    for (int y = from.center().y(); y >= area.top() && y <= area.bottom(); y += step) {
        for (; x >= area.left() && x <= area.right(); x += step)
            if (tryFocusAt(ZrPoint(x, y)))
                return true;
        x = right ? area.left() : area.right();
    }
    return false;
}

// Nothing beside or below: what stands beside, in the rows above, from the nearest one on.
bool KeyNavigation::searchBesideAbove(const ZrRect &area, const ZrRect &from, int step)
{
    const int begin = step > 0 ? from.right() + BesideRight : from.left() - BesideLeft;
    for (int y = from.center().y() - Step; y >= area.top(); y -= Step)
        for (int x = begin; x >= area.left() && x <= area.right(); x += step)
            if (tryFocusAt(ZrPoint(x, y)))
                return true;
    return false;
}

// Row by row, in each row widening from the middle of the focus.
bool KeyNavigation::searchAcross(const ZrRect &area, const ZrRect &from, int step, Side side)
{
    const int middle = from.center().x();
    int y = step > 0 ? from.bottom() + Edge : from.top() - Edge;
    for (; y >= area.top() && y <= area.bottom(); y += step) {
        for (int away = 0; middle - away >= area.left() || middle + away <= area.right();
             away += Step) {
            if (middle + away <= area.right() && tryFocusAt(ZrPoint(middle + away, y), side))
                return true;
            if (middle - away >= area.left() && tryFocusAt(ZrPoint(middle - away, y), side))
                return true;
        }
    }
    return false;
}

// Of a list, the row that has the ring.
ZrRect KeyNavigation::focusPlace() const
{
    const ZrRect whole = inWindow(focus_.get());
    const auto *list = dynamic_cast<const ZrListWidget *>(focus_.get());
    if (!list || list->currentRow() < 0)
        return whole;
    const ZrRect row = list->rowRect(list->currentRow()).translated(0, whole.top()) & whole;
    return row.isEmpty() ? whole
                         : ZrRect::fromEdges(whole.left(), row.top(), whole.right(), row.bottom());
}

ZrRect KeyNavigation::inWindow(const ZrWidget *widget) const
{
    return ZrRect(widget->mapToWindow(ZrPoint(0, 0)), widget->size());
}

bool KeyNavigation::send(ZrWidget *widget, int key, const ZrString &text)
{
    ZrKeyEvent event(ZrEvent::KeyPress, key, text);
    while (widget) {
        const ZrGuard<ZrWidget> guard(widget);
        event.ignore();
        ZrApplication::notify(widget, &event);
        if (event.isAccepted() || !guard || widget->isWindow())
            break;
        widget = widget->parentWidget();
    }
    return event.isAccepted();
}
