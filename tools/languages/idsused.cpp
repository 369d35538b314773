#include "idsused.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace
{

void addNumbers(const std::string &text, const std::regex &number, std::set<int> *ids)
{
    for (std::sregex_iterator found(text.begin(), text.end(), number), end; found != end; ++found)
        ids->insert(std::stoi((*found)[1]));
}

} // namespace

std::set<int> idsUsed(const std::string &sources)
{
    static const std::regex named(R"(=\s*(\d{1,9})\s*,)"), listed(R"(\b(\d{1,9})\b)");
    static const std::regex table(R"(\bTextIds\[\]\s*=\s*\{([^}]*)\})");
    std::set<int> ids;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(sources)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path()).rdbuf();
        const std::string text = bytes.str();
        if (entry.path().filename() == "text_ids.h")
            addNumbers(text, named, &ids);
        for (std::sregex_iterator found(text.begin(), text.end(), table), end; found != end;
             ++found)
            addNumbers((*found)[1], listed, &ids);
    }
    return ids;
}
