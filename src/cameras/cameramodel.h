// All channels of the recorder: first the analogue inputs, then the IP cameras. Filled from App's
// parameters, kept current by App's status messages. Widget thread only.
#pragma once

#include "cameras/zrchannel.h"
#include "link/wirereader.h"

#include <zrvector>

class CameraModel : public ZrObject
{
    ZR_OBJECT(CameraModel, ZrObject)
public:
    // Creates the channels and reads them from App.
    explicit CameraModel(ZrObject *parent);
    ~CameraModel() override;
    static CameraModel *instance() { return instance_; }

    ZrSignal channelsChanged; // read anew
    ZrSignal listChanged;     // cameras came or went
    ZrSignal stateChanged;
    ZrSignal videoStatusChanged;
    ZrSignal recordChanged;
    ZrSignal osdChanged;

    int channelCount() const { return channels_.size(); }
    // Null for a number that is no channel.
    ZrChannel *channel(int number) const;
    bool isAnalog(int number) const { return number >= 0 && number < analogCount_; }
    bool isIp(int number) const { return number >= analogCount_ && number < channelCount(); }
    // IP slots that have a camera.
    int ipCameraCount() const;

    void customEvent(ZrEvent *event) override;

private:
    void load();
    void loadAnalog();
    bool loadIp();
    void handleStatus(int subType, WireReader body);
    void takeStatusSets(WireReader &body);
    void takeConnectStates(WireReader &body);
    template <typename Take>
    void forEachByte(WireReader &body, std::size_t offset, Take take);

    static CameraModel *instance_;
    ZrVector<ZrChannel *> channels_; // the objects are children
    int analogCount_ = 0;
};
