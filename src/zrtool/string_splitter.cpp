#include "zrtool/string_splitter.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace
{

// Half of a page with what the allocator adds: the most that a single kept part holds on to.
constexpr int slabBytes = 2000;
// A longer part, or one of a short text, has a body of its own.
constexpr int longestInSlab = 64;
constexpr int shortText = 128;

int roundedUp(std::size_t bytes)
{
    constexpr std::size_t alignment = alignof(std::max_align_t);
    return int((bytes + alignment - 1) / alignment * alignment);
}

} // namespace

ZrStringSplitter::ZrStringSplitter(const ZrString &text, ZrString::SplitBehavior behavior)
    : begin_(text.begin()), end_(text.end()), behavior_(behavior)
{
}

void ZrStringSplitter::closeSlab()
{
    if (slab_ && !slab_->bodies.deref())
        std::free(static_cast<void *>(slab_));
    slab_ = nullptr;
}

ZrString::Data *ZrStringSplitter::allocate(int length)
{
    const int bytes = roundedUp(ZrString::bodySize(length));
    if (!slab_ || slab_->used + bytes > slabBytes) {
        closeSlab();
        void *memory = std::malloc(slabBytes);
        if (!memory)
            throw std::bad_alloc();
        slab_ = new (memory) ZrString::Slab{1, roundedUp(sizeof(ZrString::Slab))};
    }
    void *memory = reinterpret_cast<char *>(slab_) + slab_->used;
    auto *body = new (memory) ZrString::Data{1, length, length, slab_->used, nullptr, {0}};
    body->data = body->array;
    slab_->used += bytes;
    slab_->bodies.ref();
    return body;
}

void ZrStringSplitter::cut(const ZrUcs2 *at, int separator)
{
    const int length = int(at - begin_);
    if (length == 0) {
        if (behavior_ == ZrString::KeepEmptyParts)
            parts_.append(ZrString());
    } else if (length > longestInSlab || (!slab_ && end_ - begin_ < shortText)) {
        parts_.append(ZrString::fromUtf16(begin_, length));
    } else {
        ZrString::Data *body = allocate(length);
        std::memcpy(body->data, begin_, std::size_t(length) * sizeof(ZrUcs2));
        body->data[length] = 0;
        parts_.append(ZrString(ZrString::Taken{body}));
    }
    begin_ = at + separator;
}

ZrStringList ZrStringSplitter::finish(const ZrUcs2 *end)
{
    cut(end, 0);
    return std::move(parts_);
}
