// Broken preconditions stop the process through the C library's assert; logs of boards are searched
// for exactly these expressions, files and functions. The compilers spell the latter differently.
#include <zrlist>
#include <zrstring>
#include <zrvector>

#include <gtest/gtest.h>

#include <functional>

class ZrTimer;

TEST(AssertDeathTest, NamesExpressionFileAndFunction)
{
    GTEST_FLAG_SET(death_test_style, "fast");
    ZrList<ZrTimer *> timers;
    const ZrList<ZrString> strings;
    ZrVector<int> vector(2);
    const ZrString text("ab");
    const struct {
        std::function<void()> deed;
        const char *printed;
    } rows[] = {
        {[&] { timers[0] = nullptr; },
         "include/pub/zrlist:[0-9]+: T ?& ?ZrList<(T|ZrTimer \\*)>::operator\\[\\]\\(int\\) "
         "\\[(with )?T = ZrTimer ?\\*\\]: Assertion `i >= 0 && i < p.size\\(\\)' failed"},
        {[&] { (void)strings.at(-1); },
         "include/pub/zrlist:[0-9]+: const T ?& ?ZrList<(T|ZrString)>::at\\(int\\) const "
         "\\[(with )?T = ZrString\\]: Assertion `i >= 0 && i < p.size\\(\\)' failed"},
        {[&] { (void)strings.first(); }, "include/pub/zrlist:.*first.*Assertion `!isEmpty\\(\\)'"},
        {[&] { timers.removeFirst(); },
         "include/pub/zrlist:.*removeFirst.*Assertion `!isEmpty\\(\\)' failed"},
        {[&] { vector[2] = 1; }, "include/pub/zrvector:[0-9]+: .*operator\\[\\]\\(int\\).*"
                                 "Assertion `i >= 0 && i < d->size' failed"},
        {[&] { (void)text.at(2); }, "include/pub/zrstring:[0-9]+: ZrUcs2 ZrString::at\\(int\\) "
                                    "const: Assertion `i < size\\(\\)' failed"},
    };
    for (const auto &row : rows)
        EXPECT_DEATH(row.deed(), row.printed);
}
