#include <zrhash>

#include <cstdlib>

ZrHashData ZrHashData::sharedNull = {nullptr, ZrAtomicInt::permanent, 0, 0, 0};

namespace
{

constexpr int smallestBits = 2;

void *checked(void *memory)
{
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

} // namespace

ZrHashData *ZrHashData::create(std::size_t nodeSize)
{
    return new (checked(std::malloc(sizeof(ZrHashData)))) ZrHashData{nullptr, 1, 0, 0, nodeSize};
}

ZrHashData::Node *ZrHashData::allocateNode(std::size_t alignment)
{
    const std::size_t bytes = (nodeSize + alignment - 1) / alignment * alignment;
    return static_cast<Node *>(checked(alignment <= alignof(std::max_align_t)
                                           ? std::malloc(bytes)
                                           : std::aligned_alloc(alignment, bytes)));
}

void ZrHashData::freeNode(Node *node)
{
    std::free(static_cast<void *>(node));
}

ZrHashData *ZrHashData::detach_helper2(CopyNode copy, std::size_t alignment)
{
    ZrHashData *body = create(nodeSize);
    if (!buckets)
        return body;
    body->rehash(bucketBits);
    for (int i = 0; i < bucketCount(); i++) {
        Node **to = body->buckets + i;
        for (Node *from = buckets[i]; from; from = from->next) {
            Node *node = body->allocateNode(alignment);
            copy(from, node);
            node->next = nullptr;
            *to = node;
            to = &node->next;
            body->size++;
        }
    }
    return body;
}

void ZrHashData::free_helper(DestroyNode destroy)
{
    for (int i = 0; i < bucketCount(); i++) {
        for (Node *node = buckets[i]; node;) {
            Node *next = node->next;
            destroy(node);
            freeNode(node);
            node = next;
        }
    }
    std::free(buckets);
    std::free(static_cast<void *>(this));
}

void ZrHashData::rehash(int bits)
{
    bits = bits < smallestBits ? smallestBits : bits;
    const int oldCount = bucketCount();
    Node **old = buckets;
    buckets = static_cast<Node **>(checked(std::calloc(std::size_t(1) << bits, sizeof(Node *))));
    bucketBits = bits;
    for (int i = 0; i < oldCount; i++) {
        for (Node *node = old[i]; node;) {
            Node *next = node->next;
            Node **to = bucket(node->hash);
            node->next = *to;
            *to = node;
            node = next;
        }
    }
    std::free(old);
}

ZrHashData::Node *ZrHashData::firstFrom(int index) const
{
    for (; index < bucketCount(); index++)
        if (buckets[index])
            return buckets[index];
    return nullptr;
}
