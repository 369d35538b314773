// Pictures of the split modes, drawn from their catalogue. Build-time only.
#pragma once

#include <string>

// Two of each mode, plain and with "-hover" behind its name. Throws when one cannot be written.
void makeLayouts(const std::string &folder);
