// Reads numbers, bytes and text out of a little-endian record that came from outside.
#pragma once

#include <cstddef>
#include <cstdint>
#include <zrstring>

// Looks at memory it does not own, which must outlive it. A read that reaches past the end yields
// zero, an empty text or zeroed bytes, and marks the reader short for good; nothing ever reads
// outside. Widths and offsets are in bytes.
class WireReader
{
public:
    WireReader() = default;
    WireReader(const void *record, size_t size)
        : bytes_(static_cast<const uint8_t *>(record)), size_(record ? size : 0)
    {
    }

    size_t size() const { return size_; }
    const uint8_t *data() const { return bytes_; }
    // Whether anything was asked for that the record does not hold.
    bool isShort() const { return short_; }

    uint8_t u8(size_t offset) { return uint8_t(number(offset, 1)); }
    uint16_t u16(size_t offset) { return uint16_t(number(offset, 2)); }
    uint32_t u32(size_t offset) { return uint32_t(number(offset, 4)); }
    uint64_t u64(size_t offset) { return number(offset, 8); }
    int8_t i8(size_t offset) { return int8_t(u8(offset)); }
    int16_t i16(size_t offset) { return int16_t(u16(offset)); }
    int32_t i32(size_t offset) { return int32_t(u32(offset)); }
    int64_t i64(size_t offset) { return int64_t(u64(offset)); }

    // Copies count bytes; what lies past the end arrives as zeros.
    void bytes(size_t offset, void *out, size_t count);
    // UTF-8 text of a fixed field: up to its first zero, or all of it when there is none.
    ZrString text(size_t offset, size_t fieldSize);
    // A reader of a part. A part that reaches past the end is cut and marks this reader short.
    WireReader part(size_t offset, size_t count);
    // How many whole entries of the given size lie behind the offset: the bound for any count that
    // the record itself claims. 0 for a size of 0.
    size_t entriesBehind(size_t offset, size_t entrySize) const;

private:
    bool holds(size_t offset, size_t count);
    uint64_t number(size_t offset, size_t width);

    const uint8_t *bytes_ = nullptr;
    size_t size_ = 0;
    bool short_ = false;
};
