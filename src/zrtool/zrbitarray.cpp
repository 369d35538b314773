#include <zrbitarray>

#include <algorithm>
#include <cstring>

namespace
{

int byteCountOf(int bits)
{
    return bits / 8 + (bits % 8 != 0);
}

} // namespace

void ZrBitArray::fill(int size, bool value)
{
    bytes_.clear();
    if (size <= 0)
        return;
    const int count = byteCountOf(size);
    const int unused = count * 8 - size;
    bytes_ = ZrByteArray(1 + count, value ? '\xFF' : '\0');
    bytes_.data()[0] = char(unused);
    raw()[count - 1] = std::uint8_t(raw()[count - 1] & (0xFF >> unused));
}

void ZrBitArray::setBit(int i)
{
    if (i >= 0 && i < size())
        raw()[i / 8] = std::uint8_t(raw()[i / 8] | 1 << i % 8);
}

void ZrBitArray::clearBit(int i)
{
    if (i >= 0 && i < size())
        raw()[i / 8] = std::uint8_t(raw()[i / 8] & ~(1 << i % 8));
}

int ZrBitArray::countSet() const
{
    int count = 0;
    for (int i = 1; i < bytes_.size(); i++)
        count += __builtin_popcount(bytes_.bytes()[i]);
    return count;
}

bool ZrBitArray::allSet() const
{
    return countSet() == size();
}

bool ZrBitArray::allCleared() const
{
    for (int i = 1; i < bytes_.size(); i++)
        if (bytes_.bytes()[i])
            return false;
    return true;
}

ZrBitArray ZrBitArray::operator&(const ZrBitArray &other) const
{
    ZrBitArray result(std::max(size(), other.size()));
    const int both = std::min(bytes_.size(), other.bytes_.size());
    for (int i = 1; i < both; i++)
        result.raw()[i - 1] = bytes_.bytes()[i] & other.bytes_.bytes()[i];
    return result;
}

ZrBitArray ZrBitArray::operator|(const ZrBitArray &other) const
{
    const bool shorter = size() < other.size();
    ZrBitArray result(shorter ? other : *this);
    const ZrBitArray &added = shorter ? *this : other;
    for (int i = 1; i < added.bytes_.size(); i++)
        result.raw()[i - 1] |= added.bytes_.bytes()[i];
    return result;
}

ZrBitArray &ZrBitArray::operator|=(const ZrBitArray &other)
{
    return *this = *this | other;
}

ZrBitArray ZrBitArray::fromRawBytes(const void *bytes, int bitCount)
{
    ZrBitArray array(bitCount);
    if (array.isEmpty() || !bytes)
        return array;
    const int count = byteCountOf(bitCount);
    std::memcpy(array.raw(), bytes, std::size_t(count));
    array.raw()[count - 1] &= std::uint8_t(0xFF >> array.bytes_.at(0));
    return array;
}

void ZrBitArray::toRawBytes(void *bytes, int byteCount) const
{
    if (byteCount <= 0)
        return;
    const int own = std::clamp(bytes_.size() - 1, 0, byteCount);
    std::memset(bytes, 0, std::size_t(byteCount));
    if (own > 0)
        std::memcpy(bytes, bytes_.bytes() + 1, std::size_t(own));
}
