// The pictures of images/icons.txt. Build-time only.
#pragma once

#include "iconfont.h"

#include <string>

// Draws every file of the table into the folder; the drawings' table has what the font has not.
// Throws what is wrong with the first bad line.
void makeIcons(IconFont &font, const std::string &iconTable, const std::string &drawingTable,
               const std::string &folder);
