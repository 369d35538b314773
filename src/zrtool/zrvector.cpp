#include <zrvector>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

ZrVectorData ZrVectorData::sharedNull = {ZrAtomicInt::permanent, 0, 0, ZrVectorData::Sharable};

namespace
{

bool isOrdinary(std::size_t alignment)
{
    return alignment <= alignof(std::max_align_t);
}

} // namespace

ZrVectorData *ZrVectorData::allocate(std::size_t size, std::size_t alignment)
{
    void *memory =
        isOrdinary(alignment)
            ? std::malloc(size)
            : std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
    if (!memory)
        throw std::bad_alloc();
    return static_cast<ZrVectorData *>(memory);
}

void ZrVectorData::freeData(ZrVectorData *body, std::size_t)
{
    std::free(body);
}

ZrVectorData *ZrVectorData::reallocate(ZrVectorData *body, std::size_t size, std::size_t oldSize,
                                       std::size_t alignment)
{
    if (isOrdinary(alignment)) {
        void *memory = std::realloc(static_cast<void *>(body), size);
        if (!memory)
            throw std::bad_alloc();
        return static_cast<ZrVectorData *>(memory);
    }
    ZrVectorData *moved = allocate(size, alignment);
    std::memcpy(static_cast<void *>(moved), body, std::min(size, oldSize));
    freeData(body, alignment);
    return moved;
}

int ZrVectorData::grow(int headerSize, int size, int elementSize, bool exact)
{
    const long long needed = headerSize + (long long)size * elementSize;
    if (needed > INT_MAX) {
        std::fprintf(stderr, "ZrVector: %lld bytes are more than a vector can hold\n", needed);
        std::abort();
    }
    if (exact)
        return size;
    const long long roomy = needed + needed / 2;
    return std::max(size, int((std::min<long long>(roomy, INT_MAX) - headerSize) / elementSize));
}
