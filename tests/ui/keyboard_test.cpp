#include "entryfixture.h"

#include "ui/controls/combobox.h"
#include "ui/controls/textedit.h"
#include "ui/keyboard/composer.h"
#include "ui/keyboard/hangulcomposer.h"
#include "ui/keyboard/mackeyboard.h"
#include "ui/keyboard/numkeyboard.h"
#include "ui/text_ids.h"

#include <set>
#include <tinyxml.h>
#include <zrstringlist>
#include <zrtranslation>

using zrtest::EntryFixture;
using zrtest::utf8;

namespace
{

const ZrRect Where(20, 20, 220, 36);

class Keyboards : public EntryFixture
{
};

ZrString rowWithShift(const KeyboardLayout &layout, int row)
{
    return layout.shifted[row] ? ZrString(layout.shifted[row])
                               : ZrString(layout.rows[row]).toUpper();
}

std::set<ZrUcs2> unitsOf(const ZrString &text)
{
    return std::set<ZrUcs2>(text.begin(), text.end());
}

// Every unit that the layout's keys type, with those that its composer makes of them.
std::set<ZrUcs2> reachable(const KeyboardLayout &layout)
{
    ZrString all;
    for (int i = 0; i < KeyboardLayout::Rows && layout.rows[i]; ++i)
        all += ZrString(layout.rows[i]) + rowWithShift(layout, i);
    for (const auto &page : SymbolKeys)
        for (const char *row : page)
            all += ZrString(row);
    std::set<ZrUcs2> units = unitsOf(all);
    if (const std::unique_ptr<Composer> composer = makeComposer(layout.composing)) {
        const std::set<ZrUcs2> keys = units;
        for (const ZrUcs2 letter : keys)
            for (const ZrUcs2 form : {0x0300, 0x0301, 0x0303, 0x0309, 0x0323, 0x309B}) {
                composer->reset();
                composer->type(ZrString(letter));
                const ZrString changed =
                    composer->type(ZrString(form)).text + composer->type(ZrString(form)).text;
                units.merge(unitsOf(changed));
            }
    }
    return units;
}

std::string missing(const std::set<ZrUcs2> &reached, const ZrString &wanted)
{
    ZrString lost;
    for (int i = 0; i < wanted.size(); ++i)
        if (wanted.at(i) != ' ' && !reached.count(wanted.at(i)))
            lost += wanted.at(i);
    return utf8(lost);
}

} // namespace

