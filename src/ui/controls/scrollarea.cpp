#include "ui/controls/scrollarea.h"

#include "ui/scale.h"

#include <zrapplication>
#include <zrscrollbar>
#include <zrwidgetevent>

namespace
{

constexpr float StepUnits = 60;

} // namespace

ScrollArea::ScrollArea(ZrWidget *parent) : ZrScrollArea(parent)
{
    verticalScrollBar()->setSingleStep(unitsY(StepUnits));
    horizontalScrollBar()->setSingleStep(unitsX(StepUnits));
    // Children come and go; their focus events all pass here.
    if (ZrApplication *application = ZrApplication::instance())
        application->installEventFilter(this);
}

bool ScrollArea::eventFilter(ZrObject *watched, ZrEvent *event)
{
    // A press has its widget in sight already, and must not move it from under the pointer.
    if (event->type() == ZrEvent::FocusIn && watched->isWidgetType() &&
        static_cast<ZrFocusEvent *>(event)->reason() == Zr::KeyManagerFocus)
        ensureVisible(static_cast<ZrWidget *>(watched));
    return ZrScrollArea::eventFilter(watched, event);
}
