#include "link/wirewriter.h"

#include <algorithm>
#include <cstring>

bool WireWriter::holds(size_t offset, size_t count)
{
    if (offset <= size_ && count <= size_ - offset)
        return true;
    short_ = true;
    return false;
}

WireWriter &WireWriter::number(size_t offset, size_t width, uint64_t value)
{
    if (holds(offset, width)) {
        for (size_t i = 0; i < width; ++i)
            bytes_[offset + i] = i < sizeof value ? uint8_t(value >> (8 * i)) : 0;
    }
    return *this;
}

WireWriter &WireWriter::bytes(size_t offset, const void *from, size_t count)
{
    if (count > 0 && holds(offset, count))
        memcpy(bytes_ + offset, from, count);
    return *this;
}

WireWriter &WireWriter::fill(size_t offset, uint8_t value, size_t count)
{
    if (count > 0 && holds(offset, count))
        memset(bytes_ + offset, value, count);
    return *this;
}

WireWriter &WireWriter::text(size_t offset, size_t fieldSize, const ZrString &value)
{
    if (!holds(offset, fieldSize))
        return *this;
    const ZrByteArray utf8 = value.toUtf8();
    size_t count = std::min(size_t(utf8.size()), fieldSize);
    // 10xxxxxx continues a character: the cut goes back to where that character began.
    if (count < size_t(utf8.size())) {
        while (count > 0 && (uint8_t(utf8.constData()[count]) & 0xC0) == 0x80)
            --count;
    }
    fill(offset, 0, fieldSize);
    return bytes(offset, utf8.constData(), count);
}
