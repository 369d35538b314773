// The scroll area of the screens: what gets the focus inside it is scrolled into sight.
#pragma once

#include <zrscrollarea>

class ScrollArea : public ZrScrollArea
{
    ZR_OBJECT(ScrollArea, ZrScrollArea)
public:
    explicit ScrollArea(ZrWidget *parent = nullptr);

    bool eventFilter(ZrObject *watched, ZrEvent *event) override;

protected:
    // No ground of its own: the screen's shows.
    void paintEvent(ZrPaintEvent *) override {}
};
