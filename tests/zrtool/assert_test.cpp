// Broken preconditions stop the process through the C library's assert; logs of boards are searched
// for exactly these expressions, files and functions.
#include <zrlist>
#include <zrstring>
#include <zrvector>

#include <gtest/gtest.h>

class ZrTimer;

#ifdef __clang__
// clang spells the function without the template's arguments.
#define WITH(clangForm, gccForm) clangForm
#else
#define WITH(clangForm, gccForm) gccForm
#endif

TEST(AssertDeathTest, NamesExpressionFileAndFunction)
{
    GTEST_FLAG_SET(death_test_style, "fast");
    ZrList<ZrTimer *> timers;
    const ZrList<ZrString> strings;
    ZrVector<int> vector(2);
    const ZrString text("ab");
    EXPECT_DEATH(timers[0] = nullptr, "include/pub/zrlist:[0-9]+: " WITH(
                                          "T &ZrList<ZrTimer \\*>::operator\\[\\]\\(int\\) \\[T = "
                                          "ZrTimer \\*\\]",
                                          "T& ZrList<T>::operator\\[\\]\\(int\\) \\[with T = "
                                          "ZrTimer\\*\\]") ": Assertion "
                                                           "`i >= 0 && i < p.size\\(\\)' failed");
    EXPECT_DEATH((void)strings.at(-1), "include/pub/zrlist:[0-9]+: " WITH(
                                           "const T &ZrList<ZrString>::at\\(int\\) const \\[T = "
                                           "ZrString\\]",
                                           "const T& ZrList<T>::at\\(int\\) const \\[with T = "
                                           "ZrString\\]") ": Assertion "
                                                          "`i >= 0 && i < p.size\\(\\)' failed");
    EXPECT_DEATH((void)strings.first(), "include/pub/zrlist:.*first.*Assertion `!isEmpty\\(\\)'");
    EXPECT_DEATH(timers.removeFirst(),
                 "include/pub/zrlist:.*removeFirst.*Assertion `!isEmpty\\(\\)' failed");
    EXPECT_DEATH(vector[2] = 1, "include/pub/zrvector:[0-9]+: .*operator\\[\\]\\(int\\).*Assertion "
                                "`i >= 0 && i < d->size' failed");
    EXPECT_DEATH((void)text.at(2),
                 "include/pub/zrstring:[0-9]+: ZrUcs2 ZrString::at\\(int\\) const: Assertion "
                 "`i < size\\(\\)' failed");
}
