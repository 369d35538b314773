// Wire records of the channels. Little-endian; offsets in bytes from the start of an entry.
#pragma once

#include "link/wirereader.h"
#include "link/wirewriter.h"

#include <zrstring>

namespace cameras
{

// Parameter kind 32: one entry for each IP channel, in order.
constexpr int IpCameraKind = 32;
constexpr std::size_t IpCameraRecordSize = 13056;

struct IpCameraEntry {
    static constexpr std::size_t Size = 408;
    static constexpr std::size_t OffsetName = 216, NameSize = 36;
    static constexpr std::size_t OffsetDefaultName = 252, DefaultNameSize = 64;
    static constexpr std::size_t OffsetAddress = 316, OffsetSubnet = 320, OffsetGateway = 324,
                                 OffsetDns = 328;
    static constexpr std::size_t OffsetSubChannel = 336;
    static constexpr std::size_t OffsetKind = 337;
    static constexpr std::size_t OffsetMode = 338;
    static constexpr std::size_t OffsetOsdPosition = 339;
    static constexpr std::size_t OffsetMacAddress = 340, MacAddressSize = 8;
    static constexpr std::size_t OffsetValid = 353;

    ZrString name;
    ZrString defaultName;
    std::uint32_t address = 0;
    std::uint32_t subnet = 0;
    std::uint32_t gateway = 0;
    std::uint32_t dns = 0;
    std::uint8_t subChannel = 0;
    std::uint8_t kind = 0;
    std::uint8_t osdPosition = 0;
    std::uint8_t macAddress[MacAddressSize] = {};
    bool valid = false;

    // `base` is where the entry begins in its record.
    static IpCameraEntry decode(WireReader &record, std::size_t base);
    void encode(WireWriter &record, std::size_t base) const;
};

// Parameter kind 11: one entry for each analogue channel. The inside of the record is ours to fix:
// 28 entries of 100 bytes fill it.
constexpr int AnalogCameraKind = 11;
constexpr std::size_t AnalogCameraRecordSize = 2800;

struct AnalogCameraEntry {
    static constexpr std::size_t Size = 100;
    static constexpr std::size_t OffsetName = 0, NameSize = 64;
    static constexpr std::size_t OffsetOsdX = 64;     // u16, in pixels of a 1920 x 1080 picture
    static constexpr std::size_t OffsetOsdY = 66;     // u16
    static constexpr std::size_t OffsetShowName = 68; // u8

    ZrString name;
    int osdX = 0;
    int osdY = 0;
    bool showName = false;

    static AnalogCameraEntry decode(WireReader &record, std::size_t base);
    void encode(WireWriter &record, std::size_t base) const;
};

// 1000/56: the connection state of every channel, one byte each.
constexpr std::size_t ConnectStateOffset = 20;
// 1000/80: the video status of every channel from the first offset, one flag for all behind.
constexpr std::size_t VideoStatusOffset = 52;
// 1000/19: bit sets of eight bytes, one bit a channel, in this order. The order and the width
// are ours to fix.
enum class StatusBits {
    Recording,
    Motion,
    InputAlarm,
    Pir,
    Intelligent1,
    Intelligent2,
    Intelligent3,
    Intelligent4,
    Intelligent5,
    Intelligent6,
    Intelligent7,
    Intelligent8,
    Count
};
constexpr std::size_t StatusSetSize = 8;
constexpr std::size_t StatusRecordSize = std::size_t(StatusBits::Count) * StatusSetSize;

} // namespace cameras
