#include <zrbitarray>
#include <zrcolor>
#include <zrfont>
#include <zrhash>
#include <zrlist>
#include <zrmap>
#include <zrregion>
#include <zrstringlist>
#include <zrvector>
#include <zrwaitcondition>

#include <gtest/gtest.h>

TEST(Smoke, First)
{
    ZrList<int> list{1, 2, 3};
    list.prepend(0);
    EXPECT_EQ(list, (ZrList<int>{0, 1, 2, 3}));
    ZrMap<int, ZrString> map;
    for (int i = 0; i < 100; i++)
        map.insert((i * 37) % 100, ZrString::number(i));
    EXPECT_EQ(map.value(37), ZrString("1"));
    EXPECT_EQ(map.keys().first(), 0);
    ZrHash<ZrString, int> hash;
    hash.insert("a", 1);
    EXPECT_EQ(hash.value("a"), 1);
    EXPECT_EQ(ZrString("a,b,,c").split(",").size(), 4);
    EXPECT_EQ(ZrString("%2 %1").arg(3).arg("x"), ZrString("x 3"));
    EXPECT_EQ(ZrString("h\xC3\xA9").toUpper().toUtf8(), ZrByteArray("H\xC3\x89"));
    ZrRegion region(ZrRect(0, 0, 10, 10));
    region += ZrRect(10, 0, 10, 10);
    EXPECT_EQ(region.rectCount(), 1);
    region -= ZrRect(5, 5, 2, 2);
    EXPECT_EQ(region.rectCount(), 4);
    EXPECT_TRUE(ZrBitArray(0, false).allCleared());
    ZrVector<int> v(3, 7);
    v.append(8);
    EXPECT_EQ(v.size(), 4);
}
