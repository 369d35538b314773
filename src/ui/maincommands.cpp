#include "ui/maincommands.h"

#include "ui/receivers.h"

#include <zrapplication>

void postMainViewCommand(int command, int argument)
{
    ZrApplication::postEvent(receiver(Receiver::MainViewManager),
                             new CommonCtrlEvent(command, argument));
}
