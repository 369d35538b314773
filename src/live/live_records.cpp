#include "live/live_records.h"

#include <algorithm>

namespace live
{

WireRect WireRect::of(const ZrRect &rect)
{
    return {std::uint16_t(rect.left()), std::uint16_t(rect.top()), std::uint16_t(rect.width()),
            std::uint16_t(rect.height())};
}

WireRect WireRect::decode(WireReader &record, std::size_t base)
{
    return {record.u16(base), record.u16(base + 2), record.u16(base + 4), record.u16(base + 6)};
}

void WireRect::encode(WireWriter &record, std::size_t base) const
{
    record.u16(base, x).u16(base + 2, y).u16(base + 4, width).u16(base + 6, height);
}

bool PreviewRecord::append(const Picture &picture)
{
    if (count >= std::uint32_t(Places))
        return false;
    pictures[count++] = picture;
    return true;
}

PreviewRecord PreviewRecord::decode(WireReader record)
{
    PreviewRecord result;
    result.count = std::min<std::uint32_t>(record.u32(OffsetCount), Places);
    for (std::uint32_t i = 0; i < result.count; ++i) {
        Picture &picture = result.pictures[i];
        picture.channel = record.u32(OffsetChannel + 4 * i);
        picture.instantPlayback = record.u32(OffsetInstantPlayback + 4 * i) != 0;
        picture.rect = WireRect::decode(record, OffsetRect + WireRect::Size * i);
        picture.crop = WireRect::decode(record, OffsetCrop + WireRect::Size * i);
        picture.wheelZoomed = record.u8(OffsetWheelZoomed + i) != 0;
    }
    result.previewDialogOpen = record.u32(OffsetPreviewDialogOpen) != 0;
    result.cellCount = record.u32(OffsetCellCount);
    return result;
}

WireWriter PreviewRecord::encode() const
{
    WireWriter record(Size);
    record.u32(OffsetCount, count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const Picture &picture = pictures[i];
        record.u32(OffsetChannel + 4 * i, picture.channel)
            .u32(OffsetInstantPlayback + 4 * i, picture.instantPlayback)
            .u8(OffsetWheelZoomed + i, picture.wheelZoomed);
        picture.rect.encode(record, OffsetRect + WireRect::Size * i);
        picture.crop.encode(record, OffsetCrop + WireRect::Size * i);
    }
    record.u32(OffsetPreviewDialogOpen, previewDialogOpen).u32(OffsetCellCount, cellCount);
    return record;
}

WireWriter AudioRecord::encode() const
{
    WireWriter record(Size);
    record.u32(0, channel).u8(4, audioChannelParam).u8(5, on).u8(6, volume).u8(7, source);
    return record;
}

} // namespace live
