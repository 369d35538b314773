#include <zrbezier>
#include <zrcolor>
#include <zrfont>
#include <zrrect>

#include <gtest/gtest.h>

#include <climits>

TEST(ZrRect, HasInclusiveEdges)
{
    const ZrRect screen(0, 0, 1920, 1080);
    EXPECT_EQ(screen, ZrRect::fromEdges(0, 0, 1919, 1079));
    EXPECT_TRUE(ZrRect().isEmpty());
    EXPECT_EQ(ZrRect().size(), ZrSize(0, 0));
    EXPECT_TRUE(screen.contains(ZrPoint(1919, 0)));
    EXPECT_FALSE(screen.contains(ZrPoint(1920, 0)));
    EXPECT_FALSE(screen.contains(ZrPoint(1919, 5), true));
    EXPECT_TRUE(screen.contains(ZrPoint(1918, 5), true));
}

TEST(ZrRect, MeetsAndJoins)
{
    const ZrRect a(0, 0, 10, 10), b(9, 9, 5, 5), c(10, 0, 5, 5);
    EXPECT_EQ(a & b, ZrRect(9, 9, 1, 1));
    EXPECT_TRUE(a.intersects(b));
    EXPECT_FALSE(a.intersects(c));
    EXPECT_EQ(a | c, ZrRect(0, 0, 15, 10));
    EXPECT_EQ(a | ZrRect(), a);
    EXPECT_TRUE(a.contains(ZrRect(2, 2, 8, 8)));
    EXPECT_FALSE(a.contains(ZrRect(2, 2, 9, 8)));
    EXPECT_EQ(ZrRect::fromEdges(9, 8, 2, 1).normalized(), ZrRect::fromEdges(2, 1, 9, 8));
    EXPECT_EQ(ZrRect(5, 5, 0, 0).normalized(), ZrRect(5, 5, 0, 0));
    EXPECT_EQ(ZrRect(-3, 0, 4, 1).center(), ZrPoint(-2, 0));
    EXPECT_EQ(a.adjusted(-1, -2, 3, 4), ZrRect::fromEdges(-1, -2, 12, 13));
}

TEST(ZrColor, TellsNoColourFromOpaqueBlack)
{
    EXPECT_FALSE(ZrColor() == ZrColor(0, 0, 0));
    EXPECT_FALSE(ZrColor() == ZrColor(0, 0, 0, 0));
    EXPECT_EQ(ZrColor::fromArgb(0x80FF0102).argb(), 0x80FF0102u);
    EXPECT_EQ(ZrColor(1, 2, 3).argb(), 0xFF010203u);
}

TEST(ZrFont, IsTwoBytes)
{
    static_assert(sizeof(ZrFont) == 2 && sizeof(FontAttr) == 2, "as the style files store it");
    ZrFont font(20, false, false, false, true);
    EXPECT_EQ(font.flags(), 8);
    font.setUnderLine(false);
    EXPECT_EQ(font, ZrFont(20));
    EXPECT_EQ(ZrFont(300).pointSize(), 255);
    font.setFont(FontAttr{12, 9});
    EXPECT_TRUE(font.isUnderLine());
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