TEST(KeyboardLayouts, ReachEveryLetterOfTheAlphabets)
{
    const struct {
        int language;
        const char *letters; // small and capital, beside those of ASCII
    } rows[] = {
        {2, "áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ"},
        {3, "æøåéÆØÅÉ"},
        {4, ""},
        {5, "åäöšžÅÄÖŠŽ"},
        {6, "àâæçéèêëîïôœùûüÿÀÂÆÇÉÈÊËÎÏÔŒÙÛÜŸ"},
        {7, "äöüßÄÖÜẞ"},
        {8, "αβγδεζηθικλμνξοπρσςτυφχψωάέήίόύώϊϋΐΰΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΆΈΉΊΌΎΏΪΫ"},
        {9, "אבגדהוזחטיכךלמםנןסעפףצץקרשת"},
        {10, "áéíóöőúüűÁÉÍÓÖŐÚÜŰ"},
        {11, "àèéìîòóùÀÈÉÌÎÒÓÙ"},
        {12, "あいうえおかきくけこさしすせそたちつてとなにぬねのはひふへほまみむめもやゆよらりるれ"
             "ろわをん"
             "がぎぐげござじずぜぞだぢづでどばびぶべぼぱぴぷぺぽぁぃぅぇぉっゃゅょー"
             "アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレ"
             "ロワヲン"
             "ガギグゲゴザジズゼゾダヂヅデドバビブベボパピプペポァィゥェォッャュョヴ"},
        {13, "ąćęłńóśźżĄĆĘŁŃÓŚŹŻ"},
        {14, "áâãàçéêíóôõúüÁÂÃÀÇÉÊÍÓÔÕÚÜ"},
        {15, "абвгдеёжзийклмнопрстуфхцчшщъыьэюяАБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"},
        {16, "áéíñóúü¿¡ÁÉÍÑÓÚÜ"},
        {17, "กขฃคฅฆงจฉชซฌญฎฏฐฑฒณดตถทธนบปผฝพฟภมยรฤลฦวศษสหฬอฮ"
             "ะาำเแโใไๅๆฯ฿๐๑๒๓๔๕๖๗๘๙\u0e31\u0e34\u0e35\u0e36\u0e37\u0e38\u0e39\u0e3a\u0e47\u0e48"
             "\u0e49\u0e4a\u0e4b\u0e4c\u0e4d"},
        {18, "čšžćđČŠŽĆĐ"},
        {19, "ăâîșțĂÂÎȘȚ"},
        {20, "абвгдежзийклмнопрстуфхцчшщъьюяАБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЬЮЯ"},
        {21, "ءآأؤإئابةتثجحخدذرزسشصضطظعغفقكلمنهوىي؟،؛٠١٢٣٤٥٦٧٨٩"},
        {22, "अआइईउऊऋएऐओऔकखगघङचछजझञटठडढणतथदधनपफबभमयरलवशषसहािीुूृेैोौंःँ्।०१२३४५६७८९ड़ढ़"},
        {23, "aàảãáạăằẳẵắặâầẩẫấậđeèẻẽéẹêềểễếệiìỉĩíịoòỏõóọôồổỗốộơờởỡớợuùủũúụưừửữứựyỳỷỹýỵ"
             "AÀẢÃÁẠĂẰẲẴẮẶÂẦẨẪẤẬĐEÈẺẼÉẸÊỀỂỄẾỆIÌỈĨÍỊOÒỎÕÓỌÔỒỔỖỐỘƠỜỞỠỚỢUÙỦŨÚỤƯỪỬỮỨỰYỲỶỸÝỴ"},
        {24, "éèëïöüêÉÈËÏÖÜÊ"},
        {25, "çğıöşüâîûÇĞIİÖŞÜÂÎÛ"},
        {26, "آابپتثجچحخدذرزژسشصضطظعغفقکگلمنوهیءأؤئ؟،؛۰۱۲۳۴۵۶۷۸۹\u200C"},
        {27, "åäöéÅÄÖÉ"},
        {30, "áâãàçéêíóôõúÁÂÃÀÇÉÊÍÓÔÕÚ"},
        {31, "éèëïöüêàçÉÈËÏÖÜÊÀÇ"},
        {32, "абвгґдеєжзиіїйклмнопрстуфхцчшщьюя'АБВГҐДЕЄЖЗИІЇЙКЛМНОПРСТУФХЦЧШЩЬЮЯ"},
        {33, "áäčďéíĺľňóôŕšťúýžÁÄČĎÉÍĹĽŇÓÔŔŠŤÚÝŽ"},
    };
    for (const auto &row : rows) {
        const KeyboardLayout &layout =
            keyboardLayouts()[std::size_t(keyboardLayoutOf(row.language))];
        EXPECT_TRUE(layout.languages >> row.language & 1)
            << "a layout of its own: " << row.language;
        EXPECT_EQ(missing(reachable(layout), ZrString(row.letters)), "") << row.language;
    }
    ZrString ascii;
    for (ZrUcs2 unit = '!'; unit <= '~'; ++unit)
        ascii += unit;
    EXPECT_EQ(missing(reachable(keyboardLayouts()[std::size_t(latinKeyboardLayout())]), ascii), "");
}

TEST(KeyboardLayouts, TypeTheTextsOfTheLanguagePackages)
{
    constexpr int FirstOtherScript = Text::FirstLanguageName; // names of languages, each in its own
    ZrList<ZrString> files;
    ZrTranslation::languageFiles(&files);
    int seen = 0;
    for (int language = 0; language < files.size(); ++language) {
        const KeyboardLayout &layout = keyboardLayouts()[std::size_t(keyboardLayoutOf(language))];
        TiXmlDocument document;
        const bool isByWord = layout.pinyin || layout.composing == Composing::Hangul ||
                              layout.composing == Composing::Kana;
        if (isByWord ||
            !document.LoadFile(
                (std::string(ZR_SOURCE_DIR "/language/") + utf8(files.at(language))).c_str()))
            continue;
        ++seen;
        const std::set<ZrUcs2> reached = reachable(layout);
        const TiXmlElement *text = document.RootElement()->FirstChildElement("tr");
        for (; text; text = text->NextSiblingElement("tr")) {
            int id = 0;
            text->QueryIntAttribute("id", &id);
            // Signs and the abbreviations of the trade are no letters of a language.
            ZrString letters;
            const ZrString all(id < FirstOtherScript ? text->Attribute("text") : "");
            for (int i = 0; i < all.size(); ++i)
                if (all.at(i) >= 0xC0 && (all.at(i) < 0x2000 || all.at(i) >= 0x2C00))
                    letters += all.at(i);
            EXPECT_EQ(missing(reached, letters), "") << utf8(files.at(language)) << " " << id;
        }
    }
    EXPECT_GT(seen, 0);
}

