#include <zrregion>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>

// Rectangles are plain data here: bodies and buffers are moved as bytes.
static_assert(sizeof(ZrRect) == 4 * sizeof(int), "a rectangle is its four edges");

ZrRegion::Data ZrRegion::sharedNull = {ZrAtomicInt::permanent, 0, 0, ZrRect(), {ZrRect()}};

namespace
{

// A region with up to this many rectangles costs one small allocation.
constexpr int smallestAlloc = 4;

// The end of the band that begins at `at`.
const ZrRect *bandEnd(const ZrRect *at, const ZrRect *end)
{
    const int top = at->top();
    do
        at++;
    while (at < end && at->top() == top);
    return at;
}

const ZrRect *firstReaching(const ZrRect *begin, const ZrRect *end, int y)
{
    return std::partition_point(begin, end, [y](const ZrRect &r) { return r.bottom() < y; });
}

const ZrRect *firstBelow(const ZrRect *begin, const ZrRect *end, int y)
{
    return std::partition_point(begin, end, [y](const ZrRect &r) { return r.top() <= y; });
}

} // namespace

// Collects canonical bands. Starts on the stack and moves to a body when that is full.
class ZrRegion::Builder
{
public:
    explicit Builder(int expected)
    {
        if (expected > onStack)
            moveToBody(expected);
    }
    ~Builder() { std::free(static_cast<void *>(body_)); }
    Builder(const Builder &) = delete;
    Builder &operator=(const Builder &) = delete;

    // Room for this many more columns; asked for once a band, so that put() need not.
    void reserve(int more)
    {
        if (size_ + more > room_)
            moveToBody((size_ + more) * 2);
    }
    void put(int left, int right) { rects_[size_++] = ZrRect::fromEdges(left, 0, right, 0); }
    // Without a branch that could be predicted wrongly.
    void putIf(bool wanted, int left, int right)
    {
        rects_[size_] = ZrRect::fromEdges(left, 0, right, 0);
        size_ += wanted;
    }
    // Gives the columns put since the last band their lines, or joins them to the band above.
    void close(int top, int bottom)
    {
        const int count = size_ - band_;
        if (count == 0)
            return;
        if (band_ - above_ == count && rects_[above_].bottom() + 1 == top && columnsRepeat(count)) {
            for (int i = above_; i < band_; i++)
                rects_[i].setBottom(bottom);
            size_ = band_;
            return;
        }
        for (int i = band_; i < size_; i++) {
            rects_[i].setTop(top);
            rects_[i].setBottom(bottom);
        }
        above_ = band_;
        band_ = size_;
    }
    void copyBand(const ZrRect *from, const ZrRect *end, int top, int bottom)
    {
        reserve(int(end - from) + 1);
        for (; from < end; from++)
            put(from->left(), from->right());
        close(top, bottom);
    }
    int size() const { return size_; }
    const ZrRect *rects() const { return rects_; }
    // The rectangles as a region. The builder is not used any more.
    ZrRegion finish()
    {
        ZrRegion result;
        if (size_ == 0)
            return result;
        if (!body_)
            moveToBody(size_);
        body_->size = size_;
        result.d = std::exchange(body_, nullptr);
        result.findBounds();
        return result;
    }

private:
    static constexpr int onStack = 96;

    bool columnsRepeat(int count) const
    {
        for (int i = 0; i < count; i++)
            if (rects_[above_ + i].left() != rects_[band_ + i].left() ||
                rects_[above_ + i].right() != rects_[band_ + i].right())
                return false;
        return true;
    }
    void moveToBody(int room)
    {
        Data *body = allocate(room);
        std::memcpy(static_cast<void *>(body->rects), rects_, std::size_t(size_) * sizeof(ZrRect));
        std::free(static_cast<void *>(std::exchange(body_, body)));
        rects_ = body->rects;
        room_ = body->alloc;
    }

    union Stack {
        Stack() {}
        ZrRect rects[onStack];
    } stack_;
    Data *body_ = nullptr;
    ZrRect *rects_ = stack_.rects;
    int room_ = onStack;
    int size_ = 0;
    int band_ = 0;  // the first column of the band being put
    int above_ = 0; // the first rectangle of the band above it
};

