// Which texts the program names.
#pragma once

#include <set>
#include <string>

// The numbers in the sources' text_ids.h files and in their tables called TextIds.
std::set<int> idsUsed(const std::string &sources);
