// Holds the language packages against the English one, and all of them against the room their texts
// have on the screen.
//   zr-languages check FOLDER FONT LANGUAGE...   one line a fault; fails when there is one
//   zr-languages unused FOLDER SOURCES           the English texts that no source names
#include "checks.h"
#include "idsused.h"

#include <cstdio>
#include <cstring>
#include <zrfontmetrics>

namespace
{

constexpr int GlyphCacheBytes = 5 << 20;

int check(const std::string &folder, const char *font, char **languages)
{
    if (!ZrFontMetrics::setFontFile(ZrString(font), GlyphCacheBytes))
        return 1;
    Faults faults;
    const std::vector<WidthRule> rules = readWidthRules(folder + "/widths.txt", &faults);
    const Package english = readPackage(folder, "english", &faults);
    int count = 0;
    for (; *languages; ++languages, ++count) {
        const Package package = readPackage(folder, *languages, &faults);
        if (package.entries.empty())
            continue; // told already
        checkForm(package, &faults);
        checkComplete(package, english, &faults);
        checkPlaces(package, english, &faults);
        checkLanguageNames(package, english, &faults);
        checkGlyphs(package, &faults);
        checkWidths(package, rules, &faults);
    }
    for (const std::string &line : faults)
        std::puts(line.c_str());
    if (faults.empty())
        std::printf("%d languages, %zu texts each\n", count, english.entries.size());
    return faults.empty() ? 0 : 1;
}

int listUnused(const std::string &folder, const std::string &sources)
{
    Faults faults;
    const Package english = readPackage(folder, "english", &faults);
    const std::set<int> used = idsUsed(sources);
    std::size_t count = 0;
    for (const Entry &entry : english.entries) {
        if (used.count(entry.id))
            continue;
        ++count;
        std::printf("%d %s\n", entry.id, entry.text.c_str());
    }
    std::printf("%zu of %zu texts are not used yet\n", count, english.entries.size());
    return faults.empty() ? 0 : 1;
}

} // namespace

int main(int count, char **arguments)
{
    if (count > 4 && std::strcmp(arguments[1], "check") == 0)
        return check(arguments[2], arguments[3], arguments + 4);
    if (count == 4 && std::strcmp(arguments[1], "unused") == 0)
        return listUnused(arguments[2], arguments[3]);
    std::fprintf(stderr, "zr-languages check FOLDER FONT LANGUAGE...\n"
                         "zr-languages unused FOLDER SOURCES\n");
    return 2;
}
