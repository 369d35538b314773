// Stands between the App link and the interface: every message that App sends on its own arrives
// here, on the widget thread, and goes to whoever is responsible and alive at that moment. It also
// builds the rest of the recorder, in its fixed order, and keeps the general settings.
#pragma once

#include "link/general_records.h"
#include "ui/receivers.h"

#include <zrobject>
#include <zrvector>

// One of the recorder's subjects, made as a child of the manager unless it is there already.
struct UiModule {
    const char *name;
    void (*create)(ZrObject *parent);
};

// What the manager needs of the rooms above it. The list of modules ends with a null name.
struct UiManagerParts {
    const UiModule *modules;
    int (*countIpCameras)(); // asked once the modules stand
};

class UiManager : public ZrObject
{
    ZR_OBJECT(UiManager, ZrObject)
public:
    // From the return on App's messages become events.
    UiManager(ZrObject *application, const UiManagerParts &parts);
    ~UiManager() override;
    static UiManager *instance() { return instance_; }

    ZrSignal generalParamsChanged;
    // The first start-up timer has run: requests keep the interface alive from here on.
    ZrSignal startFinished;

    const GeneralParams &generalParams() const { return general_; }
    void loadGeneralParams();
    // "MM/dd/yyyy" and its like by the general settings, the date, a blank, the time; empty parts
    // where a setting is unknown.
    ZrString dateTimeFormat() const;

    void customEvent(ZrEvent *event) override;

private:
    void createModules(const UiModule *modules);
    void sendProcessId() const;
    void armStartupTimer(int ipCameras);
    void onStartupTimer();
    void route(CEvent *event, const AppMessage &message);
    bool handleInPlace(const AppMessage &message);
    void setTimeZone(WireReader body);
    void parameterChanged(WireReader body);
    void retranslate();

    static UiManager *instance_;
    ZrVector<int> channelStates_;
    GeneralParams general_;
};