TEST(Composers, MakeEverySyllableOfHangul)
{
    const ZrString leads("ㄱㄲㄴㄷㄸㄹㅁㅂㅃㅅㅆㅇㅈㅉㅊㅋㅌㅍㅎ");
    const ZrString vowels(
        "ㅏ ㅐ ㅑ ㅒ ㅓ ㅔ ㅕ ㅖ ㅗ ㅗㅏ ㅗㅐ ㅗㅣ ㅛ ㅜ ㅜㅓ ㅜㅔ ㅜㅣ ㅠ ㅡ ㅡㅣ ㅣ");
    const ZrString tails(
        "- ㄱ ㄲ ㄱㅅ ㄴ ㄴㅈ ㄴㅎ ㄷ ㄹ ㄹㄱ ㄹㅁ ㄹㅂ ㄹㅅ ㄹㅌ ㄹㅍ ㄹㅎ ㅁ ㅂ ㅂㅅ ㅅ ㅆ ㅇ ㅈ "
        "ㅊ ㅋ ㅌ ㅍ ㅎ");
    const ZrStringList vowelKeys = vowels.split(ZrString(" "));
    const ZrStringList tailKeys = tails.split(ZrString(" "));
    ASSERT_EQ(vowelKeys.size() * tailKeys.size() * leads.size(), 11172);
    int number = 0xAC00;
    HangulComposer composer;
    for (int lead = 0; lead < leads.size(); ++lead)
        for (int vowel = 0; vowel < vowelKeys.size(); ++vowel)
            for (int tail = 0; tail < tailKeys.size(); ++tail, ++number) {
                const ZrString keys = leads.mid(lead, 1) + vowelKeys.at(vowel) +
                                      (tail ? tailKeys.at(tail) : ZrString());
                composer.reset();
                ZrString text;
                for (int i = 0; i < keys.size(); ++i) {
                    const ComposedEdit edit = composer.type(keys.mid(i, 1));
                    text = text.left(text.size() - edit.erase) + edit.text;
                }
                ASSERT_EQ(text, ZrString(ZrUcs2(number))) << utf8(keys);
            }
}

TEST_F(Keyboards, ComposeInTheField)
{
    const struct {
        int language;
        const char *keys; // '<' is the erase key
        const char *text;
    } rows[] = {
        {28, "ㅎㅏㄴㄱㅡㄹ", "한글"},
        {28, "ㄷㅏㄹㄱㅣ", "달기"}, // the second final moves on
        {28, "ㅇㅏㄴㅈㄷㅏ", "앉다"},
        {28, "ㅎㅏㄴ<", "하"},  // a key of the syllable at a time
        {28, "ㅎㅏㄴㄱ<<", ""}, // a syllable that is done goes whole
        {28, "ㅏㅣㅋㅋ", "ㅏㅣㅋㅋ"},
        {23, "a\u0301\u0300", "à"}, // the later tone
        {23, "ơ\u0323", "ợ"},
        {23, "b\u0301", "b"},       // no vowel to stand on
        {23, "a\u0301\u0301", "a"}, // the same again takes it away
        {12, "は\u309B\u309B", "ぱ"},
        {12, "つ\u309B", "っ"},
        {12, "な\u309B", "な"},
        {17, "กี่", "กี่"},
        {17, "กี่<", ""},
    };
    for (const auto &row : rows) {
        auto *edit = show(new ZrLineEdit(window.get()), Where);
        openKeyboard(edit, row.language);
        const ZrString keys(row.keys);
        for (int i = 0; i < keys.size(); ++i) {
            const bool erase = keys.at(i) == '<';
            if (erase ? pressKey(KeyboardKey::Erase) : pressText(keys.mid(i, 1)))
                continue;
            ASSERT_TRUE(pressKey(KeyboardKey::Shift));
            ASSERT_TRUE(pressText(keys.mid(i, 1))) << row.keys;
        }
        EXPECT_EQ(utf8(edit->text()), row.text) << row.keys;
        delete edit;
        screen->settle();
    }
}

