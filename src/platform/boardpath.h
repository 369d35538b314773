// The root of the board under which every absolute path of the process lies.
#pragma once

#include <string>

// The path to open for a name on the board: an absolute path gets the environment variable ZR_ROOT
// in front, a relative one stays as it is. Without the variable the path is returned unchanged, as
// on a real board. A trailing "/" of the variable is dropped. Any thread, as long as nobody changes
// the environment meanwhile.
std::string boardPath(const char *path);
