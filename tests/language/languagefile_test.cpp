// Language files, good and bad.
#include "fuzz/language_inputs.h"
#include "support/random_seed.h"
#include "widgets/languagefile.h"
#include "widgets/xmlbounds.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

std::string repeated(const std::string &part, int times)
{
    std::string whole;
    whole.reserve(part.size() * std::size_t(times));
    for (int i = 0; i < times; ++i)
        whole += part;
    return whole;
}

std::string nested(int levels)
{
    return repeated("<a>", levels) + R"(<tr id="1" text="deep"/>)" + repeated("</a>", levels);
}

std::string contentsOf(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string attributes(int count)
{
    std::string element = "<l";
    for (int i = 0; i < count; ++i)
        element += " a" + std::to_string(i) + "=''";
    return element + "/>";
}

class LanguageFile : public testing::Test
{
protected:
    LanguageFile() : path_(testing::TempDir() + "zrlanguage" + std::to_string(getpid()) + ".xml")
    {
        std::filesystem::remove_all(path_);
    }
    ~LanguageFile() override { std::filesystem::remove_all(path_); }

    bool readBytes(const std::string &bytes)
    {
        std::ofstream(path_, std::ios::binary) << bytes;
        return readLanguageFile(path_.c_str(), &texts);
    }

    std::string path_;
    Texts texts;
};

} // namespace

