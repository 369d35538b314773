// Moves the keyboard focus over whatever is on the screen, so that every window works without a
// mouse, and hands keys to the widget that has it.
//
// There is no order of widgets: a move searches the window, point by point, in the direction of the
// arrow, and the nearest widget that takes keys wins. A tall widget beside the focus, such as a
// menu of pages, wins against Up and Down only when nothing lies that way. Some widgets use the
// arrows themselves while they are being edited: tables, lists and composite widgets from when they
// get the focus, until an arrow moves nothing in them any more; sliders and spin boxes between one
// Enter and the next. Widget thread only.
#pragma once

#include <zrguard>
#include <zrwidget>

class ZrTableWidget;

class KeyNavigation
{
public:
    enum class Direction { Up, Down, Left, Right };

    // Each key works on the window in front: the active popup, or else the active window.
    void arrow(Direction direction);
    void enter();
    void key(int key); // Escape and Backspace
    void text(const ZrString &text);

    // False when there is nothing in that direction; the focus then stays.
    bool moveFocus(Direction direction);
    // Whether the focused widget uses the arrows itself.
    bool isEditing() const { return editing_; }

private:
    ZrWidget *topWindow() const;
    void recomputeFocus();
    bool focusFirst();
    // Which widgets may win: all, or those that lie wholly above or below the focus's middle.
    enum class Side { Any, Above, Below };
    bool tryFocusAt(const ZrPoint &inWindow, Side side = Side::Any);
    ZrWidget *takerAt(const ZrPoint &inWindow) const;
    bool offerArrow(Direction direction);
    static bool offerToTable(ZrTableWidget *table, int key);
    bool scrollTowards(Direction direction);
    ZrRect bounds() const;
    bool searchAlong(const ZrRect &bounds, const ZrRect &focus, int step);
    bool searchAcross(const ZrRect &bounds, const ZrRect &focus, int step, Side side);
    bool searchBesideAbove(const ZrRect &bounds, const ZrRect &focus, int step);
    ZrRect focusPlace() const;
    ZrRect inWindow(const ZrWidget *widget) const;
    // Sends the key to the widget and, while nobody accepts it, to its parents.
    static bool send(ZrWidget *widget, int key, const ZrString &text = ZrString());

    ZrGuard<ZrWidget> window_;
    ZrGuard<ZrWidget> focus_;
    bool editing_ = false;
};
