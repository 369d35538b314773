#include "widgets/style/stylepainter.h"

#include <cstdio>

bool zrIsPaintable(const ZrWidget *widget)
{
    if (!widget)
        std::puts("Invalid param.");
    return widget != nullptr;
}
