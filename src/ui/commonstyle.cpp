#include "ui/commonstyle.h"

#include "link/startup.h"
#include "ui/scale.h"

#include <zrinifile>
#include <zrstyle>

namespace
{

constexpr float BaseFontUnits = 17;

} // namespace

void loadCommonStyle()
{
    const ZrIniFile file(resolveResourcePath(ZrString("style/commonstyle.ini")));
    ZrStyle &style = ZrStyle::applicationStyle();
    style.widgetOption().font.set(Zr::Normal, ZrFont(fontUnits(BaseFontUnits)));
    style.labelOption().foreground.set(Zr::Normal,
                                       file.colorValue(ZrString("ZrLabel/Foreground/Normal")));
}
