#include "explorer.h"

#include "widgets/zrdesktop.h"

#include <algorithm>
#include <deque>

namespace
{

constexpr int MostInside = 40; // presses of one arrow within a list
constexpr int MostSteps = 5000;

} // namespace

const ZrWidget *Explorer::place()
{
    return ZrDesktop::focusWidget();
}

const ZrWidget *Explorer::press(int direction)
{
    const ZrWidget *from = place();
    for (int i = 0; i < MostInside && place() == from; ++i) {
        navigation_.arrow(Direction(direction));
        screen_.settle();
    }
    return place();
}

Explorer::Ways &Explorer::waysOf(const ZrWidget *widget)
{
    const auto found = ways_.find(widget);
    if (found != ways_.end())
        return found->second;
    Ways &ways = ways_[widget];
    ways.fill(nullptr);
    if (widget == home_)
        ways[int(Direction::Up)] = ways[int(Direction::Down)] = home_;
    return ways;
}

bool Explorer::isDone(const ZrWidget *widget) const
{
    const auto found = ways_.find(widget);
    return found != ways_.end() && std::all_of(found->second.begin(), found->second.end(),
                                               [](const ZrWidget *to) { return to != nullptr; });
}

int Explorer::wayTo(const ZrWidget *from, const std::function<bool(const ZrWidget *)> &wanted) const
{
    std::map<const ZrWidget *, int> firstArrow{{from, -1}};
    std::deque<const ZrWidget *> waiting{from};
    for (; !waiting.empty(); waiting.pop_front()) {
        const ZrWidget *at = waiting.front();
        const auto known = ways_.find(at);
        if (known == ways_.end())
            continue;
        for (int direction = 0; direction < Directions; ++direction) {
            const ZrWidget *to = known->second[std::size_t(direction)];
            if (!to || firstArrow.count(to))
                continue;
            firstArrow[to] = at == from ? direction : firstArrow[at];
            if (wanted(to))
                return firstArrow[to];
            waiting.push_back(to);
        }
    }
    return -1;
}

bool Explorer::explore(const std::function<void(ZrWidget *)> &arrived)
{
    for (int step = 0; step < MostSteps; ++step) {
        const ZrWidget *at = place();
        if (!at)
            return false;
        if (!hasReached(at)) {
            waysOf(at);
            arrived(const_cast<ZrWidget *>(at));
            continue;
        }
        Ways &ways = waysOf(at);
        const auto untried = std::find(ways.begin(), ways.end(), nullptr);
        int direction = int(untried - ways.begin());
        if (untried == ways.end())
            direction = wayTo(at, [this](const ZrWidget *to) { return !isDone(to); });
        if (direction < 0)
            return true;
        waysOf(at)[std::size_t(direction)] = press(direction);
    }
    return false;
}

bool Explorer::walkHome()
{
    for (int step = 0; step < MostSteps && place() != home_; ++step) {
        const ZrWidget *at = place();
        const int direction = wayTo(at, [this](const ZrWidget *to) { return to == home_; });
        if (direction < 0)
            return false;
        waysOf(at)[std::size_t(direction)] = press(direction);
    }
    return place() == home_;
}
