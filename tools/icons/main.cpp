// Draws the interface's icons, from an icon font and from drawings, and its pointers, by the tables
// in images/. Runs at build time.
//   zr-icons icons FONT CSS ICONS DRAWINGS FOLDER
//   zr-icons layouts FOLDER
//   zr-icons pointers TABLE FOLDER
//   zr-icons sheet TEXTFONT FOLDER... --sheet FILE
#include "icons.h"
#include "layouts.h"
#include "pointers.h"
#include "sheet.h"

#include <cstdio>
#include <exception>

namespace
{

constexpr char Usage[] = "zr-icons icons FONT CSS ICONS DRAWINGS FOLDER | layouts FOLDER | "
                         "pointers TABLE FOLDER | sheet TEXTFONT FOLDER... --sheet FILE\n";

bool run(const std::vector<std::string> &words)
{
    const std::string command = words.empty() ? "" : words[0];
    if (command == "icons" && words.size() == 6) {
        IconFont font(words[1], words[2]);
        makeIcons(font, words[3], words[4], words[5]);
    } else if (command == "layouts" && words.size() == 2) {
        makeLayouts(words[1]);
    } else if (command == "pointers" && words.size() == 3) {
        makePointers(words[1], words[2]);
    } else if (command == "sheet" && words.size() >= 5 && words[words.size() - 2] == "--sheet") {
        IconFont labels(words[1], "");
        makeSheet(labels, {words.begin() + 2, words.end() - 2}, words.back());
    } else {
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    try {
        if (run({argv + 1, argv + argc}))
            return 0;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "zr-icons: %s\n", error.what());
        return 1;
    }
    std::fputs(Usage, stderr);
    return 2;
}
