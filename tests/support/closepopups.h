// What a test leaves open, so that nothing outlives its screen.
#pragma once

#include "support/virtualscreen.h"
#include "widgets/zrdesktop.h"

#include <zrwidget>

namespace zrtest
{

inline void closePopups(VirtualScreen &screen)
{
    for (ZrWidget *popup = ZrDesktop::activePopup(); popup && popup->close();
         popup = ZrDesktop::activePopup())
        screen.settle(); // deletes it, where it deletes itself
}

} // namespace zrtest
