#include <zrdir>

#include <gtest/gtest.h>

TEST(ZrDir, TellsWhatIsThere)
{
    const ZrDir top(ZR_SOURCE_DIR);
    EXPECT_TRUE(top.exists());
    EXPECT_TRUE(top.exists("packages.txt"));
    EXPECT_TRUE(top.exists("src/zrtool"));
    EXPECT_FALSE(top.exists("no such file"));
    EXPECT_TRUE(ZrDir().exists(ZR_SOURCE_DIR "/packages.txt"));
    EXPECT_FALSE(ZrDir("/no/such/directory").exists());
    EXPECT_TRUE(ZrDir("/no/such/directory").entryList().isEmpty());
    EXPECT_TRUE(top.entryList().contains("packages.txt"));
    EXPECT_FALSE(top.entryList().contains("."));

    testing::internal::CaptureStdout();
    EXPECT_FALSE(top.exists(""));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "ZrDir::exists: Empty or null file name\n");
}
