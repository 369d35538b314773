#include "package.h"

#include "widgets/languagefile.h"

#include <tinyxml.h>

namespace
{

void collect(const TiXmlElement *element, std::vector<Entry> *entries)
{
    for (; element; element = element->NextSiblingElement()) {
        int id = -1;
        if (element->ValueStr() == "tr" && element->QueryIntAttribute("id", &id) == TIXML_SUCCESS) {
            const char *text = element->Attribute("text");
            entries->push_back({id, text ? text : ""});
        }
        collect(element->FirstChildElement(), entries);
    }
}

} // namespace

const std::string *Package::find(int id) const
{
    const std::string *found = nullptr;
    for (const Entry &entry : entries) {
        if (entry.id == id)
            found = &entry.text;
    }
    return found;
}

Package readPackage(const std::string &folder, const std::string &language, Faults *faults)
{
    Package package{"tran_" + language + ".xml", {}};
    const std::string path = folder + "/" + package.file;
    // What the program itself would refuse is refused here.
    Texts texts;
    TiXmlDocument document;
    if (readLanguageFile(path.c_str(), &texts) &&
        document.LoadFile(path.c_str(), TIXML_ENCODING_UTF8))
        collect(document.RootElement(), &package.entries);
    else
        faults->push_back(package.file + ": is missing or no whole package");
    return package;
}

std::string fault(const Package &package, int id, const std::string &what)
{
    return package.file + ": " + std::to_string(id) + " " + what;
}