// The operations on one band: columns p..pEnd of the first, q..qEnd of the second operand.
// keepFirst and keepSecond say what happens to lines that only one operand has.
namespace
{

struct Intersect {
    static constexpr bool keepFirst = false, keepSecond = false;
    template <typename Out>
    static void band(Out &out, const ZrRect *p, const ZrRect *pEnd, const ZrRect *q,
                     const ZrRect *qEnd)
    {
        while (p < pEnd && q < qEnd) {
            const int left = std::max(p->left(), q->left());
            const int right = std::min(p->right(), q->right());
            out.putIf(left <= right, left, right);
            const bool pDone = p->right() <= q->right(), qDone = q->right() <= p->right();
            p += pDone;
            q += qDone;
        }
    }
};

struct Subtract {
    static constexpr bool keepFirst = true, keepSecond = false;
    template <typename Out>
    static void band(Out &out, const ZrRect *p, const ZrRect *pEnd, const ZrRect *q,
                     const ZrRect *qEnd)
    {
        // The first operand's columns within the gaps of the second.
        for (int gapLeft = INT_MIN; p < pEnd;) {
            const int gapRight = q < qEnd ? q->left() - 1 : INT_MAX;
            const int left = std::max(p->left(), gapLeft);
            const int right = std::min(p->right(), gapRight);
            out.putIf(left <= right, left, right);
            if (p->right() <= gapRight) {
                p++;
            } else {
                gapLeft = q->right() + 1;
                q++;
            }
        }
    }
};

struct Unite {
    static constexpr bool keepFirst = true, keepSecond = true;
    template <typename Out>
    static void band(Out &out, const ZrRect *p, const ZrRect *pEnd, const ZrRect *q,
                     const ZrRect *qEnd)
    {
        int left = std::min(p->left(), q->left());
        int right = left - 1;
        for (auto count = (pEnd - p) + (qEnd - q); count > 0; count--) {
            const int pLeft = p < pEnd ? p->left() : INT_MAX;
            const int qLeft = q < qEnd ? q->left() : INT_MAX;
            const bool fromFirst = pLeft < qLeft;
            const ZrRect *next = fromFirst ? p : q;
            p += fromFirst;
            q += !fromFirst;
            const bool apart = next->left() > right + 1 && right >= left;
            out.putIf(apart, left, right);
            left = apart ? next->left() : left;
            right = std::max(right, next->right());
        }
        out.put(left, right);
    }
};

// Coverage changes at the edges that only one operand has.
struct Eor {
    static constexpr bool keepFirst = true, keepSecond = true;
    template <typename Out>
    static void band(Out &out, const ZrRect *p, const ZrRect *pEnd, const ZrRect *q,
                     const ZrRect *qEnd)
    {
        int left = 0;
        bool inside = false, pInside = false, qInside = false;
        while (p < pEnd || q < qEnd) {
            const int pEdge = edge(p, pEnd, pInside), qEdge = edge(q, qEnd, qInside);
            if (pEdge != qEdge) {
                const int at = std::min(pEdge, qEdge);
                if (inside)
                    out.put(left, at - 1);
                left = at;
                inside = !inside;
            }
            if (pEdge <= qEdge)
                pass(p, pInside);
            if (qEdge <= pEdge)
                pass(q, qInside);
        }
    }

private:
    static int edge(const ZrRect *r, const ZrRect *end, bool inside)
    {
        return r >= end ? INT_MAX : inside ? r->right() + 1 : r->left();
    }
    static void pass(const ZrRect *&r, bool &inside)
    {
        r += inside;
        inside = !inside;
    }
};

} // namespace

template <typename Operation>
void ZrRegion::combine(Builder &out, const ZrRect *a, const ZrRect *aEnd, const ZrRect *b,
                       const ZrRect *bEnd)
{
    int next = INT_MIN; // the first line not worked on yet
    while (a < aEnd && b < bEnd) {
        const ZrRect *aNext = bandEnd(a, aEnd), *bNext = bandEnd(b, bEnd);
        const int aTop = std::max(a->top(), next), bTop = std::max(b->top(), next);
        if (Operation::keepFirst && aTop < bTop)
            out.copyBand(a, aNext, aTop, std::min(a->bottom(), bTop - 1));
        if (Operation::keepSecond && bTop < aTop)
            out.copyBand(b, bNext, bTop, std::min(b->bottom(), aTop - 1));
        const int top = std::max(aTop, bTop), bottom = std::min(a->bottom(), b->bottom());
        if (top <= bottom) {
            out.reserve(2 * int((aNext - a) + (bNext - b)) + 1);
            Operation::band(out, a, aNext, b, bNext);
            out.close(top, bottom);
        }
        next = bottom + 1;
        if (a->bottom() < next)
            a = aNext;
        if (b->bottom() < next)
            b = bNext;
    }
    const auto copyRest = [&](const ZrRect *at, const ZrRect *end) {
        while (at < end) {
            const ZrRect *after = bandEnd(at, end);
            out.copyBand(at, after, std::max(at->top(), next), at->bottom());
            at = after;
        }
    };
    if (Operation::keepFirst)
        copyRest(a, aEnd);
    if (Operation::keepSecond)
        copyRest(b, bEnd);
}

