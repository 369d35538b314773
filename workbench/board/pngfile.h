// PNG files.
#pragma once

#include "workbench/board/picture.h"

#include <string>

// Writes the picture, beside the file first and then over it, so that a reader never sees half of
// one. False, with a line on standard error.
bool writePng(const Picture &picture, const std::string &path);
