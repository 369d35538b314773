// Pictures of the split modes, drawn from their catalogue. Build-time only.
#pragma once

#include <string>

// Two of each mode, plain and with "-hover" behind its name. Not zero when one could not be
// written.
int makeLayouts(const std::string &folder);