TEST_F(LanguageFile, TakesEveryTextWhereverItStands)
{
    const struct {
        const char *what, *document;
        int id;
        const char *text; // null when there is none
    } rows[] = {
        {"plain", R"(<l><tr id="5" text="Yes"/></l>)", 5, "Yes"},
        {"the root itself", R"(<tr id="5" text="Yes"/>)", 5, "Yes"},
        {"within others", R"(<l><a><b><tr id="5" text="Yes"/></b></a></l>)", 5, "Yes"},
        {"within another", R"(<l><tr id="1" text="No"><tr id="5" text="Yes"/></tr></l>)", 5, "Yes"},
        {"the later one", R"(<l><tr id="5" text="No"/><a><tr id="5" text="Yes"/></a></l>)", 5,
         "Yes"},
        {"no text", R"(<l><tr id="5" text="No"/><tr id="5"/></l>)", 5, ""},
        {"no id", R"(<l><tr text="No"/></l>)", -1, nullptr},
        {"no number", R"(<l><tr id="five" text="No"/></l>)", 5, nullptr},
        {"other elements", R"(<l><td id="5" text="No"/><TR id="5" text="No"/></l>)", 5, nullptr},
        {"in a comment", R"(<l><!-- <tr id="5" text="No"/> --></l>)", 5, nullptr},
        {"in a comment that looks closed", R"(<l><!--><tr id="5" text="No"/><!-- --></l>)", 5,
         nullptr},
        {"as data", R"(<l><![CDATA[<tr id="5" text="No"/>]]></l>)", 5, nullptr},
        {"signs of XML", R"(<l><tr id="5" text="&lt;&amp;&quot;&#x4E2D;/>"/></l>)", 5, "<&\"中/>"},
        {"characters by number", R"(<l>&#65;<tr id="5" text="&#x41;&#x4e2D;&#25991;"/></l>)", 5,
         "A中文"},
        {"byte order mark", "\xEF\xBB\xBF<l><tr id=\"5\" text=\"Yes\"/></l>", 5, "Yes"},
        {"lines of other systems", "<l>\r\n<tr id=\"5\"\rtext=\"Y\r\nes\r\"/>\r\n</l>\r\n", 5,
         "Y\nes\n"},
        {"spaces are kept", R"(<l><tr id="5" text="  two  words "/></l>)", 5, "  two  words "},
        {"other scripts", R"(<l><tr id="5" text="لا إشارة 无信号"/></l>)", 5, "لا إشارة 无信号"},
        {"beyond the first plane", "<l><tr id=\"5\" text=\"\xF0\x9F\x93\xB7\"/></l>", 5,
         "\xF0\x9F\x93\xB7"},
    };
    for (const auto &row : rows) {
        texts.clear();
        ASSERT_TRUE(readBytes(row.document)) << row.what;
        EXPECT_EQ(texts.contains(std::uint32_t(row.id)), row.text != nullptr) << row.what;
        EXPECT_TRUE(texts.value(std::uint32_t(row.id)) == ZrString(row.text)) << row.what;
    }
}

TEST_F(LanguageFile, LeavesTheTextsAloneWhenThereIsNoWholeDocument)
{
    const std::string english = contentsOf(ZR_SOURCE_DIR "/language/tran_english.xml");
    const struct {
        const char *what;
        std::string bytes;
    } rows[] = {
        {"empty", ""},
        {"blank", " \n\n"},
        {"a declaration only", R"(<?xml version="1.0"?>)"},
        {"a cut declaration", "<?xml version="},
        {"a comment only", "<!-- <l/> "},
        {"cut in the middle", english.substr(0, english.size() / 2)},
        {"cut before the last end", english.substr(0, english.rfind("</"))},
        {"words", "No signal"},
        {"a picture", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"},
        {"Latin 1", "<l><tr id=\"5\" text=\"Gr\xFCn\"/></l>"},
        {"GBK", "<l><tr id=\"5\" text=\"\xCE\xDE\xD0\xC5\xBA\xC5\"/></l>"},
        {"UTF-16", std::string("\xFF\xFE<\0l\0/\0>\0", 10)},
        {"a zero", std::string("<l>\0</l>", 8)},
        {"half a character", "<l><tr id=\"5\" text=\"\xE4\xB8"},
        {"ends that do not match", R"(<l><a></b></l>)"},
        {"an attribute twice", R"(<l><tr id="1" id="2" text="a"/></l>)"},
        {"nested 100,000 times", nested(100'000)},
        {"nested in disguise", repeated("<a t='/></a>'>", 100'000)},
        {"nested behind a comment", "<?xml version='><!--'?>" + repeated("<a>", 100'000) + "-->"},
        {"nested behind what looks like a comment's end",
         "<l><!--><!-- -->" + repeated("<a>", 100'000) + "<!-- -->"},
        {"nested behind a number that swallows a quote",
         R"(<l a="&#x"><!-- x41;"/><l b=")" + repeated("<a>", 100'000) + "\"/>"},
        {"endless attributes", attributes(100'000)}, // each would be compared with all before it
        {"a million empty elements", "<l>" + repeated("<a/>", 1'000'000) + "</l>"},
    };
    for (const auto &row : rows) {
        texts.clear();
        texts.insert(5, ZrString("before"));
        EXPECT_FALSE(readBytes(row.bytes)) << row.what;
        EXPECT_EQ(texts.size(), 1) << row.what;
        EXPECT_TRUE(texts.value(5) == ZrString("before")) << row.what;
    }
}

TEST_F(LanguageFile, NeedsAnOrdinaryFileOfSomeSize)
{
    EXPECT_FALSE(readLanguageFile(path_.c_str(), &texts)) << "not there";
    ASSERT_TRUE(readBytes("<l/>"));
    std::filesystem::resize_file(path_, 50'000'000);
    EXPECT_FALSE(readLanguageFile(path_.c_str(), &texts)) << "50 MB, of which 4 are used";
    std::filesystem::remove(path_);
    ASSERT_TRUE(readBytes("<l>" + std::string(XmlBounds::Size - 7, ' ') + "</l>"));
    EXPECT_FALSE(readBytes("<l>" + std::string(XmlBounds::Size - 6, ' ') + "</l>"));
    std::filesystem::remove(path_);
    std::filesystem::create_directory(path_);
    EXPECT_FALSE(readLanguageFile(path_.c_str(), &texts)) << "a directory";
    std::filesystem::remove(path_);
    ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
    EXPECT_FALSE(readLanguageFile(path_.c_str(), &texts)) << "a pipe nobody writes to";
    std::filesystem::remove(path_);
    std::filesystem::create_symlink(path_, path_);
    EXPECT_FALSE(readLanguageFile(path_.c_str(), &texts)) << "a link to itself";
}

TEST_F(LanguageFile, BoundsAreWhereTheyAreTold)
{
    EXPECT_TRUE(readBytes(nested(XmlBounds::Depth)));
    EXPECT_FALSE(readBytes(nested(XmlBounds::Depth + 1)));
    EXPECT_TRUE(readBytes(attributes(XmlBounds::Attributes)));
    EXPECT_FALSE(readBytes(attributes(XmlBounds::Attributes + 1)));
    EXPECT_TRUE(readBytes("<l>" + repeated("<a/>", XmlBounds::Nodes - 1) + "</l>"));
    EXPECT_FALSE(readBytes("<l>" + repeated("<a/>", XmlBounds::Nodes) + "</l>"));
}

// The corpus of the fuzz target, as it is and garbled.
TEST_F(LanguageFile, NothingBreaksOnGarbledOnes)
{
    std::mt19937 random = seededRandom();
    const char *const parts[] = {"<", ">", "/>", "</", "\"", "'", "<!--", "-->", "<a>", "&#x", ";"};
    int files = 0;
    for (const auto &entry :
         std::filesystem::directory_iterator(ZR_SOURCE_DIR "/tests/fuzz/language")) {
        ++files;
        const std::string whole = contentsOf(entry.path());
        for (int round = 0; round < 500; ++round) {
            std::string bytes = whole;
            for (int change = 0; change < round % 8 && !bytes.empty(); ++change) {
                const std::size_t at = random() % bytes.size();
                switch (pick(random, 0, 3)) {
                case 0:
                    bytes[at] = char(random());
                    break;
                case 1:
                    bytes.erase(at, random() % 20);
                    break;
                case 2:
                    bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 100));
                    break;
                default:
                    bytes.insert(at, parts[random() % std::size(parts)]);
                }
            }
            tryLanguage(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
        }
    }
    EXPECT_GT(files, 1);
}
