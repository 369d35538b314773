#include <zrlist>

#include <cstdlib>
#include <cstring>

ZrListData::Data ZrListData::sharedNull = {ZrAtomicInt::permanent, 0,        0, 0,
                                           ZrListData::Sharable,   {nullptr}};

namespace
{

constexpr int smallestAlloc = 4;
// A body of fewer slots is copied when it grows: the allocator has small blocks at hand, while its
// realloc searches for a neighbour to join.
constexpr int copiedSlots = 128;

ZrListData::Data *allocate(int alloc)
{
    const std::size_t bytes = ZrListData::headerSize + std::size_t(alloc) * sizeof(void *);
    auto *body =
        static_cast<ZrListData::Data *>(std::malloc(std::max(bytes, sizeof(ZrListData::Data))));
    if (!body)
        throw std::bad_alloc();
    new (body) ZrListData::Data{1, alloc, 0, 0, ZrListData::Sharable, {nullptr}};
    return body;
}

// By a part of the size, so that what appending costs on average stays constant: as much again
// while that is little, half as much when it would waste memory.
int grown(int slots)
{
    return std::max(smallestAlloc, slots < copiedSlots ? 2 * slots : slots + slots / 2);
}

void moveSlots(void **to, void **from, int count)
{
    std::memmove(to, from, std::size_t(count) * sizeof(void *));
}

} // namespace

void ZrListData::freeBody(Data *body)
{
    std::free(body);
}

ZrListData::Data *ZrListData::detach(int alloc)
{
    Data *old = d;
    d = allocate(std::max(alloc, int(old->end - old->begin)));
    d->end = old->end - old->begin;
    return old;
}

ZrListData::Data *ZrListData::detach_grow(int *index, int count)
{
    Data *old = d;
    const int size = int(old->end - old->begin);
    *index = std::clamp(*index, 0, size);
    d = allocate(grown(size + count));
    // What is inserted at the front is likely to be followed by more there.
    d->begin = *index == 0 && size > 0 ? (d->alloc - size - count) / 2 : 0;
    d->end = d->begin + size + count;
    return old;
}

void ZrListData::realloc(int alloc)
{
    alloc = std::max(alloc, int(d->end));
    if (d->alloc < copiedSlots) {
        Data *body = allocate(alloc);
        body->begin = d->begin;
        body->end = d->end;
        body->flags = d->flags;
        moveSlots(body->array + body->begin, begin(), size());
        freeBody(std::exchange(d, body));
        return;
    }
    auto *body = static_cast<Data *>(
        std::realloc(static_cast<void *>(d),
                     std::max(headerSize + std::size_t(alloc) * sizeof(void *), sizeof(Data))));
    if (!body)
        throw std::bad_alloc();
    d = body;
    d->alloc = alloc;
}

void ZrListData::makeRoomBehind(int count)
{
    const int slots = size();
    // A list used as a queue has its room in front: sliding back is cheaper than growing, as long
    // as it is not done more often than every so many elements.
    if (d->begin > slots / 2 && d->alloc - slots >= count) {
        moveSlots(d->array, begin(), slots);
        d->begin = 0;
        d->end = slots;
        return;
    }
    realloc(grown(int(d->end) + count));
}

void ZrListData::makeRoomBefore()
{
    const int slots = size();
    if (d->alloc - d->end <= slots / 2 + 1)
        realloc(grown(d->alloc + slots / 2 + 2));
    const int begin = (d->alloc - slots + 1) / 2;
    moveSlots(d->array + begin, d->array + d->begin, slots);
    d->begin = begin;
    d->end = begin + slots;
}

void **ZrListData::append(int count)
{
    if (d->alloc - d->end < count)
        makeRoomBehind(count);
    void **slots = d->array + d->end;
    d->end += count;
    return slots;
}

void **ZrListData::append2(const ZrListData &other)
{
    return append(other.size());
}

void **ZrListData::prepend()
{
    if (d->begin == 0)
        makeRoomBefore();
    return d->array + --d->begin;
}

void **ZrListData::insert(int index)
{
    const int slots = size();
    if (index <= 0)
        return prepend();
    if (index >= slots)
        return append();
    if (d->begin > 0 && (index < slots / 2 || d->end == d->alloc)) {
        d->begin--;
        moveSlots(begin(), begin() + 1, index);
    } else {
        append();
        moveSlots(at(index + 1), at(index), slots - index);
    }
    return at(index);
}

void ZrListData::remove(int index, int count)
{
    const int behind = size() - index - count;
    if (index < behind) {
        moveSlots(begin() + count, begin(), index);
        d->begin += count;
    } else {
        moveSlots(at(index), at(index + count), behind);
        d->end -= count;
    }
    if (isEmpty())
        d->begin = d->end = 0;
}

void **ZrListData::erase(void **slot)
{
    const int index = int(slot - begin());
    remove(index);
    return at(index);
}

// Slots may hold objects, which only a byte-wise copy moves without looking at them.
void ZrListData::move(int from, int to)
{
    void *moved;
    std::memcpy(&moved, at(from), sizeof moved);
    if (from < to)
        moveSlots(at(from), at(from + 1), to - from);
    else
        moveSlots(at(to + 1), at(to), from - to);
    std::memcpy(at(to), &moved, sizeof moved);
}
