// The pointers of images/pointers.txt. Build-time only.
#pragma once

#include <string>

// Two files a pointer: for screens 1280 and, with "-max" behind its name, 1920 wide. Throws what is
// wrong with the first bad line.
void makePointers(const std::string &table, const std::string &folder);
