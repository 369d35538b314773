// A language package as its file has it: in order, with what stands twice.
#pragma once

#include <string>
#include <vector>

using Faults = std::vector<std::string>; // one line each

struct Entry {
    int id;
    std::string text;
};

struct Package {
    std::string file; // without its folder
    std::vector<Entry> entries;

    // Null when there is none; of several, the last.
    const std::string *find(int id) const;
};

// An unreadable file gives a package without entries, and a fault.
Package readPackage(const std::string &folder, const std::string &language, Faults *faults);

std::string fault(const Package &package, int id, const std::string &what);
