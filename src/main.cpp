// The start-up order, nothing else.
#include "cameras/cameramodel.h"
#include "link/appcalls.h"
#include "link/deviceparams.h"
#include "link/startup.h"
#include "live/mainviewmanager.h"
#include "ui/commonstyle.h"
#include "ui/dialogs/busysign.h"
#include "ui/input/zrkeymanager.h"
#include "ui/scale.h"
#include "ui/uimanager.h"
#include "users/authoritymanager.h"
#include "widgets/zrinstallwidgets.h"

#include <zrapplication>
#include <zrgraphics>
#include <zrtranslation>

namespace
{

template <typename Subject>
void create(ZrObject *parent)
{
    if (!Subject::instance())
        new Subject(parent); // owned by the parent
}

void createKeyManager(ZrObject *parent)
{
    if (!ZrKeyManager::instance())
        (new ZrKeyManager(parent))->startPanel(); // owned by the parent
}

// In this order: each may use those before it.
constexpr UiModule Modules[] = {{"ZrTranslation", ZrTranslation::createTranslation},
                                {"AuthorityManager", create<AuthorityManager>},
                                {"CameraModel", create<CameraModel>},
                                {"MainViewManager", create<MainViewManager>},
                                {"ZrKeyManager", createKeyManager},
                                {nullptr, nullptr}};

int countIpCameras()
{
    return CameraModel::instance()->ipCameraCount();
}

} // namespace

int main(int argc, char **argv)
{
    readResourcePath();
    lineBufferOutput();
    appLinkStart(nullptr);
    announceInterface();
    configureApp();
    waitForApp();
    zrInstallGraphics();
    zrInstallWidgets();
    ZrApplication::setDisplayDevice(framebufferNode());
    ZrApplication application(argc, argv);
    const ZrRect &desktop = application.desktopRect();
    setScreenScale(desktop.width(), desktop.height());
    loadCommonStyle(); // before any widget: those that change a font keep the rest as it was then
    new UiManager(&application, {Modules, countIpCameras}); // owned by the application
    watchSlowRequests();
    return application.exec();
}
