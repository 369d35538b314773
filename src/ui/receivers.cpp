#include "ui/receivers.h"

namespace
{

ZrObject *receivers[int(Receiver::Count)] = {};

} // namespace

void setReceiver(Receiver which, ZrObject *object)
{
    receivers[int(which)] = object;
}

void clearReceiver(Receiver which, const ZrObject *object)
{
    if (receivers[int(which)] == object)
        receivers[int(which)] = nullptr;
}

ZrObject *receiver(Receiver which)
{
    return receivers[int(which)];
}

const AppMessage *messageOf(const ZrEvent *event)
{
    const unsigned char *data = static_cast<const CEvent *>(event)->data();
    return data ? AppMessage::fromData(data) : nullptr;
}
