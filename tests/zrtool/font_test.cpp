// The font file: every character that the languages need.
#include "zrtool/glyph_store.h"

#include <zrfontmetrics>

#include <gtest/gtest.h>

#include <iconv.h>

namespace
{

const char *const fontFile = ZR_BINARY_DIR "/data/font/yahei_arial_gothic_unicode.ttf";

std::vector<std::uint32_t> charactersOf(const ZrString &text)
{
    std::vector<std::uint32_t> characters;
    for (int i = 0; i < text.size(); i++)
        characters.push_back(text.at(i)); // the alphabets are all in the first plane
    return characters;
}

struct Alphabet {
    const char *languages, *letters;
};

const Alphabet alphabets[] = {
    {"English, Indonesian, Flemish", "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                     "0123456789 !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~"},
    {"signs", "€£¥°±²³µ·×÷–—‘’“”„…‰™©®«»←↑→↓∞≤≥"},
    {"Czech, Slovak", "áčďéěíňóřšťúůýžĺľŕäôÁČĎÉĚÍŇÓŘŠŤÚŮÝŽĹĽŔÄÔ"},
    {"Danish, Swedish, Finnish", "æøåäöÆØÅÄÖ"},
    {"French", "àâæçéèêëîïôœùûüÿÀÂÆÇÉÈÊËÎÏÔŒÙÛÜŸ"},
    {"German", "äöüßÄÖÜẞ"},
    {"Greek", "ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩαβγδεζηθικλμνξοπρσςτυφχψωάέήίόύώϊϋΐΰΆΈΉΊΌΎΏ"},
    {"Hebrew", "אבגדהוזחטיכךלמםנןסעפףצץקרשת"},
    {"Hungarian", "áéíóöőúüűÁÉÍÓÖŐÚÜŰ"},
    {"Italian, Spanish, Portuguese", "àèéìòùñáíóúü¿¡ãõâêôçÃÕÑ"},
    {"Polish", "ąćęłńóśźżĄĆĘŁŃÓŚŹŻ"},
    {"Romanian", "ăâîșțşţĂÂÎȘȚŞŢ"},
    {"Slovenian", "čšžČŠŽ"},
    {"Turkish", "çğıöşüÇĞİÖŞÜ"},
    {"Russian, Bulgarian, Ukrainian",
     "абвгдеёжзийклмнопрстуфхцчшщъыьэюяґєіїАБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯҐЄІЇ"},
    {"Vietnamese",
     "ăâđêôơưạảấầẩẫậắằẳẵặẹẻẽếềểễệỉịọỏốồổỗộớờởỡợụủứừửữựỳỵỷỹĂÂĐÊÔƠƯẠẢẤẦẨẪẬẮẰẲẴẶẸẺẼẾỀỂỄỆỈỊ"
     "ỌỎỐỒỔỖỘỚỜỞỠỢỤỦỨỪỬỮỰỲỴỶỸ\xCC\x80\xCC\x81\xCC\x83\xCC\x89\xCC\xA3"},
    {"Arabic", "ءآأؤإئابةتثجحخدذرزسشصضطظعغفقكلمنهوىيًٌٍَُِّْ،؛؟٠١٢٣٤٥٦٧٨٩ـ"},
    {"Persian", "پچژگکی۰۱۲۳۴۵۶۷۸۹"},
    {"Hindi", "अआइईउऊऋएऐओऔकखगघङचछजझञटठडढणतथदधनपफबभमयरलवशषसह"
              "ािीुूृेैोौ्ंःँ़।॥०१२३४५६७८९"},
    {"Thai", "กขฃคฅฆงจฉชซฌญฎฏฐฑฒณดตถทธนบปผฝพฟภมยรฤลฦวศษสหฬอฮะัาำิีึืฺุูเแโใไๅๆ็่้๊๋์ํ๐๑๒๓๔๕๖๗๘๙฿"},
    {"Japanese kana",
     "ぁあぃいぅうぇえぉおかがきぎくぐけげこごさざしじすずせぜそぞただちぢっつづてでとどなにぬねの"
     "はばぱひびぴふぶぷへべぺほぼぽまみむめもゃやゅゆょよらりるれろわをん"
     "アイウエオガギグゲゴザジズゼゾダヂッヅデドパピプペポヴヵヶー、。「」・"},
};

} // namespace

class Font : public testing::Test
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(ZrFontMetrics::setFontFile(fontFile, 5 << 20)); }
    static void expectGlyph(std::uint32_t character, const char *where)
    {
        EXPECT_NE(zrtool::GlyphStore::instance().glyphOf(character), 0u)
            << where << " U+" << std::hex << character;
    }
};

TEST_F(Font, HoldsEveryAlphabet)
{
    for (const Alphabet &alphabet : alphabets)
        for (std::uint32_t character : charactersOf(alphabet.letters))
            expectGlyph(character, alphabet.languages);
    for (std::uint32_t syllable = 0xAC00; syllable <= 0xD7A3; syllable++)
        expectGlyph(syllable, "Korean");
}

// Every ideograph of the national character sets of two bytes.
TEST_F(Font, HoldsEveryIdeographOfTheNationalSets)
{
    struct Set {
        const char *name;
        int firstLead, lastLead, firstTrail;
    };
    const Set sets[] = {{"GB2312", 0xB0, 0xF7, 0xA1},  // simplified Chinese
                        {"BIG5", 0xA4, 0xF9, 0x40},    // traditional Chinese
                        {"EUC-JP", 0xB0, 0xF4, 0xA1}}; // Japanese
    for (const Set &set : sets) {
        const iconv_t converter = iconv_open("UTF-16LE", set.name);
        ASSERT_NE(converter, iconv_t(-1)) << set.name;
        int converted = 0;
        for (int lead = set.firstLead; lead <= set.lastLead; lead++) {
            for (int trail = set.firstTrail; trail <= 0xFE; trail++) {
                char bytes[2] = {char(lead), char(trail)};
                char units[8] = {};
                char *from = bytes, *to = units;
                std::size_t left = 2, room = sizeof units;
                if (iconv(converter, &from, &left, &to, &room) == std::size_t(-1)) {
                    iconv(converter, nullptr, nullptr, nullptr, nullptr);
                    continue;
                }
                const std::uint32_t character =
                    std::uint8_t(units[0]) | std::uint32_t(std::uint8_t(units[1])) << 8;
                if (character < 0x4E00 || character > 0x9FFF)
                    continue; // not an ideograph, or of private use
                expectGlyph(character, set.name);
                converted++;
            }
        }
        iconv_close(converter);
        EXPECT_GT(converted, 6000) << set.name;
    }
}