TEST_F(Keyboards, ShiftHoldsForOneLetterOrUntilPressedAgain)
{
    auto *edit = show(new ZrLineEdit(window.get()), Where);
    openKeyboard(edit, 4);
    EXPECT_FALSE(pressText(ZrString("A")));
    pressKey(KeyboardKey::Shift);
    EXPECT_TRUE(pressText(ZrString("A")));
    EXPECT_TRUE(pressText(ZrString("b")));
    pressKey(KeyboardKey::Shift);
    pressKey(KeyboardKey::Shift);
    EXPECT_TRUE(pressText(ZrString("C")));
    EXPECT_TRUE(pressText(ZrString("D")));
    pressKey(KeyboardKey::Shift);
    EXPECT_TRUE(pressText(ZrString("e")));
    EXPECT_TRUE(pressKey(KeyboardKey::Page));
    EXPECT_TRUE(pressText(ZrString("@")));
    pressKey(KeyboardKey::Left);
    pressKey(KeyboardKey::Erase);
    EXPECT_EQ(utf8(edit->text()), "AbCD@");
}

TEST_F(Keyboards, TheLanguageThatWasChosenComesAgain)
{
    const int russian = keyboardLayoutOf(15);
    auto *edit = show(new LineEdit(window.get()), Where);
    key(Zr::Key_Enter);
    EXPECT_TRUE(pressKey(KeyboardKey::Page, ZrString(), 2));
    EXPECT_TRUE(pressKey(KeyboardKey::Layout, ZrString(), russian));
    EXPECT_TRUE(pressText(ZrString("ж")));
    key(Zr::Key_Escape);
    key(Zr::Key_Enter);
    EXPECT_TRUE(pressText(ZrString("ж")));
    EXPECT_EQ(utf8(edit->text()), "жж");
    pressKey(KeyboardKey::Page, ZrString(), 2);
    pressKey(KeyboardKey::Layout, ZrString(), keyboardLayoutOf(4));
}

TEST_F(Keyboards, ArrowsAloneReachEveryKey)
{
    using Direction = KeyNavigation::Direction;
    auto *edit = show(new ZrLineEdit(window.get()), Where);
    const auto walkAll = [&](Keyboard *opened, const std::string &what) {
        std::set<std::pair<int, int>> seen;
        const int rows = int(opened->rows().size());
        for (int down = 0; down < rows; ++down) {
            const int row = opened->currentRow();
            const std::size_t count = opened->rows()[std::size_t(row)].size();
            for (std::size_t i = 0; i < count; ++i) {
                seen.insert({opened->currentRow(), opened->currentColumn()});
                navigation.arrow(Direction::Right);
                EXPECT_EQ(opened->currentRow(), row) << what;
            }
            navigation.arrow(Direction::Down);
        }
        std::size_t keys = 0;
        for (const KeyboardRow &row : opened->rows())
            keys += row.size();
        EXPECT_EQ(seen.size(), keys) << what;
        navigation.key(Zr::Key_Escape);
        screen->settle();
        EXPECT_FALSE(keyboard()) << what;
    };
    for (const KeyboardLayout &layout : keyboardLayouts())
        walkAll(openKeyboard(edit, layout.language), std::to_string(layout.language));
    for (int kind = 0; kind < 3; ++kind) {
        Keyboard *opened = kind == 0   ? static_cast<Keyboard *>(new MacKeyboard(edit))
                           : kind == 1 ? new NumKeyboard(edit, ZrString("."))
                                       : new NumKeyboard(edit); // each deletes itself
        opened->open();
        screen->settle();
        walkAll(opened, "digits");
    }
}

TEST_F(Keyboards, EnterPressesTheKeyTheArrowsStandOn)
{
    auto *edit = show(new LineEdit(window.get()), Where);
    key(Zr::Key_Enter);
    ASSERT_TRUE(keyboard());
    navigation.enter();
    navigation.arrow(KeyNavigation::Direction::Right);
    navigation.enter();
    navigation.arrow(KeyNavigation::Direction::Down);
    navigation.enter();
    EXPECT_EQ(utf8(edit->text()), "qwa");
    navigation.key(Zr::Key_Backspace);
    navigation.text(ZrString("5"));
    EXPECT_EQ(utf8(edit->text()), "qw5");
}

