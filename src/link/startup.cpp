#include "link/startup.h"

#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/deviceparams.h"
#include "link/deviceprofile.h"
#include "link/wirewriter.h"
#include "platform/boardpath.h"
#include "platform/filedescriptor.h"

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr size_t kResourcePathLimit = 256;
constexpr uint32_t kChannelCapacity = 32; // of the profile record

ZrString resources;
bool customResourcePath = false;

} // namespace

void readResourcePath()
{
    resources = ZrString();
    customResourcePath = false;
    const FileDescriptor file(
        open(boardPath("/tmp/resourcesPath.txt").c_str(), O_RDONLY | O_CLOEXEC));
    char bytes[kResourcePathLimit];
    const ssize_t count = file.isOpen() ? read(file.get(), bytes, sizeof bytes) : 0;
    if (count <= 0)
        return;
    customResourcePath = true;
    resources = ZrString(bytes, int(strnlen(bytes, size_t(count))));
}

const ZrString &resourcesPath()
{
    return resources;
}

ZrString resolveResourcePath(const ZrString &path)
{
    if (!customResourcePath || (!path.isEmpty() && path.at(0) == '/'))
        return path;
    ZrString whole = resources;
    return whole.append("/").append(path);
}

void lineBufferOutput()
{
    setlinebuf(stdout);
}

void announceInterface()
{
    puts("GUI: UI is running, tell App ...");
    WireWriter body(8);
    body.u32(0, kChannelCapacity).u32(4, Profile::Size);
    appSend(AppMain::system, AppSystem::uiRunning, body.data(), uint32_t(body.size()));
    appWaitState(AppSystem::appRunning);
}

void configureApp()
{
    puts("GUI: App is running, configurate default parameter for app ...");
    loadDeviceProfile();
    uint8_t chipCode[4] = {};
    appRequest(AppMain::system, AppSystem::getChipCode, chipCode, sizeof chipCode, nullptr, 0);
    loadColorDefaults(WireReader(chipCode, sizeof chipCode).u32(0));
    appSend(AppMain::system, AppSystem::configDone);
}

void waitForApp()
{
    puts("GUI: Waiting App finish init work ...");
    appWaitState(AppSystem::appInitDone);
    puts("GUI: App init OK, now do everything we want to do !!");
    refreshDeviceParams();
}
