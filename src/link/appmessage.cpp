#include "link/appmessage.h"

#include "link/wirewriter.h"

#include <new>

AppMsgHead AppMsgHead::decode(const uint8_t (&bytes)[Size])
{
    WireReader reader(bytes, Size);
    AppMsgHead head;
    head.headTag = reader.u32(OffsetTag);
    head.headKind = reader.u8(OffsetKind);
    head.headFlag = reader.u8(OffsetFlag);
    head.bodyCount = reader.i16(OffsetBodyCount);
    head.mainType = reader.u16(OffsetMainType);
    head.subType = reader.u16(OffsetSubType);
    head.bodyLength = reader.u32(OffsetBodyLength);
    head.seqNumber = reader.u32(OffsetSequence);
    head.headResult = reader.u32(OffsetResult);
    return head;
}

void AppMsgHead::encode(uint8_t (&bytes)[Size]) const
{
    WireWriter(bytes, Size)
        .u32(OffsetTag, headTag)
        .u8(OffsetKind, headKind)
        .u8(OffsetFlag, headFlag)
        .u16(OffsetBodyCount, uint16_t(bodyCount))
        .u16(OffsetMainType, mainType)
        .u16(OffsetSubType, subType)
        .u32(OffsetBodyLength, bodyLength)
        .u32(OffsetSequence, seqNumber)
        .u32(OffsetResult, headResult);
}

AppMessage *AppMessage::allocate(const uint8_t (&head)[AppMsgHead::Size])
{
    const uint32_t bodyLength = WireReader(head, sizeof head).u32(AppMsgHead::OffsetBodyLength);
    auto *bytes = new (std::nothrow) uint8_t[sizeof head + size_t(bodyLength)];
    if (bytes)
        memcpy(bytes, head, sizeof head);
    return reinterpret_cast<AppMessage *>(bytes);
}
