#include <zrbezier>
#include <zrcolor>
#include <zrfont>
#include <zrrect>

#include <gtest/gtest.h>

TEST(ZrRect, HasInclusiveEdges)
{
    const ZrRect a(0, 0, 10, 10), c(10, 0, 5, 5);
    EXPECT_EQ(a, ZrRect::fromEdges(0, 0, 9, 9));
    EXPECT_EQ(ZrRect().size(), ZrSize(0, 0));
    EXPECT_TRUE(a.contains(ZrPoint(9, 0)) && !a.contains(ZrPoint(10, 0)));
    EXPECT_TRUE(a.contains(ZrPoint(8, 5), true) && !a.contains(ZrPoint(9, 5), true));
    EXPECT_TRUE(a.contains(ZrRect(2, 2, 8, 8)) && !a.contains(ZrRect(2, 2, 9, 8)));
    EXPECT_EQ(a & ZrRect(9, 9, 5, 5), ZrRect(9, 9, 1, 1));
    EXPECT_FALSE(a.intersects(c));
    EXPECT_EQ(a | c, ZrRect(0, 0, 15, 10));
    EXPECT_EQ(a | ZrRect(), a);
    EXPECT_EQ(ZrRect::fromEdges(9, 8, 2, 1).normalized(), ZrRect::fromEdges(2, 1, 9, 8));
    EXPECT_EQ(ZrRect(5, 5, 0, 0).normalized(), ZrRect(5, 5, 0, 0));
    EXPECT_EQ(ZrRect(-3, 0, 4, 1).center(), ZrPoint(-2, 0));
}

TEST(ZrColor, TellsNoColourFromOpaqueBlack)
{
    EXPECT_FALSE(ZrColor() == ZrColor(0, 0, 0));
    EXPECT_FALSE(ZrColor() == ZrColor(0, 0, 0, 0));
    EXPECT_EQ(ZrColor(1, 2, 3).argb(), 0xFF010203u);
}

TEST(ZrFont, IsTwoBytes)
{
    static_assert(sizeof(ZrFont) == 2 && sizeof(FontAttr) == 2, "as the style files store it");
    EXPECT_EQ(ZrFont(300, false, true, false, true), ZrFont(FontAttr{255, 10}));
}

TEST(ZrBezier, CutsSegmentsThatLieOnTheCurve)
{
    const ZrBezier curve = ZrBezier::fromPoints({0, 0}, {10, 40}, {60, -20}, {100, 30});
    const float t0 = 0.25f, t1 = 0.7f;
    const ZrBezier part = curve.bezierOnInterval(t0, t1);
    for (float u = 0; u <= 1; u += 0.125f) {
        const ZrPointF whole = curve.pointAt(t0 + (t1 - t0) * u), cut = part.pointAt(u);
        EXPECT_NEAR(whole.x(), cut.x(), 1e-3);
        EXPECT_NEAR(whole.y(), cut.y(), 1e-3);
    }
    EXPECT_EQ(curve.bezierOnInterval(0, 1).p3(), curve.p3());
    EXPECT_EQ(curve.bezierOnInterval(0, 0).p4(), curve.p1());
    EXPECT_NEAR(curve.bezierOnInterval(0.5f, 1).p4().x(), 100, 1e-4);
}
