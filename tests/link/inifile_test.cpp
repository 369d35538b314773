#include "link/temporaryfile.h"

#include <zrinifile>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace
{

// All keys and values as "key:value|", in order.
std::string dump(const std::string &text)
{
    const TemporaryFile file(text);
    const ZrIniFile ini(file.path());
    std::string all;
    for (auto entry = ini.values().begin(); entry != ini.values().end(); ++entry)
        all += std::string(entry.key().toUtf8().constData()) + ":" +
               entry.value().toUtf8().constData() + "|";
    return all;
}

TEST(ZrIniFile, ReadsLinesByItsRules)
{
    const std::string long511 = std::string(508, 'k') + "=1"; // 510 characters and a line feed
    struct {
        const char *what;
        std::string text;
        std::string values;
    } const rows[] = {
        {"a comment behind a value", "[S]\nabc = 1 ; comment\n", "S/abc:1|"},
        {"no section", "a=1\n", "a:1|"},
        {"no line feed at the end", "[S]\na=1", "S/a:1|"},
        {"blanks around everything", "  [S]\n \t a \t =\t 1 \t\n", "S/a:1|"},
        {"only the first word", "a = one two\n", "a:one|"},
        {"quotes keep blanks and go", "a = \"one two\"\n", "a:one two|"},
        {"quotes that never close", "a = \"one two\n", "a:one two|"},
        {"nothing in quotes", "a = \"\"\nb=\n", "a:|b:|"},
        {"a comment inside quotes", "a = \"one;two\"\n", "a:one|"},
        {"a second sign of equality ends the value", "a=b=c\n", "a:b|"},
        {"backslashes become slashes", "a = \\tmp\\x\n", "a:/tmp/x|"},
        {"and in keys and sections", "[S\\T]\n\\a = 1\n", "S/T//a:1|"},
        {"a bracket ends a value as a slash", "a = b]c\n", "a:b/|"},
        {"an opening bracket goes", "a = [b]\n", "a:b/|"},
        {"a bracket in a key", "[S]\na]=1\n", "S/a/:1|"},
        {"a quoted key", "\"a b\" = 1\n", "a b:1|"},
        {"the last of a key wins", "a=1\nb=2\na=3\n", "a:3|b:2|"},
        {"the same section twice", "[S]\na=1\n[T]\na=2\n[S]\nb=3\n", "S/a:1|S/b:3|T/a:2|"},
        {"a slash in a section", "[Color_TVI_2823/2853]\na=1\n", "Color_TVI_2823/2853/a:1|"},
        {"a section without its end", "[S\na=1\n", "Sa:1|"},
        {"blanks end a section", "[S T]\na=1\n", "Sa:1|"},
        {"text before a section", "x [S]\na=1\n", "S/a:1|"},
        {"an empty section ends the last", "[S]\na=1\n[]\nb=1\n", "/b:1|S/a:1|"},
        {"lines with neither are skipped", "; note\nplain\n\na=1\n", "a:1|"},
        {"a comment line with a bracket is a section", "; [S]\na=1\n", "S/a:1|"},
        {"a comment line with a sign of equality has no key", "[S]\n; a=1\n", "S/:1|"},
        {"a line with both is a value", "[S]=1\na=2\n", "S/:1|a:2|"},
        {"a line of 511 characters is one", long511 + "\n", std::string(508, 'k') + ":1|"},
        {"a longer one is several", "a=" + std::string(509, 'x') + "b=2\n",
         "a:" + std::string(509, 'x') + "|b:2|"},
        {"what is behind a zero byte is lost", std::string("a=1\0b=2\nc=3\n", 12), "a:1|c:3|"},
        {"carriage returns are text", "a=1\r\n", "a:1\r|"},
        {"an empty file", "", ""},
    };
    for (const auto &row : rows)
        EXPECT_EQ(dump(row.text), row.values) << row.what;
}

TEST(ZrIniFile, ReadsColoursByThePattern)
{
    struct {
        const char *value;
        int red, green, blue, alpha;
    } const rows[] = {
        {"(1,2,3)", 1, 2, 3, 255},
        {"(1,2,3,4)", 1, 2, 3, 4},
        {"rgb(10,20,30)", 10, 20, 30, 255},
        {"(1,2,3,4,5)", 1, 2, 3, 4},
        {"(7)", 7, 0, 0, 255},
        {"(7,8)", 7, 8, 0, 255},
        {"1,2,3", 0, 0, 0, 0},
        {"", 0, 0, 0, 0},
        {"none", 0, 0, 0, 0},
        {"(-1,-2,-3)", 1, 2, 3, 255},
        {"(300,256,3)", 44, 0, 3, 255},
        {"#1a2b3", 1, 2, 3, 255},
    };
    for (const auto &row : rows) {
        const TemporaryFile file(std::string("c = \"") + row.value + "\"\n");
        const ZrColor colour = ZrIniFile(file.path()).colorValue("c");
        EXPECT_EQ(colour, ZrColor(row.red, row.green, row.blue, row.alpha)) << row.value;
        EXPECT_TRUE(colour.isValid());
    }
    const TemporaryFile file("other=1\n");
    EXPECT_EQ(ZrIniFile(file.path()).colorValue("c"), ZrColor(0, 0, 0, 0));
    EXPECT_FALSE(ZrIniFile().colorValue("c").isValid());
}

TEST(ZrIniFile, TellsMissingKeysAndFiles)
{
    const TemporaryFile file("a=12\nb=x\nc=-3\n");
    const ZrIniFile ini(file.path());
    EXPECT_EQ(ini.intValue("a"), 12);
    EXPECT_EQ(ini.intValue("b"), 0);
    EXPECT_EQ(ini.intValue("c"), -3);
    EXPECT_EQ(ini.intValue("d"), 0);
    EXPECT_TRUE(ini.value("d").isEmpty());
    testing::internal::CaptureStderr();
    EXPECT_TRUE(ZrIniFile("/nonexistent/x.ini").isEmpty());
    EXPECT_TRUE(ZrIniFile("/nonexistent/x.ini", ZrIniFile::Mode::ProbeOnly).isEmpty());
    EXPECT_TRUE(ZrIniFile(static_cast<const char *>(nullptr)).isEmpty());
    EXPECT_TRUE(ZrIniFile(file.path(), ZrIniFile::Mode::ProbeOnly).isEmpty());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "open ini file failed: No such file or directory\n"
              "open ini file failed: No such file or directory\n");
}

TEST(ZrIniFile, TakesHostileFilesInTheirStride)
{
    // One line of 10 MB: pieces of 511 characters, each a value of its own.
    std::string large = "a=";
    large.resize(10 << 20, 'x');
    const TemporaryFile line(large);
    EXPECT_EQ(ZrIniFile(line.path()).size(), 1);
    std::string many = "[S]\n";
    for (int i = 0; i < 100000; ++i)
        many += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    const TemporaryFile keys(many);
    const ZrIniFile ini(keys.path());
    EXPECT_EQ(ini.size(), 100000);
    EXPECT_EQ(ini.intValue("S/key99999"), 99999);
    const TemporaryFile zeros(std::string(1 << 20, '\0'));
    EXPECT_TRUE(ZrIniFile(zeros.path()).isEmpty());
}

} // namespace
