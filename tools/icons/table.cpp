#include "table.h"

#include <fstream>
#include <stdexcept>

std::vector<std::string> readTable(const std::string &path)
{
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error("cannot read the table " + path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        const std::size_t text = line.find_first_not_of(' ');
        if (text == std::string::npos || line[text] == '#')
            continue;
        if (text > 0 && !lines.empty())
            lines.back() += line;
        else
            lines.push_back(line);
    }
    return lines;
}

std::vector<TwinName> expandTwins(const std::string &pattern)
{
    const std::size_t open = pattern.find('{');
    const std::size_t close = pattern.find('}');
    if (open == std::string::npos || close == std::string::npos || close < open)
        return {{pattern, ""}};
    const std::string inside = pattern.substr(open + 1, close - open - 1);
    std::vector<TwinName> twins;
    std::size_t start = 0;
    for (std::size_t comma = 0; comma != std::string::npos; start = comma + 1) {
        comma = inside.find(',', start);
        const std::string ending = inside.substr(start, comma - start);
        twins.push_back({pattern.substr(0, open) + ending + pattern.substr(close + 1), ending});
    }
    return twins;
}
