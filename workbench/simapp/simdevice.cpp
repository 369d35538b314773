#include "workbench/simapp/simdevice.h"

#include "cameras/camera_records.h"
#include "link/general_records.h"
#include "link/paramkinds.h"
#include "link/profiledefaults.h"
#include "link/profilelayout.h"
#include "link/wirewriter.h"
#include "live/live_records.h"
#include "users/account_records.h"

#include <algorithm>
#include <cstring>

namespace
{

const char *const kNames[] = {"Gate north", "Gate south",  "Lobby",      "Car park A",
                              "Car park B", "Loading bay", "Corridor 1", "Corridor 2",
                              "Warehouse",  "Server room", "Roof",       "Cashier 1",
                              "Reception",  "Store",       "Yard",       "Fence east"};

constexpr int kDarkAnalogChannel = 5;   // without signal
constexpr int kConnectingIpChannel = 3; // counted among the IP channels
constexpr uint8_t kVideoType1080 = 11;  // of no signal family that names are marked with
constexpr uint8_t kVideoStatusNoSignal = 4;
constexpr uint32_t kEnglish = 4;
constexpr uint8_t kSizeAlign = 2;

WireWriter writer(std::vector<uint8_t> &record)
{
    return WireWriter(record.data(), record.size());
}

std::string nameOf(int channel)
{
    constexpr int count = int(std::size(kNames));
    const std::string name = kNames[channel % count];
    return channel < count ? name : name + " " + std::to_string(channel / count + 1);
}

void setBit(std::vector<uint8_t> &bytes, size_t offset, int bit)
{
    bytes[offset + size_t(bit) / 8] |= uint8_t(1u << (bit % 8));
}

} // namespace

SimDevice::SimDevice(const DeviceOptions &options) : options_(options)
{
    for (int i = 0; i < options.analogChannels + options.ipChannels; ++i) {
        SimChannel channel;
        channel.name = nameOf(i);
        channel.isIp = i >= options.analogChannels;
        channel.videoType = channel.isIp ? 0 : kVideoType1080;
        channel.isRecording = i % 3 != 1;
        channel.hasMotion = i % 4 == 2;
        if (i == kDarkAnalogChannel && !channel.isIp) {
            channel.state = SimChannel::NoCamera;
            channel.videoType = 0;
            channel.videoStatus = kVideoStatusNoSignal;
        } else if (i == options.analogChannels + kConnectingIpChannel) {
            channel.state = SimChannel::Connecting;
        }
        if (channel.state != SimChannel::Online)
            channel.isRecording = channel.hasMotion = false;
        channels_.push_back(channel);
    }
}

void SimDevice::fillParams(ParamStore *params) const
{
    fillCameras(params);
    fillAccounts(params);
    fillPreview(params);
    fillOthers(params);
    params->freezeDefaults();
}

void SimDevice::fillCameras(ParamStore *params) const
{
    using cameras::AnalogCameraEntry;
    using cameras::IpCameraEntry;
    WireWriter analog = writer(params->edit(cameras::AnalogCameraKind));
    WireWriter ip = writer(params->edit(cameras::IpCameraKind));
    for (int i = 0; i < channelCount(); ++i) {
        const SimChannel &camera = channel(i);
        if (!camera.isIp) {
            const size_t base = size_t(i) * AnalogCameraEntry::Size;
            analog
                .text(base + AnalogCameraEntry::OffsetName, AnalogCameraEntry::NameSize,
                      ZrString(camera.name.c_str()))
                .u16(base + AnalogCameraEntry::OffsetOsdX, 60)
                .u16(base + AnalogCameraEntry::OffsetOsdY, 906)
                .u8(base + AnalogCameraEntry::OffsetShowName, 1);
            continue;
        }
        const int number = i - options_.analogChannels;
        const size_t base = size_t(number) * IpCameraEntry::Size;
        const uint8_t address[4] = {192, 168, 1, uint8_t(101 + number)};
        const uint8_t mask[4] = {255, 255, 255, 0};
        const uint8_t gateway[4] = {192, 168, 1, 1};
        const uint8_t mac[6] = {0x02, 0, 0, 0, 1, uint8_t(number)};
        ip.text(base + IpCameraEntry::OffsetName, IpCameraEntry::NameSize,
                ZrString(camera.name.c_str()))
            .text(base + IpCameraEntry::OffsetDefaultName, IpCameraEntry::DefaultNameSize,
                  ZrString(("IP camera " + std::to_string(number + 1)).c_str()))
            .bytes(base + IpCameraEntry::OffsetAddress, address, sizeof address)
            .bytes(base + IpCameraEntry::OffsetSubnet, mask, sizeof mask)
            .bytes(base + IpCameraEntry::OffsetGateway, gateway, sizeof gateway)
            .bytes(base + IpCameraEntry::OffsetDns, gateway, sizeof gateway)
            .u8(base + IpCameraEntry::OffsetOsdPosition, 1)
            .bytes(base + IpCameraEntry::OffsetMacAddress, mac, sizeof mac)
            .u8(base + IpCameraEntry::OffsetValid, 1);
    }
}

