// Which side a text begins at.
#pragma once

#include <zrstring>

// Zr::AlignRight for a text whose first letter is of a script that runs from right to left, else
// Zr::AlignLeft.
int leadingAlignment(const ZrString &text);
