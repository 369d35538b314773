#include "ui/keyboard/formcomposers.h"

#include "ui/keyboard/hangulcomposer.h"

#include <string_view>

namespace
{

// Combining acute, grave, hook above, tilde, dot below: the tones in the order of the forms.
constexpr std::u16string_view Tones = u"\u0301\u0300\u0309\u0303\u0323";
constexpr std::u16string_view ToneForms[] = {
    u"aáàảãạ", u"ăắằẳẵặ", u"âấầẩẫậ", u"eéèẻẽẹ", u"êếềểễệ", u"iíìỉĩị", u"oóòỏõọ", u"ôốồổỗộ",
    u"ơớờởỡợ", u"uúùủũụ", u"ưứừửữự", u"yýỳỷỹỵ", u"AÁÀẢÃẠ", u"ĂẮẰẲẴẶ", u"ÂẤẦẨẪẬ", u"EÉÈẺẼẸ",
    u"ÊẾỀỂỄỆ", u"IÍÌỈĨỊ", u"OÓÒỎÕỌ", u"ÔỐỒỔỖỘ", u"ƠỚỜỞỠỢ", u"UÚÙỦŨỤ", u"ƯỨỪỬỮỰ", u"YÝỲỶỸỴ",
};

// Each kana's forms, from one to the next and back to the first.
constexpr std::u16string_view KanaForms[] = {
    u"あぁ",   u"いぃ",   u"うぅゔ", u"えぇ", u"おぉ",   u"かが",   u"きぎ",   u"くぐ",
    u"けげ",   u"こご",   u"さざ",   u"しじ", u"すず",   u"せぜ",   u"そぞ",   u"ただ",
    u"ちぢ",   u"つっづ", u"てで",   u"とど", u"はばぱ", u"ひびぴ", u"ふぶぷ", u"へべぺ",
    u"ほぼぽ", u"やゃ",   u"ゆゅ",   u"よょ", u"わゎ",
};
constexpr ZrUcs2 ToKatakana = 0x60;

ZrUcs2 nextForm(ZrUcs2 hiragana)
{
    for (const std::u16string_view forms : KanaForms) {
        const std::size_t at = forms.find(char16_t(hiragana));
        if (at != std::u16string_view::npos)
            return forms[(at + 1) % forms.size()];
    }
    return 0;
}

} // namespace

std::unique_ptr<Composer> makeComposer(Composing kind)
{
    switch (kind) {
    case Composing::Hangul:
        return std::make_unique<HangulComposer>();
    case Composing::Vietnamese:
        return std::make_unique<VietnameseComposer>();
    case Composing::Kana:
        return std::make_unique<KanaComposer>();
    default:
        return nullptr;
    }
}

ComposedEdit LetterFormComposer::type(const ZrString &key)
{
    const ZrUcs2 unit = key.size() == 1 ? key.at(0) : ZrUcs2(0);
    if (!isFormKey(unit)) {
        last_ = unit;
        return {0, key};
    }
    const ZrUcs2 changed = last_ ? form(last_, unit) : ZrUcs2(0);
    if (!changed)
        return {};
    last_ = changed;
    return {1, ZrString(changed)};
}

bool VietnameseComposer::isFormKey(ZrUcs2 key) const
{
    return Tones.find(char16_t(key)) != std::u16string_view::npos;
}

ZrUcs2 VietnameseComposer::form(ZrUcs2 letter, ZrUcs2 key) const
{
    const std::size_t tone = Tones.find(char16_t(key)) + 1;
    for (const std::u16string_view forms : ToneForms) {
        const std::size_t at = forms.find(char16_t(letter));
        if (at != std::u16string_view::npos)
            return forms[at == tone ? 0 : tone]; // the same tone again takes it away
    }
    return 0;
}

ZrUcs2 KanaComposer::form(ZrUcs2 letter, ZrUcs2) const
{
    const bool isKatakana = letter >= 0x30A1 && letter <= 0x30F6;
    const ZrUcs2 next = nextForm(isKatakana ? ZrUcs2(letter - ToKatakana) : letter);
    return next && isKatakana ? ZrUcs2(next + ToKatakana) : next;
}
