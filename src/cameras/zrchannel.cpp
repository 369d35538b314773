#include "cameras/zrchannel.h"

#include <algorithm>
#include <iterator>
#include <zrapplication>

namespace
{

// The signal family in front of an analogue channel's name, by coaxial type.
const char *familyPrefix(int videoType)
{
    static const char *const prefixes[] = {"",   "A-", "T-", "C-", "A-", "T-", "C-",
                                           "A-", "T-", "C-", "A-", "",   "A-", "T-",
                                           "C-", "A-", "T-", "A-", "T-", "C-"};
    return videoType < int(std::size(prefixes)) ? prefixes[videoType] : "";
}

constexpr int EventStateMask = 7; // event fields are three bits wide

int intelligentEvent(int kind)
{
    constexpr int first = ChannelEvent::LastIntelligent - ChannelEvent::FirstIntelligent + 1;
    return kind < first ? ChannelEvent::FirstIntelligent + kind
                        : ChannelEvent::Intelligent7 + kind - first;
}

} // namespace

ZrChannel::ZrChannel(int number, bool isIp, ZrObject *parent)
    : ZrObject(parent), channelNo_(std::int8_t(number)), isIp_(isIp), valid_(!isIp)
{
}

ZrString ZrChannel::displayName() const
{
    const ZrString &name = name_.isEmpty() ? defaultName_ : name_;
    return isIp_ ? name : ZrString(familyPrefix(videoType_)) + name;
}

ZrString ZrChannel::displayNameWithSub() const
{
    if (kind_ != SubChannelKind && kind_ != BatterySubChannelKind)
        return displayName();
    return ZrString("%1-%2").arg(displayName()).arg(subChannel_ + 1);
}

bool ZrChannel::hasIntelligentAlarm() const
{
    return std::any_of(std::begin(intelligent_), std::end(intelligent_),
                       [](int state) { return state != 0; });
}

void ZrChannel::addListener(ZrObject *listener)
{
    if (!listeners_.contains(listener))
        listeners_.append(listener);
}

void ZrChannel::removeListener(ZrObject *listener)
{
    listeners_.removeAll(listener);
}

void ZrChannel::tell(int event)
{
    for (ZrObject *listener : listeners_)
        ZrApplication::postEvent(listener, new ZrEvent(event));
}

template <typename T>
bool ZrChannel::change(T &field, T value, int event)
{
    if (field == value)
        return false;
    field = value;
    tell(event);
    return true;
}

void ZrChannel::setName(const ZrString &name, const ZrString &defaultName)
{
    if (name == name_ && defaultName == defaultName_)
        return;
    name_ = name;
    defaultName_ = defaultName;
    tell(ChannelEvent::Name);
}

void ZrChannel::setKind(int kind, int subChannel)
{
    kind_ = std::uint8_t(kind);
    subChannel_ = std::uint8_t(subChannel);
}

bool ZrChannel::setValid(bool valid)
{
    if (valid_ == valid)
        return false;
    valid_ = valid;
    return true;
}

bool ZrChannel::setConnectState(int state)
{
    return change(connectState_, state, ChannelEvent::ConnectState);
}

void ZrChannel::setVideoType(int type)
{
    if (change(videoType_, std::uint8_t(type), ChannelEvent::ConnectState))
        tell(ChannelEvent::Name);
}

void ZrChannel::setVideoStatus(int status)
{
    if (videoStatus_ == status)
        return;
    videoStatus_ = status;
    if (isOnline())
        tell(ChannelEvent::VideoStatus);
}

void ZrChannel::setRecordStatus(int status)
{
    if (recordStatus_ == status)
        return;
    recordStatus_ = status;
    if (isOnline())
        tell(ChannelEvent::RecordStatus);
}

void ZrChannel::setRecording(bool recording)
{
    change(recording_, recording, ChannelEvent::Recording);
}

void ZrChannel::setMotion(int state)
{
    change(motion_, state & EventStateMask, ChannelEvent::Motion);
}

void ZrChannel::setInputAlarm(int state)
{
    change(inputAlarm_, state & EventStateMask, ChannelEvent::InputAlarm);
}

void ZrChannel::setPir(int state)
{
    change(pir_, state & EventStateMask, ChannelEvent::Pir);
}

void ZrChannel::setIntelligent(int kind, int state)
{
    if (kind >= 0 && kind < IntelligentKinds)
        change(intelligent_[kind], state & EventStateMask, intelligentEvent(kind));
}

void ZrChannel::setOsd(const ZrPoint &position, bool showName)
{
    if (position == osdPos_ && showName == showName_)
        return;
    osdPos_ = position;
    showName_ = showName;
    tell(ChannelEvent::Overlay);
}

void ZrChannel::setOsdPosition(int corner)
{
    change(osdPosition_, corner, ChannelEvent::Overlay);
}
