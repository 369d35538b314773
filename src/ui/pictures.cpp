#include "ui/pictures.h"

#include "link/startup.h"
#include "ui/scale.h"

#include <map>
#include <string>

namespace
{

constexpr float FileScale = 1920.0f / DesignWidth;

std::map<std::string, ZrPixmap> &pictures()
{
    static std::map<std::string, ZrPixmap> read;
    return read;
}

} // namespace

const ZrPixmap &picture(const char *path)
{
    const auto known = pictures().find(path);
    if (known != pictures().end())
        return known->second;
    return pictures().emplace(path, ZrPixmap(resolveResourcePath(ZrString(path)))).first->second;
}

ZrSize pictureSize(const ZrPixmap &picture)
{
    return ZrSize(fontUnits(float(picture.width()) / FileScale),
                  fontUnits(float(picture.height()) / FileScale));
}

void forgetPictures()
{
    pictures().clear();
}
