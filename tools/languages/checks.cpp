#include "checks.h"

#include "zrtool/glyph_store.h"
#include "zrtool/utf8.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>
#include <zrfontmetrics>

namespace
{

constexpr int FirstLanguageName = 200400, LastLanguageName = 200433;

// The place that stands at this position: %1 to %99, 0 for none.
int placeAt(const std::string &text, std::size_t position)
{
    if (text[position] != '%')
        return 0;
    int number = 0;
    for (std::size_t at = position + 1; at < position + 3 && at < text.size(); ++at) {
        if (!std::isdigit(static_cast<unsigned char>(text[at])))
            break;
        number = 10 * number + (text[at] - '0');
    }
    return number;
}

std::multiset<int> placesOf(const std::string &text)
{
    std::multiset<int> places;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const int place = placeAt(text, i))
            places.insert(place);
    }
    return places;
}

std::string named(const std::multiset<int> &places)
{
    std::string names;
    for (const int place : places)
        names += (names.empty() ? "%" : " %") + std::to_string(place);
    return names.empty() ? "no place" : names;
}

std::string filled(const std::string &text)
{
    std::string whole;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const int place = placeAt(text, i)) {
            whole += "00";
            i += place > 9 ? 2 : 1;
        } else {
            whole += text[i];
        }
    }
    return whole;
}

int widthOf(const std::string &text, int fontSize)
{
    return ZrFontMetrics(ZrString(text.c_str()), ZrFont(fontSize)).sizeHint().width();
}

bool readRule(const std::string &line, WidthRule *rule)
{
    std::istringstream words(line);
    if (!(words >> rule->first))
        return false;
    rule->last = rule->first;
    if (words.peek() == '-' && (words.ignore(), !(words >> rule->last)))
        return false;
    return words >> rule->width >> rule->fontSize && rule->first <= rule->last;
}

} // namespace

std::vector<WidthRule> readWidthRules(const std::string &path, Faults *faults)
{
    std::vector<WidthRule> rules;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        line.erase(std::min(line.find('#'), line.size()));
        if (line.find_first_not_of(" \t") == std::string::npos)
            continue;
        WidthRule rule;
        if (readRule(line, &rule))
            rules.push_back(rule);
        else
            faults->push_back(path + ": cannot read \"" + line + "\"");
    }
    if (rules.empty())
        faults->push_back(path + ": has no rules");
    return rules;
}

void checkForm(const Package &package, Faults *faults)
{
    std::set<int> seen;
    int last = -1;
    for (const Entry &entry : package.entries) {
        if (!seen.insert(entry.id).second)
            faults->push_back(fault(package, entry.id, "stands twice"));
        else if (entry.id < last)
            faults->push_back(fault(package, entry.id, "stands behind a higher number"));
        last = entry.id;
        if (entry.text.empty())
            faults->push_back(fault(package, entry.id, "has no text"));
        else if (entry.text.front() == ' ' || entry.text.back() == ' ')
            faults->push_back(fault(package, entry.id, "has spaces around its text"));
    }
}

void checkComplete(const Package &package, const Package &reference, Faults *faults)
{
    for (const Entry &entry : reference.entries) {
        if (!package.find(entry.id))
            faults->push_back(fault(package, entry.id, "is missing: \"" + entry.text + "\""));
    }
    for (const Entry &entry : package.entries) {
        if (!reference.find(entry.id))
            faults->push_back(fault(package, entry.id, "is not in " + reference.file));
    }
}

void checkPlaces(const Package &package, const Package &reference, Faults *faults)
{
    for (const Entry &entry : package.entries) {
        const std::string *original = reference.find(entry.id);
        if (!original)
            continue;
        const std::multiset<int> wanted = placesOf(*original);
        const std::multiset<int> present = placesOf(entry.text);
        if (present != wanted)
            faults->push_back(
                fault(package, entry.id, "has " + named(present) + " instead of " + named(wanted)));
    }
}

void checkLanguageNames(const Package &package, const Package &reference, Faults *faults)
{
    for (int id = FirstLanguageName; id <= LastLanguageName; ++id) {
        const std::string *name = package.find(id);
        const std::string *original = reference.find(id);
        if (name && original && *name != *original)
            faults->push_back(
                fault(package, id, "is \"" + *name + "\" instead of \"" + *original + "\""));
    }
}

void checkGlyphs(const Package &package, Faults *faults)
{
    const zrtool::GlyphStore &font = zrtool::GlyphStore::instance();
    for (const Entry &entry : package.entries) {
        const ZrString text(entry.text.c_str());
        for (int i = 0; i < text.size(); ++i) {
            std::uint32_t character = text.at(i);
            if (zrtool::isHighSurrogate(character) && i + 1 < text.size())
                character = zrtool::joinSurrogates(character, text.at(++i));
            if (font.glyphOf(character) != 0)
                continue;
            std::ostringstream what;
            what << "has a character that the font lacks: U+" << std::hex << std::uppercase
                 << character;
            faults->push_back(fault(package, entry.id, what.str()));
        }
    }
}

void checkWidths(const Package &package, const std::vector<WidthRule> &rules, Faults *faults)
{
    for (const Entry &entry : package.entries) {
        const std::string text = filled(entry.text);
        for (const WidthRule &rule : rules) {
            if (entry.id < rule.first || entry.id > rule.last)
                continue;
            const int width = widthOf(text, rule.fontSize);
            if (width > rule.width)
                faults->push_back(fault(package, entry.id,
                                        "is " + std::to_string(width) + " wide where " +
                                            std::to_string(rule.width) + " fit: \"" + entry.text +
                                            "\""));
        }
    }
}
