// One channel of the recorder: an analogue input or an IP camera. Filled and kept current by the
// camera model; cells listen to it. Each setter compares first and tells the listeners by a posted
// event of its own number, so that a change of one bit of state repaints one icon.
#pragma once

#include <cstdint>
#include <zrlist>
#include <zrobject>
#include <zrpoint>
#include <zrsize>

// Types of the events that listeners get.
namespace ChannelEvent
{
enum Type {
    ConnectState = 1001, // also the video type
    Recording = 1002,
    Motion = 1004,
    InputAlarm = 1005,
    Pir = 1006,
    Overlay = 1009, // where and whether the name shows
    Name = 1010,    // also the video type
    VideoStatus = 1041,
    RecordStatus = 1042,
    FirstIntelligent = 1047, // to 1052: six kinds
    LastIntelligent = 1052,
    Intelligent7 = 1083,
    Intelligent8 = 1084
};
} // namespace ChannelEvent

class ZrChannel : public ZrObject
{
    ZR_OBJECT(ZrChannel, ZrObject)
public:
    enum ConnectState { Unknown = -1, NoCamera = 0, Connecting = 1, Online = 2, Sleeping = 6 };
    enum Kind {
        SubChannelKind = 21,
        BatterySubChannelKind = 22,
        BatteryKind = 24,
        WirelessKind = 26
    };
    // The corner where an IP camera's name stands.
    enum OsdPosition { UpperLeft = 0, LowerLeft = 1, UpperRight = 2, LowerRight = 3, NoName = 4 };
    static constexpr int IntelligentKinds = 8;

    ZrChannel(int number, bool isIp, ZrObject *parent);

    int channelNo() const { return channelNo_; }
    bool isIp() const { return isIp_; }
    bool isValid() const { return valid_; } // the slot has a camera
    bool isMasked() const { return masked_; }
    int kind() const { return kind_; }
    int connectState() const { return connectState_; }
    bool isOnline() const { return connectState_ == Online; }
    int videoStatus() const { return videoStatus_; }
    int recordStatus() const { return recordStatus_; }
    bool isRecording() const { return recording_; }
    int motion() const { return motion_; }
    int inputAlarm() const { return inputAlarm_; }
    int pir() const { return pir_; }
    int intelligent(int kind) const { return intelligent_[kind]; }
    bool hasIntelligentAlarm() const;
    // A cell may show the channel: it is analogue, or its slot has a camera.
    bool canBeShown() const { return !isIp_ || valid_; }
    const ZrPoint &osdPos() const { return osdPos_; }
    int osdPosition() const { return osdPosition_; }
    bool showName() const { return showName_; }
    // The name, or the default one; an analogue channel has its signal family in front, a camera of
    // several lenses its lens behind.
    ZrString displayName() const;
    ZrString displayNameWithSub() const;

    void addListener(ZrObject *listener);
    void removeListener(ZrObject *listener);

    void setName(const ZrString &name, const ZrString &defaultName);
    void setKind(int kind, int subChannel);
    // True when it changed.
    bool setValid(bool valid);
    void setMasked(bool masked) { masked_ = masked; }
    bool setConnectState(int state);
    void setVideoType(int type);
    void setVideoStatus(int status);
    void setRecordStatus(int status);
    void setRecording(bool recording);
    void setMotion(int state);
    void setInputAlarm(int state);
    void setPir(int state);
    void setIntelligent(int kind, int state);
    void setOsd(const ZrPoint &position, bool showName);
    void setOsdPosition(int corner);

private:
    template <typename T>
    bool change(T &field, T value, int event);
    void tell(int event);

    std::int8_t channelNo_;
    std::uint8_t kind_ = 0;
    std::uint8_t subChannel_ = 0;
    std::uint8_t videoType_ = 0;
    ZrString name_;
    ZrString defaultName_;
    ZrPoint osdPos_{928, 576};
    int osdPosition_ = LowerLeft;
    int connectState_ = Unknown;
    int videoStatus_ = 0;
    int recordStatus_ = 0;
    int motion_ = 0;
    int inputAlarm_ = 0;
    int pir_ = 0;
    int intelligent_[IntelligentKinds] = {};
    bool isIp_;
    bool valid_;
    bool masked_ = false;
    bool recording_ = false;
    bool showName_ = true;
    ZrList<ZrObject *> listeners_;
};