void SimDevice::fillAccounts(ParamStore *params) const
{
    using users::AccountEntry;
    WireWriter record = writer(params->edit(users::AccountKind));
    record.text(AccountEntry::OffsetName, AccountEntry::TextSize, "admin")
        .u32(AccountEntry::OffsetRights, 0x3FF)
        .fill(AccountEntry::OffsetLiveChannels, 0xFF, 16)
        .u8(AccountEntry::OffsetEnabled, 1)
        .u8(AccountEntry::OffsetLiveAllowed, 1)
        .u8(AccountEntry::OffsetPlaybackAllowed, 1)
        .u8(AccountEntry::OffsetPtzAllowed, 1)
        .u8(AccountEntry::OffsetBackupAllowed, 1);
    const char *const others[] = {"guard", "manager", "guest", "user5", "user6", "user7"};
    for (size_t i = 0; i < std::size(others); ++i) {
        const size_t base = (i + 1) * AccountEntry::Size;
        record.text(base + AccountEntry::OffsetName, AccountEntry::TextSize, others[i]);
    }
    record.u32(users::OffsetAutoLoginUser, 1);
}

void SimDevice::fillPreview(ParamStore *params) const
{
    using live::PreviewParam;
    WireWriter preview = writer(params->edit(PreviewParam::Kind));
    for (int i = 0; i < channelCount() && i < int(PreviewParam::MaximumSlots); ++i)
        preview.u8(PreviewParam::OffsetChannels + size_t(i), uint8_t(i));
    preview.u32(PreviewParam::OffsetSequenceDwell, 5)
        .u8(PreviewParam::OffsetMode, uint8_t(options_.splitMode))
        .u8(PreviewParam::OffsetAudioVolume, 80)
        .u8(PreviewParam::OffsetMute, 1);
    // Flags of the view: both bytes of a pair on.
    WireWriter view = writer(params->edit(live::ViewParam::Kind));
    for (size_t pair : {live::ViewParam::OffsetNoVideoHint, live::ViewParam::OffsetOverlay4,
                        live::ViewParam::OffsetOverlay3})
        view.u8(pair, 1).u8(pair + 1, 1);
}

void SimDevice::fillOthers(ParamStore *params) const
{
    WireWriter general = writer(params->edit(ParamKind::general));
    general.u8(GeneralParams::OffsetDateFormat, 1)
        .u8(GeneralParams::OffsetTimeFormat, 0)
        .u8(GeneralParams::OffsetIdleTime, 5)
        .u32(GeneralParams::OffsetLanguage, kEnglish)
        .u32(GeneralParams::OffsetLanguageMask, 0xFFFFFFFF)
        .u32(GeneralParams::OffsetExtendedLanguageMask, 3);
    // Schedules of every kind: all day, every day.
    for (auto row = paramKindsBegin(); row != paramKindsEnd(); ++row) {
        if (row->size == Profile::ChannelCapacity * ProfileDefaults::ScheduleSize)
            writer(params->edit(row->kind)).fill(0, ProfileDefaults::RecordNormal, row->size);
    }
    const uint8_t network[] = {192, 168, 1, 100, 255, 255, 255, 0, 192, 168, 1, 1};
    const uint8_t dns[] = {192, 168, 1, 1, 9, 9, 9, 9};
    writer(params->edit(ParamKind::network)).bytes(0, network, sizeof network).bytes(24, dns, 8);
    writer(params->edit(ParamKind::recordOptions)).u32(320, 1);
    writer(params->edit(ParamKind::serial)).u8(0, 3).u8(1, 8).u8(2, 1);
    writer(params->edit(ParamKind::startFlag)).u8(0, 1);
}

