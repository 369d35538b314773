// Finds out where arrows lead, as a person would who has nothing else: it stands somewhere, tries
// the arrows that it has not tried there yet, and walks back to places that are not done.
#pragma once

#include "support/virtualscreen.h"
#include "ui/input/keynavigation.h"

#include <array>
#include <functional>
#include <map>
#include <zrwidget>

class Explorer
{
public:
    // `home` is where it begins and where it must come back to; its Up and Down are not tried.
    Explorer(KeyNavigation &navigation, zrtest::VirtualScreen &screen, const ZrWidget *home)
        : navigation_(navigation), screen_(screen), home_(home)
    {
    }

    // Until every arrow has been tried everywhere; calls `arrived` at each new place. False when it
    // took too many steps.
    bool explore(const std::function<void(ZrWidget *)> &arrived);
    // False when no way leads there.
    bool walkHome();
    bool hasReached(const ZrWidget *widget) const { return ways_.count(widget) > 0; }

private:
    using Direction = KeyNavigation::Direction;
    static constexpr int Directions = 4;
    using Ways = std::array<const ZrWidget *, Directions>; // null: not tried

    static const ZrWidget *place();
    // Until the focus moves, or nothing more happens inside; returns where it is then.
    const ZrWidget *press(int direction);
    Ways &waysOf(const ZrWidget *widget);
    bool isDone(const ZrWidget *widget) const;
    // The first arrow of the shortest known way to a place that is wanted; -1: none.
    int wayTo(const ZrWidget *from, const std::function<bool(const ZrWidget *)> &wanted) const;

    KeyNavigation &navigation_;
    zrtest::VirtualScreen &screen_;
    const ZrWidget *home_;
    std::map<const ZrWidget *, Ways> ways_;
};
