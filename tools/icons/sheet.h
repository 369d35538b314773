// The contact sheet: every picture of some folders, with its name, on the colour of panels.
// Build-time only.
#pragma once

#include "iconfont.h"

#include <string>
#include <vector>

// Each picture as a screen of 1920 and one of 1280 shows it. Throws when something cannot be read
// or written.
void makeSheet(IconFont &labels, const std::vector<std::string> &folders, const std::string &file);
