#include "workbench/script.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace
{

struct Known {
    const char *name;
    size_t arguments;
};
constexpr Known kCommands[] = {
    {"wait", 1},    {"await", 2}, {"settle", 0},      {"screenshot", 1}, {"quit", 0},
    {"move", 2},    {"click", 2}, {"doubleclick", 2}, {"wheel", 3},      {"press", 2},
    {"release", 2}, {"state", 2}, {"record", 2},      {"motion", 2},     {"send", 2},
    {"silent", 2},  {"late", 3},  {"resize", 3},      {"refuse", 2},     {"obey", 0},
    {"drop", 0},    {"panel", 1},
};

} // namespace

int ScriptCommand::number(size_t index) const
{
    return atoi(text(index).c_str());
}

const std::string &ScriptCommand::text(size_t index) const
{
    static const std::string none;
    return index < arguments.size() ? arguments[index] : none;
}

bool parseScript(const std::string &text, std::vector<ScriptCommand> *commands)
{
    std::istringstream lines(text);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        ScriptCommand command;
        command.line = number;
        std::istringstream words(line);
        if (!(words >> command.name) || command.name[0] == '#')
            continue;
        for (std::string word; words >> word;)
            command.arguments.push_back(word);
        const Known *known = nullptr;
        for (const Known &entry : kCommands)
            known = command.name == entry.name ? &entry : known;
        if (!known || command.arguments.size() < known->arguments) {
            fprintf(stderr, "Line %d of the script is no command: %s\n", number, line.c_str());
            return false;
        }
        commands->push_back(command);
    }
    return true;
}

bool readScript(const std::string &path, std::vector<ScriptCommand> *commands)
{
    std::ifstream file(path);
    if (!file) {
        fprintf(stderr, "Cannot read the script %s\n", path.c_str());
        return false;
    }
    std::ostringstream text;
    text << file.rdbuf();
    return parseScript(text.str(), commands);
}
