#include "ui/controls/cwidget.h"

#include <zrwidgetevent>

void CWidget::keyPressEvent(ZrKeyEvent *event)
{
    switch (event->key()) {
    case Zr::Key_Left:
        event->setAccepted(leftKey());
        return;
    case Zr::Key_Right:
        event->setAccepted(rightKey());
        return;
    case Zr::Key_Up:
        event->setAccepted(upKey());
        return;
    case Zr::Key_Down:
        event->setAccepted(downKey());
        return;
    case Zr::Key_Enter:
        event->accept();
        clickKey();
        return;
    default:
        ZrWidget::keyPressEvent(event);
    }
}
