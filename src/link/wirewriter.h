// Builds a little-endian record for the other side.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <zrstring>

// Owns a zeroed record of a fixed size, or writes into memory of the caller's. A write that would
// reach past the end is left out whole and marks the writer short; nothing is ever written outside.
// Widths and offsets are in bytes.
class WireWriter
{
public:
    explicit WireWriter(size_t size)
        : owned_(new uint8_t[size]()), bytes_(owned_.get()), size_(size)
    {
    }
    // The memory must outlive the writer; it is not cleared.
    WireWriter(void *record, size_t size) : bytes_(static_cast<uint8_t *>(record)), size_(size) {}

    const uint8_t *data() const { return bytes_; }
    uint8_t *data() { return bytes_; }
    size_t size() const { return size_; }
    // Whether anything was left out.
    bool isShort() const { return short_; }

    WireWriter &u8(size_t offset, uint8_t value) { return number(offset, 1, value); }
    WireWriter &u16(size_t offset, uint16_t value) { return number(offset, 2, value); }
    WireWriter &u32(size_t offset, uint32_t value) { return number(offset, 4, value); }
    WireWriter &u64(size_t offset, uint64_t value) { return number(offset, 8, value); }
    // The low bytes of a value in a field of 1 to 8 bytes.
    WireWriter &number(size_t offset, size_t width, uint64_t value);
    WireWriter &bytes(size_t offset, const void *from, size_t count);
    WireWriter &fill(size_t offset, uint8_t value, size_t count);
    // UTF-8 in a fixed field, zero-padded. Text that is too long is cut between characters; one
    // that fills the field exactly has no zero behind it.
    WireWriter &text(size_t offset, size_t fieldSize, const ZrString &value);

private:
    bool holds(size_t offset, size_t count);

    std::unique_ptr<uint8_t[]> owned_;
    uint8_t *bytes_;
    size_t size_;
    bool short_ = false;
};
