// The order in which people expect names: "Channel 9" before "Channel 10".
#pragma once

#include <zrstring>

// By letter without regard to case, runs of ASCII digits by value.
bool naturallyBefore(const ZrString &left, const ZrString &right);
