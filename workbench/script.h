// Commands of a script, a line each; the list is in README.md.
#pragma once

#include <string>
#include <vector>

struct ScriptCommand {
    std::string name;
    std::vector<std::string> arguments;
    int line = 0;
    // A missing or broken number is 0.
    int number(size_t index) const;
    const std::string &text(size_t index) const;
};

// Empty lines and lines that begin with "#" are left out. False when the file cannot be read or a
// line is no command with enough arguments: the reason went to standard error.
bool readScript(const std::string &path, std::vector<ScriptCommand> *commands);
bool parseScript(const std::string &text, std::vector<ScriptCommand> *commands);