ZrRegion::Data *ZrRegion::allocate(int alloc)
{
    alloc = std::max(alloc, smallestAlloc);
    auto *body =
        static_cast<Data *>(std::malloc(sizeof(Data) + std::size_t(alloc - 1) * sizeof(ZrRect)));
    if (!body)
        throw std::bad_alloc();
    return new (body) Data{1, alloc, 0, ZrRect(), {ZrRect()}};
}

void ZrRegion::release(Data *body)
{
    if (!body->ref.deref())
        std::free(static_cast<void *>(body));
}

// An unshared body with room for `alloc` rectangles that keeps what the region has.
void ZrRegion::reserve(int alloc)
{
    if (!d->ref.isShared() && d->alloc >= alloc)
        return;
    alloc = std::max(alloc, d->size);
    Data *body = allocate(alloc == d->size || d->size == 0 ? alloc : alloc + alloc / 2);
    body->size = d->size;
    body->bounds = d->bounds;
    std::memcpy(static_cast<void *>(body->rects), d->rects, std::size_t(d->size) * sizeof(ZrRect));
    release(std::exchange(d, body));
}

void ZrRegion::findBounds()
{
    if (d->size == 0) {
        d->bounds = ZrRect();
        return;
    }
    int left = INT_MAX, right = INT_MIN;
    for (const ZrRect &r : *this) {
        left = std::min(left, r.left());
        right = std::max(right, r.right());
    }
    d->bounds = ZrRect::fromEdges(left, d->rects[0].top(), right, d->rects[d->size - 1].bottom());
}

ZrRect ZrRegion::clamped(const ZrRect &rect)
{
    return rect & ZrRect::fromEdges(-limit, -limit, limit, limit);
}

// Combines in place, working only on the bands that the other operand, within `bounds`, reaches
// or touches: the rest of the list is moved at most once.
template <typename Operation>
void ZrRegion::edit(const ZrRect *rects, int count, const ZrRect &bounds)
{
    const ZrRect *first = firstReaching(begin(), end(), bounds.top() - 1);
    const ZrRect *last = firstBelow(first, end(), bounds.bottom() + 1);
    Builder out(int(last - first) + 2 * count);
    combine<Operation>(out, first, last, rects, rects + count);
    const int at = int(first - begin()), replaced = int(last - first);
    const int behind = d->size - at - replaced;
    reserve(at + out.size() + behind);
    ZrRect *place = d->rects + at;
    std::memmove(static_cast<void *>(place + out.size()), place + replaced,
                 std::size_t(behind) * sizeof(ZrRect));
    std::memcpy(static_cast<void *>(place), out.rects(), std::size_t(out.size()) * sizeof(ZrRect));
    d->size = at + out.size() + behind;
}

template <typename Operation>
ZrRegion ZrRegion::combined(const ZrRegion &a, const ZrRegion &b)
{
    Builder out(a.d->size + b.d->size);
    combine<Operation>(out, a.begin(), a.end(), b.begin(), b.end());
    return out.finish();
}

ZrRegion::ZrRegion(const ZrRect &rect, RegionType) : ZrRegion()
{
    const ZrRect kept = clamped(rect);
    if (kept.isEmpty())
        return;
    reserve(1);
    d->rects[0] = d->bounds = kept;
    d->size = 1;
}

ZrRegion ZrRegion::unitedHalves(const ZrRect *rects, int count)
{
    constexpr int few = 8;
    if (count <= few) {
        ZrRegion region;
        for (int i = 0; i < count; i++)
            region += rects[i];
        return region;
    }
    const int half = count / 2;
    ZrRegion region = unitedHalves(rects, half);
    region += unitedHalves(rects + half, count - half);
    return region;
}

ZrRegion ZrRegion::fromRects(const ZrRect *rects, int count)
{
    // From top to bottom, so that halves share few bands.
    ZrVector<ZrRect> sorted;
    sorted.append(rects, count);
    std::sort(sorted.begin(), sorted.end(), [](const ZrRect &a, const ZrRect &b) {
        return a.top() != b.top() ? a.top() < b.top() : a.left() < b.left();
    });
    return unitedHalves(sorted.constData(), sorted.size());
}

ZrRegion &ZrRegion::operator=(const ZrRegion &other)
{
    other.d->ref.ref(); // first: it may be this one
    release(std::exchange(d, other.d));
    return *this;
}

ZrVector<ZrRect> ZrRegion::rects() const
{
    ZrVector<ZrRect> list;
    list.append(d->rects, d->size);
    return list;
}

bool ZrRegion::contains(ZrPoint point) const
{
    if (!d->bounds.contains(point))
        return false;
    const int x = point.x(), y = point.y();
    const ZrRect *found = std::partition_point(begin(), end(), [x, y](const ZrRect &r) {
        return r.bottom() < y || (r.top() <= y && r.right() < x);
    });
    return found != end() && found->contains(point);
}

