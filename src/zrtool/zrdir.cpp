#include <zrdir>

#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

ZrDir::ZrDir(const ZrString &path) : path_(path) {}

bool ZrDir::exists() const
{
    struct stat status;
    const ZrByteArray name = path_.isEmpty() ? ZrByteArray(".") : path_.toUtf8();
    return stat(name.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool ZrDir::exists(const ZrString &name) const
{
    if (name.isEmpty()) {
        std::puts("ZrDir::exists: Empty or null file name");
        return false;
    }
    struct stat status;
    return stat(filePath(name).toUtf8().constData(), &status) == 0;
}

ZrString ZrDir::filePath(const ZrString &name) const
{
    if (path_.isEmpty() || name.startsWith("/"))
        return name;
    return path_.endsWith("/") ? path_ + name : path_ + "/" + name;
}

ZrStringList ZrDir::entryList() const
{
    ZrStringList names;
    const ZrByteArray path = path_.isEmpty() ? ZrByteArray(".") : path_.toUtf8();
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(opendir(path.constData()), closedir);
    while (const dirent *entry = directory ? readdir(directory.get()) : nullptr)
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.append(ZrString(entry->d_name));
    names.sort();
    return names;
}
