#include "widgets/zrinstallwidgets.h"

#include "widgets/zrdesktop.h"

void zrInstallWidgets()
{
    ZrApplication::parts().makeRouter = []() -> std::unique_ptr<ZrWidgetRouter> {
        return std::make_unique<ZrDesktop>();
    };
}