TEST_F(Keyboards, ServeATextOfManyLines)
{
    auto *edit = show(new TextEdit(window.get()), ZrRect(20, 20, 300, 80));
    navigation.enter();
    ASSERT_TRUE(keyboard()) << "by Enter";
    EXPECT_FALSE(edit->cursorRect().isEmpty()) << "the keys are elsewhere";
    EXPECT_TRUE(pressText(ZrString("q")));
    EXPECT_TRUE(pressText(ZrString("w")));
    EXPECT_TRUE(pressKey(KeyboardKey::Done));
    EXPECT_FALSE(keyboard());
    EXPECT_EQ(utf8(edit->text()), "qw") << "its Enter is no line";
    screen->click(100, 40);
    ASSERT_TRUE(keyboard()) << "by a click";
    EXPECT_TRUE(pressText(ZrString("e")));
    navigation.key(Zr::Key_Escape);
    screen->settle();
    EXPECT_FALSE(keyboard());
    EXPECT_EQ(utf8(edit->text()), "qwe");
    navigation.text(ZrString("5"));
    navigation.enter();
    EXPECT_FALSE(keyboard()) << "a real keyboard's Enter";
    EXPECT_EQ(utf8(edit->text()), "qwe5\n");
    edit->setReadOnly(true);
    screen->click(100, 40);
    EXPECT_FALSE(keyboard());
}

TEST_F(Keyboards, ServeAChoiceWhoseTextMayBeTyped)
{
    auto *box = show(new ComboBox(window.get()), Where);
    box->addItem(ZrString("One"));
    box->addItem(ZrString("Two"));
    box->setEditable(true);
    box->setCursorPosition(3);
    navigation.enter();
    screen->settle();
    ASSERT_TRUE(box->isPopupVisible());
    navigation.arrow(KeyNavigation::Direction::Down);
    navigation.arrow(KeyNavigation::Direction::Down);
    navigation.enter();
    screen->settle();
    ASSERT_TRUE(keyboard()) << "the row below the choices";
    EXPECT_EQ(box->currentIndex(), 0) << "which is none of them";
    EXPECT_FALSE(box->cursorRect().isEmpty()) << "the keys are elsewhere";
    EXPECT_TRUE(pressText(ZrString("q")));
    EXPECT_TRUE(pressKey(KeyboardKey::Done));
    EXPECT_FALSE(keyboard());
    EXPECT_FALSE(box->isPopupVisible()) << "its Enter opens nothing";
    EXPECT_EQ(utf8(box->currentText()), "Oneq");
    screen->click(Where.left() + box->textRect().left(), Where.center().y());
    ASSERT_TRUE(keyboard()) << "by a click on the text";
    EXPECT_EQ(box->cursorPosition(), 0);
    box->hide();
    EXPECT_FALSE(keyboard());
    box->setEditable(false);
    box->show();
    screen->settle();
    screen->click(Where.left() + box->textRect().left(), Where.center().y());
    EXPECT_FALSE(keyboard());
}

TEST_F(Keyboards, ThePointerPressesAndEraseRepeats)
{
    auto *edit = show(new ZrLineEdit(window.get()), Where);
    edit->setText(ZrString("123456"));
    TextKeyboard *opened = openKeyboard(edit, 4);
    const auto centre = [&](int row, int column) {
        return opened->mapToGlobal(
            opened->rows()[std::size_t(row)][std::size_t(column)].rect.center());
    };
    screen->click(centre(1, 2).x(), centre(1, 2).y());
    EXPECT_EQ(utf8(edit->text()), "123456e");
    // Sliding off a key presses nothing.
    screen->pointer(centre(1, 2).x(), centre(1, 2).y(), 1);
    screen->pointer(centre(1, 4).x(), centre(1, 4).y(), 1);
    screen->pointer(centre(1, 4).x(), centre(1, 4).y(), 0);
    EXPECT_EQ(utf8(edit->text()), "123456e");
    const int last = int(opened->rows()[3].size()) - 1;
    screen->pointer(centre(3, last).x(), centre(3, last).y(), 1);
    EXPECT_EQ(utf8(edit->text()), "123456");
    screen->pass(500);
    for (int i = 0; i < 3; ++i)
        screen->pass(80);
    screen->pointer(centre(3, last).x(), centre(3, last).y(), 0);
    screen->pass(500);
    EXPECT_EQ(utf8(edit->text()), "12");
}
