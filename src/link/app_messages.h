// The numbers by which messages on the App link are named, by family.
#pragma once

#include <cstdint>

namespace AppMain
{
enum Type : uint16_t {
    liveView = 100,   // live view control; both directions
    playback = 300,   // playback, search and backup; both
    recording = 500,  // recording side of channels, and PTZ; to App
    parameters = 600, // parameters; both
    system = 1000,    // state, disks, cameras, network, dialogs, upgrade, AI; both
};
} // namespace AppMain

namespace AppSystem
{
enum Type : uint16_t {
    uiRunning = 0,
    appRunning = 1,
    appInitDone = 3,
    uiProcessId = 4,
    getDeviceParams = 33,
    getChipCode = 104,
    configDone = 105,
    pointerPosition = 134,
};
} // namespace AppSystem
