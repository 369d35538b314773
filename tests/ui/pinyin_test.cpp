#include "entryfixture.h"

#include "ui/keyboard/pinyinentry.h"

#include <cstdio>
#include <fstream>

using zrtest::EntryFixture;
using zrtest::utf8;

namespace
{

const ZrRect Where(20, 20, 220, 36);

class Pinyin : public EntryFixture
{
};

std::string words(const PinyinDictionary &dictionary, const char *letters, std::size_t most = 100)
{
    std::string all;
    for (const PinyinWord &word : dictionary.find(letters, most))
        all += utf8(word.text) + std::to_string(word.letters) + " ";
    return all;
}

} // namespace

TEST(PinyinDictionary, FindsWordsByWeightAndByTheirBeginning)
{
    const std::string path = testing::TempDir() + "pinyin.txt";
    std::ofstream(path) << "n\t嗯 5\n"
                           "ni\t你 90\t尼 20\t\t拟\n" // an entry without weight is left out
                           "nihao\t你好 50\n"
                           "nihaoma\t你好吗 9\n"
                           "nin\t您 70\n"
                           "no";
    const PinyinDictionary dictionary{ZrString(path.c_str())};
    const struct {
        const char *letters, *words;
    } rows[] = {
        {"ni", "你2 尼2 您2 你好2 你好吗2 嗯1 "},
        {"nih", "你好3 你好吗3 你2 尼2 嗯1 "},
        {"nihaox", "你好5 你2 尼2 嗯1 "},
        {"x", ""},
        {"no", "嗯1 "},
    };
    for (const auto &row : rows)
        EXPECT_EQ(words(dictionary, row.letters), row.words) << row.letters;
    EXPECT_EQ(words(dictionary, "ni", 2), "你2 尼2 ");
    std::remove(path.c_str());
    EXPECT_TRUE(PinyinDictionary(ZrString("/nowhere")).find("ni", 9).empty());
}

TEST_F(Pinyin, TheBuiltDictionaryKnowsWhatPeopleType)
{
    const struct {
        const char *letters, *word;
        std::size_t within; // so many candidates
    } rows[] = {
        {"zhongguo", "中国", 1}, {"wo", "我", 2},        {"shexiangji", "摄像机", 3},
        {"menkou", "门口", 2},   {"tingche", "停车", 3}, {"lv", "绿", 6},
        {"dianti", "电梯", 2},   {"cangku", "仓库", 2},  {"yi", "一", 8},
    };
    for (const auto &row : rows) {
        const auto found = PinyinDictionary::instance().find(row.letters, row.within);
        const bool isThere =
            std::any_of(found.begin(), found.end(),
                        [&row](const PinyinWord &word) { return utf8(word.text) == row.word; });
        EXPECT_TRUE(isThere) << row.letters;
    }
}

TEST_F(Pinyin, WordsAreChosenFromTheRow)
{
    auto *edit = show(new ZrLineEdit(window.get()), Where);
    TextKeyboard *opened = openKeyboard(edit, 0);
    const auto spell = [&](const char *letters) {
        for (; *letters; ++letters)
            ASSERT_TRUE(pressText(ZrString(letters, 1)));
    };
    spell("nihao");
    EXPECT_TRUE(edit->isEmpty()) << "what is spelt is not yet text";
    EXPECT_TRUE(pressText(ZrString(" ")));
    EXPECT_EQ(utf8(edit->text()), "你好");
    // A word for the beginning leaves the rest.
    spell("menwo");
    EXPECT_TRUE(pressKey(KeyboardKey::Erase));
    const KeyboardRow row = opened->rows()[0];
    ASSERT_GT(row.size(), 3u);
    EXPECT_EQ(utf8(row[1].text), "menw");
    pressText(ZrString("1"));
    EXPECT_TRUE(edit->text().size() >= 3);
    pressKey(KeyboardKey::Candidate, ZrString(), 0);
    EXPECT_TRUE(opened->rows()[0].empty()) << "all that was spelt is used";
    // Enter takes the letters as they are, and does not yet end the entry.
    edit->clear();
    spell("abc");
    EXPECT_TRUE(pressKey(KeyboardKey::Done));
    EXPECT_EQ(utf8(edit->text()), "abc");
    EXPECT_TRUE(keyboard());
    // Pages of candidates, forth and back.
    spell("shi");
    const ZrString first = opened->rows()[0][2].text;
    pressKey(KeyboardKey::Later);
    EXPECT_NE(opened->rows()[0][2].text, first);
    pressKey(KeyboardKey::Later);
    pressKey(KeyboardKey::Earlier);
    pressKey(KeyboardKey::Earlier);
    EXPECT_EQ(opened->rows()[0][2].text, first);
    // A page that is left forgets what was spelt.
    pressKey(KeyboardKey::Page);
    pressKey(KeyboardKey::Page);
    EXPECT_TRUE(opened->rows()[0].empty());
    // A capital letter is a letter.
    pressKey(KeyboardKey::Shift);
    EXPECT_TRUE(pressText(ZrString("A")));
    EXPECT_EQ(utf8(edit->text()), "abcA");
}
