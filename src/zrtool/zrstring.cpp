#include <zrstring>

#include "zrtool/letter_case.h"
#include "zrtool/string_splitter.h"
#include "zrtool/utf8.h"

#include <zrstringlist>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>

using namespace zrtool;

ZrString::Data ZrString::sharedNull = {ZrAtomicInt::permanent, 0, 0, 0, sharedNull.array, {0}};

namespace
{

// A body of fewer units is copied when it grows: the allocator has small blocks at hand, while its
// realloc searches for a neighbour to join.
constexpr int copiedUnits = 512;

std::size_t bytesOf(int units)
{
    return std::size_t(units) * sizeof(ZrUcs2);
}

// Room for at least `size` units and for more to come: a short text soon outgrows twice its size,
// a long one would waste much memory.
int grown(int size)
{
    constexpr int smallest = 16, growsFast = 256;
    return std::max(smallest, size < growsFast ? 4 * size : 2 * size);
}

bool isSpace(ZrUcs2 unit)
{
    return unit == ' ' || (unit >= 9 && unit <= 13) || unit == 0x85 || unit == 0xA0 ||
           unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 ||
           unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

} // namespace

// The units and their terminator begin within the body.
std::size_t ZrString::bodySize(int alloc)
{
    return std::max(sizeof(Data), offsetof(Data, array) + bytesOf(alloc + 1));
}

ZrString::Data *ZrString::allocate(int alloc)
{
    auto *body = static_cast<Data *>(std::malloc(bodySize(alloc)));
    if (!body)
        throw std::bad_alloc();
    new (body) Data{1, alloc, 0, 0, nullptr, {0}};
    body->data = body->array;
    return body;
}

void ZrString::freeBody(Data *body)
{
    if (body->inSlab) {
        auto *slab = reinterpret_cast<Slab *>(reinterpret_cast<char *>(body) - body->inSlab);
        if (!slab->bodies.deref())
            std::free(static_cast<void *>(slab));
    } else {
        std::free(static_cast<void *>(body));
    }
}

// Gives the string an unshared body with room for `alloc` units; keeps the text as far as it fits.
void ZrString::reallocate(int alloc)
{
    if (d->ref.isShared() || d->inSlab || d->alloc < copiedUnits) {
        Data *body = allocate(alloc);
        body->size = std::min(d->size, alloc);
        std::memcpy(body->data, d->data, bytesOf(body->size));
        release(std::exchange(d, body));
    } else {
        auto *body = static_cast<Data *>(std::realloc(static_cast<void *>(d), bodySize(alloc)));
        if (!body)
            throw std::bad_alloc();
        d = body;
        d->data = d->array;
        d->alloc = alloc;
        d->size = std::min(d->size, alloc);
    }
    d->data[d->size] = 0;
}

// An unshared body with room for `size` units and, when it has to grow, for more.
void ZrString::makeRoom(int size)
{
    if (d->alloc < size)
        reallocate(d->size == 0 && size > 8 ? size : grown(size));
    else if (d->ref.isShared())
        reallocate(std::max(size, d->size));
}

int ZrString::boundary(int position) const
{
    position = std::clamp(position, 0, d->size);
    const bool inside = position > 0 && position < d->size && isLowSurrogate(d->data[position]) &&
                        isHighSurrogate(d->data[position - 1]);
    return inside ? position - 1 : position;
}

ZrString::ZrString(const char *utf8, int length) : ZrString()
{
    if (utf8)
        assignUtf8(utf8, length < 0 ? int(std::min<std::size_t>(std::strlen(utf8), INT_MAX / 4))
                                    : length);
}

void ZrString::assignUtf8(const char *utf8, int length)
{
    if (length <= 0) {
        clear();
        return;
    }
    if (d->ref.isShared() || d->alloc < length) {
        release(std::exchange(d, &sharedNull));
        reallocate(length);
    }
    d->size = int(utf8ToUtf16(utf8, std::size_t(length), d->data));
    d->data[d->size] = 0;
    // Text of two or three bytes a character leaves much of the room unused.
    if (d->alloc - d->size > 64 && d->size < d->alloc / 2)
        reallocate(d->size);
}

ZrString::ZrString(int count, ZrUcs2 unit) : ZrString()
{
    if (count <= 0)
        return;
    reallocate(count);
    std::fill_n(d->data, count, unit);
    d->data[count] = 0;
    d->size = count;
}

ZrString &ZrString::operator=(const ZrString &other)
{
    other.d->ref.ref();
    release(std::exchange(d, other.d));
    return *this;
}

ZrString ZrString::fromUtf16(const ZrUcs2 *units, int length)
{
    if (!units || length <= 0)
        return ZrString();
    Data *body = allocate(length);
    std::memcpy(body->data, units, bytesOf(length));
    body->data[length] = 0;
    body->size = length;
    return ZrString(Taken{body});
}

ZrString &ZrString::append(const ZrString &other)
{
    if (isEmpty() && d->alloc <= other.d->size)
        return *this = other;
    const ZrString kept(other); // appending a string to itself
    return append(kept.d->data, kept.d->size);
}

ZrString &ZrString::append(const ZrUcs2 *units, int length)
{
    if (length <= 0)
        return *this;
    makeRoom(d->size + length);
    std::memcpy(d->data + d->size, units, bytesOf(length));
    d->size += length;
    d->data[d->size] = 0;
    return *this;
}

ZrString &ZrString::insert(int position, const ZrString &other)
{
    return replace(std::clamp(position, 0, d->size), 0, other);
}

ZrString &ZrString::insert(int position, ZrUcs2 unit)
{
    position = std::clamp(position, 0, d->size);
    makeRoom(d->size + 1);
    ZrUcs2 *place = d->data + position;
    std::memmove(place + 1, place, bytesOf(d->size - position + 1));
    *place = unit;
    d->size++;
    return *this;
}

ZrString &ZrString::remove(int position, int length)
{
    return replace(position, length, ZrString());
}

ZrString &ZrString::remove(ZrUcs2 unit, Zr::CaseSensitivity sensitivity)
{
    return remove(ZrString(unit), sensitivity);
}

ZrString &ZrString::remove(const ZrString &text, Zr::CaseSensitivity sensitivity)
{
    return replace(text, ZrString(), sensitivity);
}

ZrString &ZrString::replace(int position, int length, const ZrString &by)
{
    position = std::clamp(position, 0, d->size);
    const int rest = d->size - position;
    length = length < 0 ? rest : std::min(length, rest);
    if (length == 0 && by.isEmpty())
        return *this;
    const ZrString kept(by); // it may be this string
    const int added = kept.d->size;
    makeRoom(d->size - length + added);
    ZrUcs2 *place = d->data + position;
    std::memmove(place + added, place + length, bytesOf(rest - length + 1));
    std::memcpy(place, kept.d->data, bytesOf(added));
    d->size += added - length;
    return *this;
}

ZrString &ZrString::replace(ZrUcs2 unit, ZrUcs2 by, Zr::CaseSensitivity sensitivity)
{
    const ZrUcs2 folded = foldCase(unit);
    const bool sensitive = sensitivity == Zr::CaseSensitive;
    for (int i = indexOf(unit, 0, sensitivity); i >= 0 && i < size(); i++)
        if (sensitive ? at(i) == unit : foldCase(at(i)) == folded)
            (*this)[i] = by;
    return *this;
}

ZrString &ZrString::replace(const ZrString &text, const ZrString &by,
                            Zr::CaseSensitivity sensitivity)
{
    int found = text.isEmpty() ? -1 : indexOf(text, 0, sensitivity);
    if (found < 0)
        return *this;
    ZrString result;
    result.reserve(d->size);
    int from = 0;
    for (; found >= 0; found = indexOf(text, from, sensitivity)) {
        result.append(d->data + from, found - from);
        result.append(by.d->data, by.d->size);
        from = found + text.size();
    }
    result.append(d->data + from, d->size - from);
    swap(result);
    return *this;
}

void ZrString::resize(int size)
{
    size = std::max(size, 0);
    const int old = d->size;
    if (size == old)
        return;
    makeRoom(size);
    if (size > old)
        std::fill(d->data + old, d->data + size, ZrUcs2(0));
    d->size = size;
    d->data[size] = 0;
}

void ZrString::reserve(int size)
{
    if (size > d->alloc || d->ref.isShared())
        reallocate(std::max(size, d->size));
}

void ZrString::truncate(int size)
{
    if (size < d->size)
        resize(boundary(size));
}

ZrString &ZrString::fill(ZrUcs2 unit, int size)
{
    return *this = ZrString(size < 0 ? d->size : size, unit);
}

ZrString ZrString::left(int length) const
{
    return mid(0, std::max(length, 0));
}

ZrString ZrString::right(int length) const
{
    return length >= d->size ? *this : mid(d->size - std::max(length, 0));
}

ZrString ZrString::mid(int position, int length) const
{
    position = std::clamp(position, 0, d->size);
    const int rest = d->size - position;
    const int end = boundary(length < 0 || length > rest ? d->size : position + length);
    const int begin = boundary(position);
    return begin == 0 && end == d->size ? *this : fromUtf16(d->data + begin, end - begin);
}

ZrString ZrString::trimmed() const
{
    const ZrUcs2 *first = begin(), *last = end();
    while (first < last && isSpace(*first))
        first++;
    while (first < last && isSpace(last[-1]))
        last--;
    return last - first == d->size ? *this : fromUtf16(first, int(last - first));
}

ZrString ZrString::simplified() const
{
    ZrString result;
    for (const ZrUcs2 *at = begin(); at < end(); at++) {
        if (!isSpace(*at))
            result.append(*at);
        else if (!result.isEmpty() && !isSpace(result.end()[-1]))
            result.append(ZrUcs2(' '));
    }
    if (!result.isEmpty() && isSpace(result.end()[-1]))
        result.resize(result.size() - 1);
    return result;
}

ZrString ZrString::toUpper() const
{
    ZrString result(*this);
    for (int i = 0; i < d->size; i++)
        if (const ZrUcs2 upper = upperCase(d->data[i]); upper != d->data[i])
            result[i] = upper;
    return result;
}

ZrString ZrString::toLower() const
{
    ZrString result(*this);
    for (int i = 0; i < d->size; i++)
        if (const ZrUcs2 lower = lowerCase(d->data[i]); lower != d->data[i])
            result[i] = lower;
    return result;
}

// How many units two texts have in common from their beginning. Keys of one map often begin alike,
// so it goes four units at a time as long as it can.
static int equalUnits(const ZrUcs2 *a, const ZrUcs2 *b, int count)
{
    constexpr int step = sizeof(std::uint64_t) / sizeof(ZrUcs2);
    int i = 0;
    for (; i + step <= count; i += step) {
        std::uint64_t left, right;
        std::memcpy(&left, a + i, sizeof left);
        std::memcpy(&right, b + i, sizeof right);
        if (left != right)
            break;
    }
    while (i < count && a[i] == b[i])
        ++i;
    return i;
}

int ZrString::compare(const ZrString &other, Zr::CaseSensitivity sensitivity) const
{
    const ZrUcs2 *a = d->data, *b = other.d->data;
    const int both = std::min(d->size, other.d->size);
    if (sensitivity == Zr::CaseInsensitive) {
        for (int i = 0; i < both; i++)
            if (const int difference = foldCase(a[i]) - foldCase(b[i]))
                return difference;
    } else {
        const int apart = equalUnits(a, b, both);
        if (apart != both)
            return a[apart] - b[apart];
    }
    return d->size - other.d->size;
}

bool operator==(const ZrString &a, const ZrString &b)
{
    return a.d == b.d ||
           (a.d->size == b.d->size && std::memcmp(a.d->data, b.d->data, bytesOf(a.d->size)) == 0);
}

ZrString operator+(const ZrString &a, const ZrString &b)
{
    ZrString sum;
    sum.reserve(a.size() + b.size());
    sum.append(a.constData(), a.size());
    sum.append(b.constData(), b.size());
    return sum;
}

ZrString operator+(const ZrString &a, ZrUcs2 b)
{
    ZrString sum(a);
    sum.append(b);
    return sum;
}

ZrByteArray ZrString::toUtf8() const
{
    // Most text takes a byte for each unit; only the rest needs the exact worst case.
    ZrByteArray bytes;
    bytes.resize(d->size);
    const ZrUcs2 *unit = begin();
    char *to = bytes.data();
    while (unit < end() && *unit < 0x80)
        *to++ = char(*unit++);
    if (unit == end())
        return bytes;
    const int ascii = int(unit - begin()), rest = d->size - ascii;
    bytes.resize(ascii + 3 * rest);
    bytes.resize(ascii + int(utf16ToUtf8(unit, std::size_t(rest), bytes.data() + ascii)));
    return bytes;
}
