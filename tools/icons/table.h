// The tables of images/: lines of words, with comments and names that stand for several files.
// Build-time only.
#pragma once

#include <string>
#include <vector>

// The lines of a table without comments and empty ones. A line that begins with a blank goes on
// with the one before it. Throws when the file cannot be read.
std::vector<std::string> readTable(const std::string &path);

struct TwinName {
    std::string name;
    std::string ending; // the part that came out of the braces
};

// "name{,-hover}" stands for "name" and "name-hover"; a name without braces for itself.
std::vector<TwinName> expandTwins(const std::string &pattern);