bool ZrRegion::contains(const ZrRect &rect) const
{
    if (!d->bounds.contains(rect))
        return false;
    int line = rect.top(); // the first one not found yet
    for (const ZrRect *r = firstReaching(begin(), end(), line); r < end() && r->top() <= line;) {
        const ZrRect *after = bandEnd(r, end());
        while (r < after && r->right() < rect.right())
            r++;
        if (r == after || r->left() > rect.left())
            return false;
        line = r->bottom() + 1;
        if (line > rect.bottom())
            return true;
        r = after;
    }
    return false;
}

bool ZrRegion::intersects(const ZrRect &rect) const
{
    if (!d->bounds.intersects(rect))
        return false;
    for (const ZrRect *r = firstReaching(begin(), end(), rect.top());
         r < end() && r->top() <= rect.bottom(); r++)
        if (r->intersects(rect))
            return true;
    return false;
}

bool ZrRegion::intersects(const ZrRegion &other) const
{
    const bool fewer = d->size < other.d->size;
    const ZrRegion &many = fewer ? other : *this;
    const ZrRegion &few = fewer ? *this : other;
    return std::any_of(few.begin(), few.end(), [&](const ZrRect &r) { return many.intersects(r); });
}

void ZrRegion::translate(int dx, int dy)
{
    if (isEmpty() || (dx == 0 && dy == 0))
        return;
    const ZrRect to = d->bounds;
    const long long far =
        std::max({std::abs((long long)to.left() + dx), std::abs((long long)to.right() + dx),
                  std::abs((long long)to.top() + dy), std::abs((long long)to.bottom() + dy)});
    if (far > limit) {
        *this = ZrRegion(); // nothing that far away is ever seen
        return;
    }
    reserve(d->size);
    for (int i = 0; i < d->size; i++)
        d->rects[i].translate(dx, dy);
    d->bounds.translate(dx, dy);
}

ZrRegion ZrRegion::translated(int dx, int dy) const
{
    ZrRegion moved(*this);
    moved.translate(dx, dy);
    return moved;
}

ZrRegion ZrRegion::intersect(const ZrRegion &other) const
{
    if (!d->bounds.intersects(other.d->bounds))
        return ZrRegion();
    return combined<Intersect>(*this, other);
}

ZrRegion ZrRegion::unite(const ZrRegion &other) const
{
    return combined<Unite>(*this, other);
}

ZrRegion ZrRegion::subtract(const ZrRegion &other) const
{
    return d->bounds.intersects(other.d->bounds) ? combined<Subtract>(*this, other) : *this;
}

ZrRegion ZrRegion::eor(const ZrRegion &other) const
{
    return combined<Eor>(*this, other);
}

ZrRegion &ZrRegion::operator&=(const ZrRegion &other)
{
    return d == other.d ? *this : *this = intersect(other);
}

ZrRegion &ZrRegion::operator&=(const ZrRect &rect)
{
    if (rect.contains(d->bounds))
        return *this;
    Builder out(d->size);
    if (rect.intersects(d->bounds))
        combine<Intersect>(out, begin(), end(), &rect, &rect + 1);
    reserve(out.size());
    std::memcpy(static_cast<void *>(d->rects), out.rects(),
                std::size_t(out.size()) * sizeof(ZrRect));
    d->size = out.size();
    findBounds();
    return *this;
}

ZrRegion &ZrRegion::operator+=(const ZrRegion &other)
{
    if (d == other.d || other.isEmpty())
        return *this;
    if (isEmpty())
        return *this = other;
    const ZrRect bounds = d->bounds | other.d->bounds;
    edit<Unite>(other.d->rects, other.d->size, other.d->bounds);
    d->bounds = bounds;
    return *this;
}

ZrRegion &ZrRegion::operator+=(const ZrRect &rect)
{
    const ZrRect added = clamped(rect);
    if (added.isEmpty() || (d->size == 1 && d->bounds.contains(added)))
        return *this;
    const ZrRect bounds = d->bounds | added;
    edit<Unite>(&added, 1, added);
    d->bounds = bounds;
    return *this;
}

ZrRegion &ZrRegion::operator-=(const ZrRegion &other)
{
    if (d == other.d)
        clear();
    else if (other.d->size == 1)
        *this -= other.d->rects[0];
    else if (d->bounds.intersects(other.d->bounds)) {
        edit<Subtract>(other.d->rects, other.d->size, other.d->bounds);
        findBounds();
    }
    return *this;
}

ZrRegion &ZrRegion::operator-=(const ZrRect &rect)
{
    if (!d->bounds.intersects(rect))
        return *this;
    const ZrRect taken = clamped(rect);
    edit<Subtract>(&taken, 1, taken);
    findBounds();
    return *this;
}

bool ZrRegion::operator==(const ZrRegion &other) const
{
    return d == other.d || (d->size == other.d->size && std::equal(begin(), end(), other.begin()));
}
