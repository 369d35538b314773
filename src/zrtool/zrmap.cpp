#include <zrmap>

#include <algorithm>
#include <cstdlib>

ZrMapData::Data ZrMapData::sharedNull = {{}, ZrAtomicInt::permanent, 0, 0, ZrMapData::Sharable, 0,
                                         {}};

namespace
{

void *allocate(std::size_t size, std::size_t alignment)
{
    void *memory =
        alignment <= alignof(std::max_align_t)
            ? std::malloc(size)
            : std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

std::uint32_t nextRandom(std::uint32_t x)
{
    x ^= x << 13;
    x ^= x >> 17;
    return x ^ (x << 5);
}

// Each level holds about a quarter of the one below, and the top grows by one level at a time.
int chooseLevel(ZrMapData::Data *d)
{
    d->random = nextRandom(d->random);
    const int level = __builtin_ctz(d->random | (1u << 31)) / 2;
    return std::min({level, d->topLevel + 1, ZrMapData::levelCount - 1});
}

} // namespace

ZrMapData::Data *ZrMapData::createData(std::size_t)
{
    return new (allocate(sizeof(Data), alignof(Data))) Data{{}, 1, 0, 0, Sharable, 0x9E3779B9u, {}};
}

ZrMapData::Node *ZrMapData::node_create(Data *d, Node *update[], std::size_t payload,
                                        std::size_t alignment)
{
    d->index.drop(d->ref);
    const int level = chooseLevel(d);
    char *memory =
        static_cast<char *>(allocate(payload + std::size_t(level + 1) * sizeof(Node *), alignment));
    Node *node = reinterpret_cast<Node *>(memory + payload);
    if (level > d->topLevel) {
        d->topLevel = level;
        update[level] = d->head();
    }
    for (int i = 0; i <= level; i++) {
        node->forward[i] = update[i]->forward[i];
        update[i]->forward[i] = node;
    }
    d->size++;
    return node;
}

void ZrMapData::node_delete(Data *d, Node *update[], std::size_t payload, Node *node, std::size_t)
{
    d->index.drop(d->ref);
    for (int i = 0; i <= d->topLevel && update[i]->forward[i] == node; i++)
        update[i]->forward[i] = node->forward[i];
    while (d->topLevel > 0 && !d->forward[d->topLevel])
        d->topLevel--;
    d->size--;
    std::free(reinterpret_cast<char *>(node) - payload);
}

void ZrMapData::continueFreeData(Data *d, std::size_t payload, std::size_t)
{
    d->index.drop(d->ref);
    for (Node *node = d->forward[0]; node;) {
        Node *next = node->forward[0];
        std::free(reinterpret_cast<char *>(node) - payload);
        node = next;
    }
    std::free(static_cast<void *>(d));
}
