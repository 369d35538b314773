// Which of App's messages goes to whom, as events of which type. A row is data.
#pragma once

#include "ui/receivers.h"

#include <cstdint>

struct MessageRoute {
    static constexpr int AnySubType = -1;
    std::uint16_t mainType;
    int subType;
    SubjectEvent event;
    Receiver target;
};

// Null when nobody is responsible.
const MessageRoute *findRoute(std::uint16_t mainType, std::uint16_t subType);
