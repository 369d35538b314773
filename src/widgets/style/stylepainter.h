// What the painters of ZrStyle share.
#pragma once

#include <zrwidget>

// Prints "Invalid param." and returns false for null.
bool zrIsPaintable(const ZrWidget *widget);

// The widget as the class that the painter is for; null, with the same line, when it is not.
template <typename Control>
Control *zrPaintableAs(ZrWidget *widget)
{
    auto *control = dynamic_cast<Control *>(widget);
    zrIsPaintable(control);
    return control;
}
