#include "ui/keyboard/keyboardlayouts.h"

namespace
{

// Numbers of the languages.
enum Language {
    Chinese = 0,
    ChineseComplex = 1,
    Czech = 2,
    Danish = 3,
    English = 4,
    Finnish = 5,
    French = 6,
    German = 7,
    Greek = 8,
    Hebrew = 9,
    Hungarian = 10,
    Italian = 11,
    Japanese = 12,
    Polish = 13,
    Portuguese = 14,
    Russian = 15,
    Spanish = 16,
    Thai = 17,
    Slovenian = 18,
    Romanian = 19,
    Bulgarian = 20,
    Arabic = 21,
    Hindi = 22,
    Vietnamese = 23,
    Dutch = 24,
    Turkish = 25,
    Persian = 26,
    Swedish = 27,
    Korean = 28,
    Indonesian = 29,
    Brazilian = 30,
    Flemish = 31,
    Ukrainian = 32,
    Slovak = 33
};

constexpr std::uint64_t of(int language)
{
    return std::uint64_t(1) << language;
}
constexpr std::uint64_t of(int language, int other)
{
    return of(language) | of(other);
}

constexpr bool Digits = true;
constexpr bool NoDigits = false;
constexpr bool Pinyin = true;
constexpr bool Direct = false;
constexpr Composing None = Composing::None;

// clang-format off
const std::vector<KeyboardLayout> Layouts = {
    {English, of(English, Indonesian), Digits,
     {"q w e r t y u i o p", "a s d f g h j k l", "z x c v b n m"}, {}, None, Direct},
    {Chinese, of(Chinese, ChineseComplex), Digits,
     {"q w e r t y u i o p", "a s d f g h j k l", "z x c v b n m"}, {}, None, Pinyin},
    {Czech, of(Czech), Digits,
     {"ě š č ř ž ý á í é ú ů ó", "q w e r t z u i o p", "a s d f g h j k l", "y x c v b n m ď ť ň"},
     {}, None, Direct},
    {Danish, of(Danish), Digits,
     {"q w e r t y u i o p å", "a s d f g h j k l æ ø", "z x c v b n m é"}, {}, None, Direct},
    {Swedish, of(Swedish), Digits,
     {"q w e r t y u i o p å", "a s d f g h j k l ö ä", "z x c v b n m é"}, {}, None, Direct},
    {Finnish, of(Finnish), Digits,
     {"q w e r t y u i o p å", "a s d f g h j k l ö ä", "z x c v b n m š ž"}, {}, None, Direct},
    {French, of(French), Digits,
     {"é è ê ë à â ç î ï ô ù û", "a z e r t y u i o p", "q s d f g h j k l m", "w x c v b n œ æ ü ÿ"},
     {}, None, Direct},
    {Flemish, of(Flemish), Digits,
     {"é è ê ë à â ç ï î ö ü ô", "a z e r t y u i o p", "q s d f g h j k l m", "w x c v b n ä á ó û"},
     {}, None, Direct},
    {Dutch, of(Dutch), Digits,
     {"é è ê ë ï ö ü á ó í ú ç", "q w e r t y u i o p", "a s d f g h j k l", "z x c v b n m ĳ"},
     {}, None, Direct},
    {German, of(German), Digits,
     {"q w e r t z u i o p ü", "a s d f g h j k l ö ä", "y x c v b n m ß"},
     {nullptr, nullptr, "Y X C V B N M ẞ"}, None, Direct},
    {Hungarian, of(Hungarian), Digits,
     {"á é í ó ö ő ú ü ű", "q w e r t z u i o p", "a s d f g h j k l", "y x c v b n m"},
     {}, None, Direct},
    {Italian, of(Italian), Digits,
     {"à è é ì í î ò ó ù ú", "q w e r t y u i o p", "a s d f g h j k l", "z x c v b n m"},
     {}, None, Direct},
    {Polish, of(Polish), Digits,
     {"ą ć ę ł ń ó ś ź ż", "q w e r t y u i o p", "a s d f g h j k l", "z x c v b n m"},
     {}, None, Direct},
    {Portuguese, of(Portuguese, Brazilian), Digits,
     {"á â ã à ç é ê í ó ô õ ú", "q w e r t y u i o p", "a s d f g h j k l ü", "z x c v b n m è"},
     {}, None, Direct},
    {Romanian, of(Romanian), Digits,
     {"q w e r t y u i o p ă î", "a s d f g h j k l ș ț", "z x c v b n m â"}, {}, None, Direct},
    {Slovenian, of(Slovenian), Digits,
     {"q w e r t z u i o p š đ", "a s d f g h j k l č ć ž", "y x c v b n m"}, {}, None, Direct},
    {Slovak, of(Slovak), Digits,
     {"ľ š č ť ž ý á í é ú ä ô", "q w e r t z u i o p", "a s d f g h j k l ó ĺ ŕ",
      "y x c v b n m ď ň"}, {}, None, Direct},
    {Spanish, of(Spanish), Digits,
     {"á é í ó ú ü ¿ ¡", "q w e r t y u i o p", "a s d f g h j k l ñ", "z x c v b n m ç"},
     {}, None, Direct},
    {Turkish, of(Turkish), Digits,
     {"q w e r t y u ı o p ğ ü", "a s d f g h j k l ş i â", "z x c v b n m ö ç î û"},
     {"Q W E R T Y U I O P Ğ Ü", "A S D F G H J K L Ş İ Â"}, None, Direct},
    {Vietnamese, of(Vietnamese), Digits,
     {"ă â đ ê ô ơ ư \u0301 \u0300 \u0309 \u0303 \u0323", "q w e r t y u i o p",
      "a s d f g h j k l", "z x c v b n m"}, {}, Composing::Vietnamese, Direct},
    {Russian, of(Russian), Digits,
     {"й ц у к е н г ш щ з х ъ", "ф ы в а п р о л д ж э ё", "я ч с м и т ь б ю"},
     {}, None, Direct},
    {Ukrainian, of(Ukrainian), Digits,
     {"й ц у к е н г ш щ з х ї", "ф і в а п р о л д ж є ґ", "я ч с м и т ь б ю '"},
     {}, None, Direct},
    {Bulgarian, of(Bulgarian), Digits,
     {"у е и ш щ к с д з ц ѝ", "ь я а о ж г т н в м ч", "ю й ъ э ф х п р л б"},
     {}, None, Direct},
    {Greek, of(Greek), Digits,
     {"ά έ ή ί ό ύ ώ ϊ ϋ ΐ ΰ", "ς ε ρ τ υ θ ι ο π", "α σ δ φ γ η ξ κ λ", "ζ χ ψ ω β ν μ"},
     {"Ά Έ Ή Ί Ό Ύ Ώ Ϊ Ϋ"}, None, Direct},
    {Hebrew, of(Hebrew), Digits,
     {"ק ר א ט ו ן ם פ", "ש ד ג כ ע י ח ל ך ף", "ז ס ב ה נ מ צ ת ץ"},
     {"׳ ״ ־ ₪", "\u05B0 \u05B1 \u05B2 \u05B3 \u05B4 \u05B5 \u05B6 \u05B7 \u05B8 \u05B9",
      "\u05BB \u05BC \u05BD \u05C1 \u05C2"}, None, Direct},
    {Arabic, of(Arabic), Digits,
     {"ض ص ث ق ف غ ع ه خ ح ج د", "ش س ي ب ل ا ت ن م ك ط", "أ إ آ ؟ ، ؛", "ذ ئ ء ؤ ر ى ة و ز ظ"},
     {"١ ٢ ٣ ٤ ٥ ٦ ٧ ٨ ٩ ٠", "\u064E \u064B \u064F \u064C \u0650 \u064D \u0651 \u0652 \u0670",
      "ٱ ـ « » ٪", "لا لأ لإ لآ"}, None, Direct},
    {Persian, of(Persian), Digits,
     {"ض ص ث ق ف غ ع ه خ ح ج چ", "ش س ی ب ل ا ت ن م ک گ", "آ ء أ ؤ ئ ۀ ؟ ، ؛", "ظ ط ز ژ ر ذ د پ و ة"},
     {"۱ ۲ ۳ ۴ ۵ ۶ ۷ ۸ ۹ ۰", "\u064E \u064B \u064F \u064C \u0650 \u064D \u0651 \u0652 \u0654 \u200C",
      "إ ـ « » ٪", "ي ك ى"}, None, Direct},
    {Hindi, of(Hindi), NoDigits,
     {"ॉ ँ ृ ः ॅ \u093C १ २ ३ ४ ५ ६", "ौ ै ा ी ू ब ह ग द ज ड", "ो े ् ि ु प र क त च ट",
      "ं म न व ल स य ।"},
     {"ऑ ऍ ऋ ऽ ॐ ॥ ७ ८ ९ ० क्ष त्र", "औ ऐ आ ई ऊ भ ङ घ ध झ ढ", "ओ ए अ इ उ फ ञ ख थ छ ठ",
      "श्र ण ज्ञ ळ श ष ड़ ढ़ ॰"}, None, Direct},
    {Thai, of(Thai), NoDigits,
     {"ๅ / _ ภ ถ ุ ึ ค ต จ ข ช", "ๆ ไ ำ พ ะ ั ี ร น ย บ ล", "ฟ ห ก ด เ ้ ่ า ส ว ง ฃ",
      "ผ ป แ อ ิ ื ท ม ใ ฝ"},
     {"+ ๑ ๒ ๓ ๔ ู ฿ ๕ ๖ ๗ ๘ ๙", "๐ \" ฎ ฑ ธ ํ ๊ ณ ฯ ญ ฐ ,", "ฤ ฆ ฏ โ ฌ ็ ๋ ษ ศ ซ . ฅ",
      "( ) ฉ ฮ ฺ ์ ? ฒ ฬ ฦ"}, None, Direct},
    {Korean, of(Korean), Digits,
     {"ㅂ ㅈ ㄷ ㄱ ㅅ ㅛ ㅕ ㅑ ㅐ ㅔ", "ㅁ ㄴ ㅇ ㄹ ㅎ ㅗ ㅓ ㅏ ㅣ", "ㅋ ㅌ ㅊ ㅍ ㅠ ㅜ ㅡ"},
     {"ㅃ ㅉ ㄸ ㄲ ㅆ ㅛ ㅕ ㅑ ㅒ ㅖ"}, Composing::Hangul, Direct},
    {Japanese, of(Japanese), NoDigits,
     {"あ か さ た な は ま や ら わ", "い き し ち に ひ み ゆ り を", "う く す つ ぬ ふ む よ る ん",
      "え け せ て ね へ め 、 れ ー", "お こ そ と の ほ も 。 ろ \u309B"},
     {"ア カ サ タ ナ ハ マ ヤ ラ ワ", "イ キ シ チ ニ ヒ ミ ユ リ ヲ", "ウ ク ス ツ ヌ フ ム ヨ ル ン",
      "エ ケ セ テ ネ ヘ メ 「 レ ー", "オ コ ソ ト ノ ホ モ 」 ロ \u309B"}, Composing::Kana, Direct},
};
// clang-format on

} // namespace

const char *const SymbolKeys[SymbolPages][SymbolRows] = {
    {"1 2 3 4 5 6 7 8 9 0", "@ # $ % & * - + = /", "( ) [ ] { } < > \\ |", "! ? . , : ; ' \" _"},
    {"^ ~ ` ´ ¨ § ¶ © ® ™", "€ £ ¥ ₩ ₹ ¢ ¤ ° º ª", "« » „ “ ” ‘ ’ … – —", "¿ ¡ ± × ÷ µ • · №"},
};

const std::vector<KeyboardLayout> &keyboardLayouts()
{
    return Layouts;
}

int keyboardLayoutOf(int language)
{
    for (std::size_t i = 0; i < Layouts.size(); ++i)
        if (language >= 0 && language < 64 && Layouts[i].languages & of(language))
            return int(i);
    return latinKeyboardLayout();
}

int latinKeyboardLayout()
{
    return 0;
}
