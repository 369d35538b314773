#include "cameras/cameramodel.h"

#include "cameras/camera_records.h"
#include "link/app_messages.h"
#include "link/deviceparams.h"
#include "link/parameters.h"
#include "ui/receivers.h"

#include <algorithm>

CameraModel *CameraModel::instance_ = nullptr;

CameraModel::CameraModel(ZrObject *parent) : ZrObject(parent), analogCount_(analogChannelCount())
{
    instance_ = this;
    for (int number = 0; number < ::channelCount(); ++number)
        channels_.append(new ZrChannel(number, number >= analogCount_, this));
    setReceiver(Receiver::CameraModel, this);
    load();
}

CameraModel::~CameraModel()
{
    clearReceiver(Receiver::CameraModel, this);
    instance_ = nullptr;
}

ZrChannel *CameraModel::channel(int number) const
{
    return number >= 0 && number < channels_.size() ? channels_.at(number) : nullptr;
}

int CameraModel::ipCameraCount() const
{
    return int(std::count_if(channels_.begin(), channels_.end(), [](const ZrChannel *channel) {
        return channel->isIp() && channel->isValid();
    }));
}

void CameraModel::load()
{
    const bool listChangedNow = loadIp();
    loadAnalog();
    emit(this, &channelsChanged);
    if (listChangedNow)
        emit(this, &listChanged);
}

bool CameraModel::loadIp()
{
    ZrVector<std::uint8_t> block;
    block.resize(int(cameras::IpCameraRecordSize));
    ZrGetParam(cameras::IpCameraKind, block.data(), std::uint32_t(block.size()));
    WireReader record(block.data(), std::size_t(block.size()));
    bool changed = false;
    for (int number = analogCount_; number < channelCount(); ++number) {
        const std::size_t base = std::size_t(number - analogCount_) * cameras::IpCameraEntry::Size;
        const cameras::IpCameraEntry entry = cameras::IpCameraEntry::decode(record, base);
        ZrChannel *channel = channels_.at(number);
        changed |= channel->setValid(entry.valid);
        channel->setKind(entry.kind, entry.subChannel);
        channel->setName(entry.name, entry.defaultName);
        channel->setOsdPosition(entry.osdPosition);
    }
    return changed;
}

void CameraModel::loadAnalog()
{
    ZrVector<std::uint8_t> block;
    block.resize(int(cameras::AnalogCameraRecordSize));
    ZrGetParam(cameras::AnalogCameraKind, block.data(), std::uint32_t(block.size()));
    WireReader record(block.data(), std::size_t(block.size()));
    for (int number = 0; number < std::min(analogCount_, channelCount()); ++number) {
        const std::size_t base = std::size_t(number) * cameras::AnalogCameraEntry::Size;
        const auto entry = cameras::AnalogCameraEntry::decode(record, base);
        channels_.at(number)->setName(entry.name, ZrString("CH%1").arg(number + 1));
        channels_.at(number)->setOsd(ZrPoint(entry.osdX, entry.osdY), entry.showName);
    }
}

void CameraModel::customEvent(ZrEvent *event)
{
    if (event->type() != CameraStatusEvent)
        return;
    const AppMessage *message = messageOf(event);
    if (message)
        handleStatus(message->subType(), message->reader());
}

template <typename Take>
void CameraModel::forEachByte(WireReader &body, std::size_t offset, Take take)
{
    for (int number = 0; number < channelCount(); ++number) {
        const std::size_t at = offset + std::size_t(number);
        if (at >= body.size())
            return; // a short message leaves the rest as it was
        take(*channels_.at(number), body.u8(at));
    }
}

void CameraModel::handleStatus(int subType, WireReader body)
{
    switch (subType) {
    case AppSystem::channelStatusBits:
        takeStatusSets(body);
        break;
    case AppSystem::videoTypes:
        forEachByte(body, 0, [](ZrChannel &channel, int type) {
            if (!channel.isIp())
                channel.setVideoType(type);
        });
        break;
    case AppSystem::connectStates:
        takeConnectStates(body);
        break;
    case AppSystem::videoStatus:
        forEachByte(body, cameras::VideoStatusOffset,
                    [](ZrChannel &channel, int status) { channel.setVideoStatus(status); });
        emit(this, &videoStatusChanged);
        break;
    case AppSystem::recordStatus:
        forEachByte(body, cameras::VideoStatusOffset,
                    [](ZrChannel &channel, int status) { channel.setRecordStatus(status); });
        emit(this, &recordChanged);
        break;
    default:
        break;
    }
}

void CameraModel::takeConnectStates(WireReader &body)
{
    bool changed = false;
    forEachByte(body, cameras::ConnectStateOffset, [&changed](ZrChannel &channel, int state) {
        changed |= channel.setConnectState(std::int8_t(state));
    });
    if (changed)
        emit(this, &stateChanged);
}

void CameraModel::takeStatusSets(WireReader &body)
{
    using cameras::StatusBits;
    for (int number = 0; number < channelCount(); ++number) {
        const auto isSet = [&body, number](int set) {
            const std::size_t base = std::size_t(set) * cameras::StatusSetSize;
            return (body.u8(base + std::size_t(number) / 8) >> (number % 8)) & 1;
        };
        ZrChannel &channel = *channels_.at(number);
        channel.setRecording(isSet(int(StatusBits::Recording)) != 0);
        channel.setMotion(isSet(int(StatusBits::Motion)));
        channel.setInputAlarm(isSet(int(StatusBits::InputAlarm)));
        channel.setPir(isSet(int(StatusBits::Pir)));
        for (int kind = 0; kind < ZrChannel::IntelligentKinds; ++kind)
            channel.setIntelligent(kind, isSet(int(StatusBits::Intelligent1) + kind));
    }
    emit(this, &recordChanged);
}
