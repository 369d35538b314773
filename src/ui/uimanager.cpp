#include "ui/uimanager.h"

#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/deviceparams.h"
#include "link/parameters.h"
#include "link/startup.h"
#include "ui/messageroutes.h"
#include "ui/startuptimer.h"
#include "ui/stringtable.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <zrapplication>
#include <zrdate>
#include <zrfontmetrics>
#include <zrtimer>
#include <zrtranslation>

UiManager *UiManager::instance_ = nullptr;

namespace
{

constexpr int FontCacheBytes = 0x500000;
constexpr int SwitchKind = 50;
constexpr int SwitchSize = 328;
constexpr int DisplayKind = 12;
constexpr int DisplaySize = 352;

const char *const DateFormats[] = {"MM/dd/yyyy", "yyyy-MM-dd", "dd/MM/yyyy"};

// Read for what it settles at App: nothing here keeps the record.
void readParameter(int kind, int size)
{
    ZrVector<std::uint8_t> record;
    record.resize(size);
    ZrGetParam(kind, record.data(), std::uint32_t(size));
}

} // namespace

UiManager::UiManager(ZrObject *application, const UiManagerParts &parts) : ZrObject(application)
{
    instance_ = this;
    ZrDate::setDateMode(usePersianDate() ? Zr::Persian : Zr::Gregorian);
    ZrFontMetrics::setFontFile(resolveResourcePath(ZrString("font/yahei_arial_gothic_unicode.ttf")),
                               FontCacheBytes);
    createModules(parts.modules);
    appSetReceiver(this);
    loadGeneralParams();
    readParameter(DisplayKind, DisplaySize);
    readParameter(SwitchKind, SwitchSize);
    sendProcessId();
    sendStringTable();
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&UiManager::retranslate>);
    armStartupTimer(parts.countIpCameras());
    channelStates_.resize(channelCount());
}

UiManager::~UiManager()
{
    instance_ = nullptr;
}

void UiManager::createModules(const UiModule *modules)
{
    for (const UiModule *module = modules; module->name; ++module)
        module->create(this);
}

void UiManager::sendProcessId() const
{
    WireWriter record(4);
    record.u32(0, std::uint32_t(getpid()));
    appSend(AppMain::system, AppSystem::uiProcessId, record.data(), std::uint32_t(record.size()));
}

void UiManager::armStartupTimer(int ipCameras)
{
    ZrSingleShotTimer::singleShot(startupDelayMs(ipCameras), this,
                                  zrSlot<&UiManager::onStartupTimer>);
}

void UiManager::onStartupTimer()
{
    appSetLoopWait(true);
    emit(this, &startFinished);
}

void UiManager::loadGeneralParams()
{
    general_ = readGeneralParams();
    if (ZrTranslation::instance())
        ZrTranslation::instance()->loadConfiguredLanguage();
    emit(this, &generalParamsChanged);
}

void UiManager::retranslate()
{
    sendStringTable();
}

ZrString UiManager::dateTimeFormat() const
{
    const ZrString date(general_.dateFormat < 3 ? DateFormats[general_.dateFormat] : "");
    const ZrString time(general_.timeFormat == 0 ? "hh:mm:ss" : "hh:mm:ss AP");
    return date + ZrString(" ") + time;
}

void UiManager::customEvent(ZrEvent *event)
{
    if (event->type() != ZrEvent::MessageFromApp)
        return;
    auto *carrier = static_cast<CEvent *>(event);
    const AppMessage *message = messageOf(carrier);
    if (message && !handleInPlace(*message))
        route(carrier, *message);
    event->accept();
}

void UiManager::route(CEvent *event, const AppMessage &message)
{
    const MessageRoute *route = findRoute(message.mainType(), message.subType());
    ZrObject *target = route ? receiver(route->target) : nullptr;
    if (target)
        ZrApplication::postEvent(target, new CEvent(route->event, event->takeData()));
}

bool UiManager::handleInPlace(const AppMessage &message)
{
    if (message.mainType() != AppMain::parameters)
        return false;
    switch (message.subType()) {
    case AppParameter::paramAccess:
        parameterChanged(message.reader());
        return true;
    case AppParameter::timeZone:
        setTimeZone(message.reader());
        return true;
    default:
        return false;
    }
}

// A first word of 0 means that the parameter named by the next one has changed at App.
void UiManager::parameterChanged(WireReader body)
{
    if (body.u32(0) != 0)
        return;
    if (body.u32(4) == std::uint32_t(GeneralParams::Kind))
        loadGeneralParams();
}

void UiManager::setTimeZone(WireReader body)
{
    const ZrByteArray zone = body.text(0, body.size()).toUtf8();
    setenv("TZ", zone.constData(), 1);
    std::printf("[GUI] Set TZ to %s\n", zone.constData());
}
