#include "cameras/camera_records.h"

namespace cameras
{

IpCameraEntry IpCameraEntry::decode(WireReader &record, std::size_t base)
{
    IpCameraEntry entry;
    entry.name = record.text(base + OffsetName, NameSize);
    entry.defaultName = record.text(base + OffsetDefaultName, DefaultNameSize);
    entry.address = record.u32(base + OffsetAddress);
    entry.subnet = record.u32(base + OffsetSubnet);
    entry.gateway = record.u32(base + OffsetGateway);
    entry.dns = record.u32(base + OffsetDns);
    entry.subChannel = record.u8(base + OffsetSubChannel);
    entry.kind = record.u8(base + OffsetKind);
    entry.osdPosition = record.u8(base + OffsetOsdPosition);
    record.bytes(base + OffsetMacAddress, entry.macAddress, MacAddressSize);
    entry.valid = record.u8(base + OffsetValid) != 0;
    return entry;
}

void IpCameraEntry::encode(WireWriter &record, std::size_t base) const
{
    record.text(base + OffsetName, NameSize, name)
        .text(base + OffsetDefaultName, DefaultNameSize, defaultName)
        .u32(base + OffsetAddress, address)
        .u32(base + OffsetSubnet, subnet)
        .u32(base + OffsetGateway, gateway)
        .u32(base + OffsetDns, dns)
        .u8(base + OffsetSubChannel, subChannel)
        .u8(base + OffsetKind, kind)
        .u8(base + OffsetOsdPosition, osdPosition)
        .bytes(base + OffsetMacAddress, macAddress, MacAddressSize)
        .u8(base + OffsetValid, valid);
}

AnalogCameraEntry AnalogCameraEntry::decode(WireReader &record, std::size_t base)
{
    AnalogCameraEntry entry;
    entry.name = record.text(base + OffsetName, NameSize);
    entry.osdX = record.u16(base + OffsetOsdX);
    entry.osdY = record.u16(base + OffsetOsdY);
    entry.showName = record.u8(base + OffsetShowName) != 0;
    return entry;
}

void AnalogCameraEntry::encode(WireWriter &record, std::size_t base) const
{
    record.text(base + OffsetName, NameSize, name)
        .u16(base + OffsetOsdX, std::uint16_t(osdX))
        .u16(base + OffsetOsdY, std::uint16_t(osdY))
        .u8(base + OffsetShowName, showName);
}

} // namespace cameras
