#include "ui/stylefiles.h"

#include "link/startup.h"

#include <map>
#include <string>

namespace
{

std::map<std::string, ZrIniFile> &files()
{
    static std::map<std::string, ZrIniFile> read;
    return read;
}

} // namespace

const ZrIniFile &styleFile(const char *path)
{
    const auto known = files().find(path);
    if (known != files().end())
        return known->second;
    return files().emplace(path, ZrIniFile(resolveResourcePath(ZrString(path)))).first->second;
}

const ZrIniFile &commonStyleFile()
{
    return styleFile("style/commonstyle.ini");
}

void forgetStyleFiles()
{
    files().clear();
}
