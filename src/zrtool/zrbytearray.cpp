#include <zrbytearray>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace
{

template <typename Data>
Data *checked(void *memory)
{
    if (!memory)
        throw std::bad_alloc();
    return static_cast<Data *>(memory);
}

} // namespace

ZrByteArray::Data ZrByteArray::sharedNull = {ZrAtomicInt::permanent, 0, 0, sharedNull.array, {0}};

ZrByteArray::Data *ZrByteArray::allocate(int alloc)
{
    Data *body = checked<Data>(std::malloc(sizeof(Data) + std::size_t(alloc)));
    new (body) Data{1, alloc, 0, nullptr, {0}};
    body->data = body->array;
    return body;
}

void ZrByteArray::release(Data *body)
{
    if (body->ref.deref())
        return;
    if (body->alloc == owned)
        delete[] body->data;
    std::free(static_cast<void *>(body));
}

ZrByteArray::ZrByteArray(const char *bytes, int length) : ZrByteArray()
{
    if (bytes)
        append(bytes, length < 0 ? int(std::strlen(bytes)) : length);
}

ZrByteArray::ZrByteArray(int count, char byte) : ZrByteArray()
{
    if (count <= 0)
        return;
    reallocate(count);
    std::memset(d->data, byte, std::size_t(count));
    d->data[count] = '\0';
    d->size = count;
}

ZrByteArray &ZrByteArray::operator=(const ZrByteArray &other)
{
    other.d->ref.ref();
    release(std::exchange(d, other.d));
    return *this;
}

ZrByteArray ZrByteArray::fromRawBytes(const char *bytes, int length, RawBytes ownership)
{
    ZrByteArray array;
    if (!bytes || length < 0)
        return array;
    Data *body = allocate(0);
    body->alloc = ownership == RawBytes::Own ? owned : borrowed;
    body->size = length;
    body->data = const_cast<char *>(bytes); // never written: detach() comes first
    release(std::exchange(array.d, body));
    return array;
}

// Gives the array an unshared body of its own with room for `alloc` bytes; keeps the contents as
// far as they fit.
void ZrByteArray::reallocate(int alloc)
{
    if (!d->ref.isShared() && d->alloc >= 0) {
        d = checked<Data>(std::realloc(static_cast<void *>(d), sizeof(Data) + std::size_t(alloc)));
        d->data = d->array;
        d->alloc = alloc;
        d->size = std::min(d->size, alloc);
    } else {
        Data *body = allocate(alloc);
        body->size = std::min(d->size, alloc);
        std::memcpy(body->data, d->data, std::size_t(body->size));
        release(std::exchange(d, body));
    }
    d->data[d->size] = '\0';
}

void ZrByteArray::makeRoom(int size)
{
    if (d->ref.isShared() || d->alloc < size)
        reallocate(d->alloc < size && d->size > 0 ? size + size / 2 : std::max(size, d->size));
}

void ZrByteArray::detach()
{
    if (d->ref.isShared() || d->alloc < 0)
        reallocate(d->size);
}

void ZrByteArray::append(const char *bytes, int length)
{
    if (length <= 0)
        return;
    const ZrByteArray kept(*this); // the bytes may lie in this array
    const bool inside = bytes >= d->data && bytes <= d->data + d->size;
    if (!inside)
        const_cast<ZrByteArray &>(kept).clear();
    makeRoom(d->size + length);
    std::memcpy(d->data + d->size, bytes, std::size_t(length));
    d->size += length;
    d->data[d->size] = '\0';
}

void ZrByteArray::append(const ZrByteArray &other)
{
    if (isEmpty())
        *this = other;
    else
        append(other.d->data, other.d->size);
}

void ZrByteArray::resize(int size)
{
    size = std::max(size, 0);
    const int old = d->size;
    if (size == old)
        return;
    makeRoom(size);
    if (size > old)
        std::memset(d->data + old, 0, std::size_t(size - old));
    d->size = size;
    d->data[size] = '\0';
}

void ZrByteArray::reserve(int size)
{
    if (size > d->alloc || d->ref.isShared())
        reallocate(std::max(size, d->size));
}

ZrByteArray ZrByteArray::mid(int position, int length) const
{
    position = std::clamp(position, 0, d->size);
    const int rest = d->size - position;
    length = length < 0 ? rest : std::min(length, rest);
    return length == d->size ? *this : ZrByteArray(d->data + position, length);
}

int ZrByteArray::indexOf(char byte, int from) const
{
    from = std::max(from, 0);
    if (from >= d->size)
        return -1;
    const void *found = std::memchr(d->data + from, byte, std::size_t(d->size - from));
    return found ? int(static_cast<const char *>(found) - d->data) : -1;
}

bool ZrByteArray::operator==(const ZrByteArray &other) const
{
    return d->size == other.d->size &&
           std::memcmp(d->data, other.d->data, std::size_t(d->size)) == 0;
}

bool ZrByteArray::operator<(const ZrByteArray &other) const
{
    const int order =
        std::memcmp(d->data, other.d->data, std::size_t(std::min(d->size, other.d->size)));
    return order ? order < 0 : d->size < other.d->size;
}
