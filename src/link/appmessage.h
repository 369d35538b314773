// One message of the App link: a fixed head of 24 bytes, little-endian, and a body behind it.
#pragma once

#include "link/wirereader.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

// The head as it crosses the link.
struct AppMsgHead {
    static constexpr size_t Size = 24;
    static constexpr size_t OffsetTag = 0;       // u32: 1 on send, not looked at on receive
    static constexpr size_t OffsetKind = 4;      // u8: likewise 1
    static constexpr size_t OffsetFlag = 5;      // u8: likewise 0
    static constexpr size_t OffsetBodyCount = 6; // s16: 1 on send; 0 or less means no body follows
    static constexpr size_t OffsetMainType = 8;  // u16
    static constexpr size_t OffsetSubType = 10;  // u16
    static constexpr size_t OffsetBodyLength = 12; // u32: bytes behind the head
    static constexpr size_t OffsetSequence = 16;   // u32: a reply carries that of its request
    static constexpr size_t OffsetResult = 20;     // u32: App's result word; not assigned on send

    uint32_t headTag = 1;
    uint8_t headKind = 1;
    uint8_t headFlag = 0;
    int16_t bodyCount = 1;
    uint16_t mainType = 0;
    uint16_t subType = 0;
    uint32_t bodyLength = 0;
    uint32_t seqNumber = 0;
    uint32_t headResult = 0;

    static AppMsgHead decode(const uint8_t (&bytes)[Size]);
    void encode(uint8_t (&bytes)[Size]) const;
};

// A received message: head and body in one array of bytes, released with array delete, so that an
// event can carry it as plain data. Only ever seen through a pointer.
struct AppMessage {
    AppMessage() = delete;

    // For a head as it came in. Null when there is no memory for the body that it announces; the
    // body is not initialised.
    static AppMessage *allocate(const uint8_t (&head)[AppMsgHead::Size]);
    static const AppMessage *fromData(const uint8_t *data)
    {
        return reinterpret_cast<const AppMessage *>(data);
    }
    static void release(AppMessage *message) { delete[] reinterpret_cast<uint8_t *>(message); }
    uint8_t *toData() { return reinterpret_cast<uint8_t *>(this); }

    uint16_t mainType() const { return uint16_t(word(AppMsgHead::OffsetMainType, 2)); }
    uint16_t subType() const { return uint16_t(word(AppMsgHead::OffsetSubType, 2)); }
    uint32_t bodyLength() const { return word(AppMsgHead::OffsetBodyLength, 4); }
    uint32_t seqNumber() const { return word(AppMsgHead::OffsetSequence, 4); }
    uint32_t headResult() const { return word(AppMsgHead::OffsetResult, 4); }
    const uint8_t *body() const { return head_ + AppMsgHead::Size; }
    uint8_t *body() { return head_ + AppMsgHead::Size; }
    WireReader reader() const { return WireReader(body(), bodyLength()); }

private:
    uint32_t word(size_t offset, size_t width) const
    {
        uint32_t value = 0;
        for (size_t i = 0; i < width; ++i)
            value |= uint32_t(head_[offset + i]) << (8 * i);
        return value;
    }

    uint8_t head_[AppMsgHead::Size];
};

struct AppMessageDelete {
    void operator()(AppMessage *message) const { AppMessage::release(message); }
};
using AppMessagePtr = std::unique_ptr<AppMessage, AppMessageDelete>;
