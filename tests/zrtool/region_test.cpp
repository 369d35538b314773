#include "support/random_seed.h"

#include <zrregion>

#include <gtest/gtest.h>

#include <bitset>
#include <climits>

namespace
{

constexpr int side = 40;
using Pixels = std::bitset<side * side>;

Pixels pixelsOf(const ZrRegion &region)
{
    Pixels pixels;
    for (const ZrRect &r : region)
        for (int y = r.top(); y <= r.bottom(); y++)
            for (int x = r.left(); x <= r.right(); x++) {
                EXPECT_FALSE(pixels[std::size_t(y * side + x)]) << "rectangles overlap";
                pixels.set(std::size_t(y * side + x));
            }
    return pixels;
}

// The one list of bands for a set of pixels.
ZrVector<ZrRect> canonical(const Pixels &pixels)
{
    ZrVector<ZrRect> rects;
    int above = 0; // where the band of the line above begins
    for (int y = 0; y < side; y++) {
        ZrVector<ZrRect> line;
        for (int x = 0; x < side; x++) {
            if (!pixels[std::size_t(y * side + x)])
                continue;
            if (!line.isEmpty() && line.last().right() == x - 1)
                line.last().setRight(x);
            else
                line.append(ZrRect(x, y, 1, 1));
        }
        bool same = !line.isEmpty() && rects.size() - above == line.size() &&
                    rects.last().bottom() == y - 1;
        for (int i = 0; same && i < line.size(); i++)
            same = line[i].left() == rects[above + i].left() &&
                   line[i].right() == rects[above + i].right();
        if (same) {
            for (int i = above; i < rects.size(); i++)
                rects[i].setBottom(y);
        } else {
            above = rects.size();
            rects.append(line);
        }
    }
    return rects;
}

ZrRect randomRect(std::mt19937 &random)
{
    const int left = pick(random, 0, side - 1), top = pick(random, 0, side - 1);
    return ZrRect(left, top, pick(random, 1, side - left),
                  pick(random, 1, std::min(9, side - top)));
}

struct Both {
    ZrRegion region;
    Pixels pixels;
};

Both randomBoth(std::mt19937 &random)
{
    Both both;
    for (int i = pick(random, 0, 12); i > 0; i--) {
        const ZrRect rect = randomRect(random);
        both.region += rect;
        both.pixels |= pixelsOf(rect);
    }
    return both;
}

void expectSame(const ZrRegion &region, const Pixels &pixels, const char *what)
{
    ASSERT_EQ(region.rects(), canonical(pixels)) << what;
    ZrRect bounds;
    for (const ZrRect &r : region)
        bounds |= r;
    ASSERT_EQ(region.boundingRect(), bounds) << what;
    ASSERT_EQ(region.isEmpty(), pixels.none()) << what;
}

} // namespace

TEST(ZrRegion, AgreesWithABitmap)
{
    std::mt19937 random = seededRandom();
    for (int round = 0; round < 1500; round++) {
        const Both a = randomBoth(random), b = randomBoth(random);
        const ZrRect rect = randomRect(random);
        const Pixels inRect = pixelsOf(rect);
        ZrRegion changed;
        ASSERT_NO_FATAL_FAILURE({
            expectSame(a.region, a.pixels, "one by one");
            expectSame(a.region & b.region, a.pixels & b.pixels, "intersect");
            expectSame(a.region + b.region, a.pixels | b.pixels, "unite");
            expectSame(a.region - b.region, a.pixels & ~b.pixels, "subtract");
            expectSame(a.region.eor(b.region), a.pixels ^ b.pixels, "eor");
            expectSame((changed = a.region) &= b.region, a.pixels & b.pixels, "&=");
            expectSame((changed = a.region) += b.region, a.pixels | b.pixels, "+=");
            expectSame((changed = a.region) -= b.region, a.pixels & ~b.pixels, "-=");
            expectSame((changed = a.region) &= changed, a.pixels, "&= itself");
            expectSame((changed = a.region) += changed, a.pixels, "+= itself");
            expectSame((changed = a.region) -= changed, Pixels(), "-= itself");
            expectSame((changed = a.region) &= rect, a.pixels & inRect, "&= rectangle");
            expectSame((changed = a.region) += rect, a.pixels | inRect, "+= rectangle");
            expectSame((changed = a.region) -= rect, a.pixels & ~inRect, "-= rectangle");
            expectSame(ZrRegion::fromRects(b.region.begin(), b.region.rectCount()), b.pixels,
                       "all");
        });
        ASSERT_EQ(a.region.intersects(b.region), (a.pixels & b.pixels).any());
        ASSERT_EQ(a.region.intersects(rect), (a.pixels & inRect).any());
        ASSERT_EQ(a.region.contains(rect), (inRect & ~a.pixels).none());
        const ZrPoint point(pick(random, 0, side - 1), pick(random, 0, side - 1));
        ASSERT_EQ(a.region.contains(point), a.pixels[std::size_t(point.y() * side + point.x())]);
        ASSERT_EQ(a.region.translated(5, -7).translated(-5, 7), a.region);
    }
}

TEST(ZrRegion, KnowsNothingOfEmptyRectangles)
{
    ZrRegion region(ZrRect(0, 0, 0, 10));
    EXPECT_TRUE(region.isEmpty());
    EXPECT_TRUE((region += ZrRect(5, 5, 0, 10)).isEmpty());
    EXPECT_FALSE(region.contains(ZrPoint(0, 0)));
    EXPECT_FALSE(ZrRegion(ZrRect(0, 0, 10, 10)).contains(ZrRect()));
}

TEST(ZrRegion, ClampsWhatIsFarAway)
{
    constexpr int far = 1 << 30;
    const ZrRegion all(ZrRect::fromEdges(INT_MIN, INT_MIN, INT_MAX, INT_MAX));
    EXPECT_EQ(all.boundingRect(), ZrRect::fromEdges(-far, -far, far, far));
    EXPECT_EQ((all - ZrRect(0, 0, 1, 1)).rectCount(), 4);
    ZrRegion cut(all);
    cut -= ZrRect::fromEdges(INT_MIN, 0, INT_MAX, INT_MAX);
    EXPECT_EQ(cut.boundingRect().bottom(), -1);
    EXPECT_TRUE(ZrRegion(ZrRect(0, 0, 5, 5)).translated(INT_MAX, 0).isEmpty());
}

// What took quadratic time would not end before the test's time is over.
TEST(ZrRegion, TakesManyRectangles)
{
    constexpr int count = 40000;
    ZrVector<ZrRect> rects;
    for (int i = 0; i < count; i++)
        rects.append(ZrRect(int(i * 7919LL % 200) * 30, i / 200 * 30, 20, 20));
    const ZrRegion region = ZrRegion::fromRects(rects.constData(), rects.size());
    EXPECT_EQ(region.rectCount(), count);
    EXPECT_EQ((region & region.translated(10, 10)).rectCount(), count);
    const ZrRegion bounds(region.boundingRect());
    EXPECT_EQ((bounds - region).unite(region), bounds);
}