std::vector<uint8_t> SimDevice::deviceParamBlock(const std::vector<uint8_t> &profile) const
{
    std::vector<uint8_t> block(DeviceParamBlock::Size);
    WireWriter out = writer(block);
    WireReader custom(profile.data(), std::min(profile.size(), Profile::CustomSize));
    for (auto row = deviceParamsBegin(); row != deviceParamsEnd(); ++row) {
        const Profile::Key *key = Profile::findKey(row->profileKey);
        if (!key || custom.size() == 0)
            continue;
        std::vector<uint8_t> bytes(row->width);
        custom.bytes(key->offset, bytes.data(), std::min(row->width, key->width));
        out.bytes(row->offset, bytes.data(), bytes.size());
    }
    const auto set = [&](const char *getter, uint64_t value) {
        for (auto row = deviceParamsBegin(); row != deviceParamsEnd(); ++row) {
            if (strcmp(row->getter, getter) == 0)
                out.number(row->offset, row->width, value);
        }
    };
    set("displayWidth", uint64_t(options_.displayWidth));
    set("displayHeight", uint64_t(options_.displayHeight));
    set("deviceModelCode", 16);
    set("channelCount", uint64_t(channelCount()));
    set("ipChannelCount", uint64_t(options_.ipChannels));
    set("videoPosAlign", kSizeAlign);
    set("videoSizeAlign", kSizeAlign);
    set("isDigitalSideSet", 1);
    for (const char *on : {"isAlarmPanelEnabled",       "isOverlayScaled",
                           "isZoomInSplitEnabled",      "isNetworkStateShown",
                           "isBackupEnabled",           "isImageControlPageEnabled",
                           "isPtzPageEnabled",          "isCaptureEnabled",
                           "isPicturePlaybackEnabled",  "isSliceSearchEnabled",
                           "isMotionSearchEnabled",     "isTagSearchEnabled",
                           "isExternalPlaybackEnabled", "isFreeZoomEnabled",
                           "isEventSearchEnabled",      "isSubPeriodEnabled",
                           "isSnapshotEnabled",         "isIpv6Enabled",
                           "isShutdownEnabled",         "isPatternEnabled",
                           "isSmartInfoEnabled",        "isDdnsEnabled",
                           "isTimeServerEnabled",       "isAutoRebootEnabled"})
        set(on, 1);
    out.text(48, DeviceParamBlock::TextSize, "/dev/fb0");
    return block;
}

std::vector<uint8_t> SimDevice::defaultParams() const
{
    std::vector<uint8_t> defaults(Profile::ParametersSize);
    WireWriter out = writer(defaults);
    // Channel 1 has a bit rate of its own; all others are left to the profile.
    out.u32(ProfileDefaults::OffsetMainStreams + ProfileDefaults::StreamEntry::OffsetBitRate, 6144);
    return defaults;
}

std::vector<uint8_t> SimDevice::connectStates() const
{
    std::vector<uint8_t> body(cameras::ConnectStateOffset + 64);
    for (int i = 0; i < channelCount(); ++i)
        body[cameras::ConnectStateOffset + size_t(i)] = channel(i).state;
    return body;
}

std::vector<uint8_t> SimDevice::videoTypes() const
{
    std::vector<uint8_t> body;
    for (int i = 0; i < options_.analogChannels; ++i)
        body.push_back(channel(i).videoType);
    return body;
}

std::vector<uint8_t> SimDevice::videoStatus() const
{
    std::vector<uint8_t> body(cameras::VideoStatusOffset + 44);
    for (int i = 0; i < std::min(channelCount(), 40); ++i)
        body[cameras::VideoStatusOffset + size_t(i)] = channel(i).videoStatus;
    return body;
}

std::vector<uint8_t> SimDevice::recordStatus() const
{
    std::vector<uint8_t> body(cameras::VideoStatusOffset + 44);
    for (int i = 0; i < std::min(channelCount(), 40); ++i)
        body[cameras::VideoStatusOffset + size_t(i)] = channel(i).isRecording;
    return body;
}

std::vector<uint8_t> SimDevice::statusBits() const
{
    using cameras::StatusBits;
    std::vector<uint8_t> body(cameras::StatusRecordSize);
    for (int i = 0; i < channelCount(); ++i) {
        if (channel(i).isRecording)
            setBit(body, size_t(StatusBits::Recording) * cameras::StatusSetSize, i);
        if (channel(i).hasMotion)
            setBit(body, size_t(StatusBits::Motion) * cameras::StatusSetSize, i);
    }
    return body;
}

std::vector<uint8_t> SimDevice::diskList() const
{
    constexpr size_t entrySize = 120;
    constexpr double terabyte = 1e12;
    std::vector<uint8_t> body(2 * entrySize);
    WireWriter out = writer(body);
    for (size_t i = 0; i < 2; ++i) {
        const double total = 4 * terabyte, unused = i == 0 ? 0.4 * terabyte : 3.1 * terabyte;
        uint64_t words[2];
        memcpy(&words[0], &total, sizeof total);
        memcpy(&words[1], &unused, sizeof unused);
        out.u8(i * entrySize, 1)
            .u8(i * entrySize + 2, 2) // normal
            .u64(i * entrySize + 16, words[0])
            .u64(i * entrySize + 24, words[1])
            .text(i * entrySize + 36, 40, "Surveillance disk 4 TB")
            .text(i * entrySize + 76, 8, "A1")
            .text(i * entrySize + 84, 20, i == 0 ? "SN0001" : "SN0002")
            .u8(i * entrySize + 104, uint8_t(i));
    }
    return body;
}
