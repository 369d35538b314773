// An IPv6 address.
#pragma once

#include "ui/controls/keyboardfield.h"

class ZrIpv6Edit : public KeyboardField
{
    ZR_OBJECT(ZrIpv6Edit, KeyboardField)
public:
    explicit ZrIpv6Edit(ZrWidget *parent = nullptr);

    // Whether what stands in the field is an address.
    bool isValid() const;

protected:
    Keyboard *makeKeyboard() override;
};
