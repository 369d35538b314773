// The recorder that the simulated App pretends to own: what it can do, its channels and their
// state, and the records that say so.
#pragma once

#include "link/deviceparams.h"
#include "workbench/simapp/paramstore.h"

#include <cstdint>
#include <string>
#include <vector>

struct DeviceOptions {
    int displayWidth = 1920;
    int displayHeight = 1080;
    int analogChannels = 8;
    int ipChannels = 8;
    int splitMode = 11; // 16 cells
};

struct SimChannel {
    // Of the connection, as App counts them.
    enum State : uint8_t { NoCamera = 0, Connecting = 1, Online = 2, Sleeping = 6 };

    std::string name;
    bool isIp = false;
    State state = Online;
    uint8_t videoType = 0; // of an analogue channel; 0 without signal
    uint8_t videoStatus = 0;
    bool isRecording = false;
    bool hasMotion = false;
};

class SimDevice
{
public:
    explicit SimDevice(const DeviceOptions &options);

    const DeviceOptions &options() const { return options_; }
    int channelCount() const { return int(channels_.size()); }
    // The number must be that of a channel.
    SimChannel &channel(int number) { return channels_[size_t(number)]; }
    const SimChannel &channel(int number) const { return channels_[size_t(number)]; }

    // Fills every kind with believable values, current and default.
    void fillParams(ParamStore *params) const;
    // The answer to 1000/33. Fields that the profile knows come from the profile that was sent;
    // empty, they have believable values.
    std::vector<uint8_t> deviceParamBlock(const std::vector<uint8_t> &profile) const;
    // What App would have as defaults, before the interface overlays the profile's.
    std::vector<uint8_t> defaultParams() const;

    // Bodies of the status messages, for all channels.
    std::vector<uint8_t> connectStates() const; // 1000/56
    std::vector<uint8_t> videoTypes() const;    // 1000/48
    std::vector<uint8_t> videoStatus() const;   // 1000/80
    std::vector<uint8_t> recordStatus() const;  // 1000/94
    std::vector<uint8_t> statusBits() const;    // 1000/19
    std::vector<uint8_t> diskList() const;      // 1000/20

private:
    void fillCameras(ParamStore *params) const;
    void fillAccounts(ParamStore *params) const;
    void fillPreview(ParamStore *params) const;
    void fillOthers(ParamStore *params) const;

    DeviceOptions options_;
    std::vector<SimChannel> channels_;
};
