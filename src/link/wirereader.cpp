#include "link/wirereader.h"

#include <algorithm>
#include <cstring>

bool WireReader::holds(size_t offset, size_t count)
{
    if (offset <= size_ && count <= size_ - offset)
        return true;
    short_ = true;
    return false;
}

uint64_t WireReader::number(size_t offset, size_t width)
{
    if (!holds(offset, width))
        return 0;
    uint64_t value = 0;
    for (size_t i = 0; i < width; ++i)
        value |= uint64_t(bytes_[offset + i]) << (8 * i);
    return value;
}

void WireReader::bytes(size_t offset, void *out, size_t count)
{
    if (count == 0)
        return;
    const size_t there = holds(offset, count) ? count : offset < size_ ? size_ - offset : 0;
    if (there)
        memcpy(out, bytes_ + offset, there);
    memset(static_cast<uint8_t *>(out) + there, 0, count - there);
}

ZrString WireReader::text(size_t offset, size_t fieldSize)
{
    if (fieldSize == 0 || !holds(offset, fieldSize))
        return ZrString();
    const char *begin = reinterpret_cast<const char *>(bytes_) + offset;
    return ZrString(begin, int(strnlen(begin, fieldSize)));
}

WireReader WireReader::part(size_t offset, size_t count)
{
    if (holds(offset, count))
        return WireReader(bytes_ + offset, count);
    return offset < size_ ? WireReader(bytes_ + offset, size_ - offset) : WireReader();
}

size_t WireReader::entriesBehind(size_t offset, size_t entrySize) const
{
    return entrySize == 0 || offset >= size_ ? 0 : (size_ - offset) / entrySize;
}
