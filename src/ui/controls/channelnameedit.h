// The name of a channel, which App keeps in 36 bytes with a zero at the end.
#pragma once

#include "ui/controls/lineedit.h"

class ChannelNameEdit : public LineEdit
{
    ZR_OBJECT(ChannelNameEdit, LineEdit)
public:
    static constexpr int NameBytes = 35;

    explicit ChannelNameEdit(ZrWidget *parent = nullptr) : LineEdit(parent)
    {
        setMaxBytes(NameBytes);
    }
};
