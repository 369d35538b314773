#include "ui/controls/zripv6edit.h"

#include "ui/keyboard/mackeyboard.h"

#include <arpa/inet.h>

ZrIpv6Edit::ZrIpv6Edit(ZrWidget *parent) : KeyboardField(parent)
{
    setAllowedCharacters(ZrCharacterSet(ZrString("0-9A-Fa-f:.")));
    setMaxLength(INET6_ADDRSTRLEN - 1);
}

bool ZrIpv6Edit::isValid() const
{
    in6_addr address;
    return inet_pton(AF_INET6, text().toUtf8().constData(), &address) == 1;
}

Keyboard *ZrIpv6Edit::makeKeyboard()
{
    return new MacKeyboard(this); // deletes itself
}
