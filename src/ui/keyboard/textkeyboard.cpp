#include "ui/keyboard/textkeyboard.h"

#include "ui/keyboard/keyboardlayouts.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <algorithm>
#include <zrtranslation>

namespace
{

constexpr float LeastColumns = 11;
constexpr float SideKeys = 2; // shift and erase
constexpr int LanguagesInRow = 6;
constexpr float LanguageColumns = 14;

// Units of a row's height; the more rows, the lower each.
constexpr int RowUnits[] = {50, 50, 50, 50, 50, 50, 46, 44};

constexpr float ColumnUnits = 64;

// The layout that the user chose for the language of the interface.
struct {
    int language = -1;
    int layout = 0;
} lastChosen;

int currentLanguage()
{
    return ZrTranslation::instance() ? int(ZrTranslation::instance()->currentLanguage()) : -1;
}

const KeyboardLayout &layoutAt(int index)
{
    return keyboardLayouts()[std::size_t(index)];
}

bool isLatin(const KeyboardLayout &layout)
{
    return ZrString(layout.rows[0]).at(0) < 0x250;
}

int firstLayout(TextKeyboard::Secrecy secrecy)
{
    const int language = currentLanguage();
    const int layout =
        lastChosen.language == language ? lastChosen.layout : keyboardLayoutOf(language);
    return secrecy == TextKeyboard::Open || isLatin(layoutAt(layout)) ? layout
                                                                      : latinKeyboardLayout();
}

} // namespace

TextKeyboard::TextKeyboard(ZrWidget *target, Secrecy secrecy)
    : Keyboard(target), layout_(-1), secrecy_(secrecy)
{
    setLayout(firstLayout(secrecy));
    setCurrent(layoutAt(layout_).digitsRow ? 1 : 0, 0);
}

void TextKeyboard::setLayout(int layout)
{
    layout = std::clamp(layout, 0, int(keyboardLayouts().size()) - 1);
    layout_ = layout;
    composer_ = makeComposer(layoutAt(layout).composing);
    spelling_.reset();
    if (layoutAt(layout).pinyin && secrecy_ == Open)
        spelling_ = std::make_unique<PinyinEntry>(PinyinDictionary::instance());
    shift_ = Off;
    showPage(Letters);
}

// --- rows ---

float TextKeyboard::columns() const
{
    float most = LeastColumns;
    const KeyboardLayout &layout = layoutAt(layout_);
    int last = 0;
    for (const char *row : layout.rows)
        last += row ? 1 : 0;
    for (int i = 0; i < last; ++i) {
        const float count = float(typingRow(ZrString(layout.rows[i])).size());
        most = std::max(most, i + 1 == last ? count + SideKeys : count);
    }
    return most;
}

void TextKeyboard::rebuild()
{
    std::vector<KeyboardRow> rows;
    if (page_ == Letters)
        addLetters(rows);
    else if (page_ == Symbols)
        addSymbols(rows);
    else
        addLanguages(rows);
    const std::size_t last = std::size(RowUnits) - 1;
    const int rowUnits = RowUnits[std::min(last, rows.size())];
    setRows(std::move(rows), page_ == Languages ? LanguageColumns : columns(), rowUnits);
}

void TextKeyboard::addLetters(std::vector<KeyboardRow> &rows) const
{
    const KeyboardLayout &layout = layoutAt(layout_);
    if (spelling_)
        rows.push_back(candidateRow());
    if (layout.digitsRow)
        rows.push_back(typingRow(ZrString(SymbolKeys[0][0])));
    for (int i = 0; i < KeyboardLayout::Rows && layout.rows[i]; ++i) {
        const ZrString plain(layout.rows[i]);
        const ZrString shifted = layout.shifted[i] ? ZrString(layout.shifted[i]) : plain.toUpper();
        rows.push_back(typingRow(shift_ == Off ? plain : shifted));
    }
    frameLastRow(rows.back());
    rows.push_back(bottomRow());
}

void TextKeyboard::addSymbols(std::vector<KeyboardRow> &rows) const
{
    for (const char *row : SymbolKeys[shift_ == Off ? 0 : 1])
        rows.push_back(typingRow(ZrString(row)));
    frameLastRow(rows.back());
    rows.push_back(bottomRow());
}

void TextKeyboard::addLanguages(std::vector<KeyboardRow> &rows) const
{
    for (int language = 0; language < ZrTranslation::LanguageCount; ++language) {
        if (language % LanguagesInRow == 0)
            rows.emplace_back();
        const int layout = keyboardLayoutOf(language);
        KeyboardKey key = wordKey(KeyboardKey::Layout, tr(Text::FirstLanguageName + language),
                                  layout, LanguageColumns / LanguagesInRow);
        key.on = layout == layout_ && layoutAt(layout).language == language;
        rows.back().push_back(key);
    }
}

// Shift before it and erase behind it share what the letters leave.
void TextKeyboard::frameLastRow(KeyboardRow &row) const
{
    const float side = std::clamp((columns() - float(row.size())) / 2, 1.0f, SideKeys);
    KeyboardKey shift =
        iconKey(KeyboardKey::Shift,
                shift_ == Off ? "images/keyboard-shift.png" : "images/keyboard-shift-on.png", side);
    shift.on = shift_ == Locked;
    row.insert(row.begin(), shift);
    row.push_back(iconKey(KeyboardKey::Erase, "images/keyboard-backspace.png", side));
}

KeyboardRow TextKeyboard::bottomRow() const
{
    constexpr float WideKey = 1.5f;
    constexpr float OtherKeys = 2 * WideKey + 5;
    const bool letters = page_ == Letters;
    const bool isChinese = letters && spelling_;
    KeyboardRow row;
    row.push_back(wordKey(KeyboardKey::Page, tr(letters ? Text::KeySymbols : Text::KeyLetters),
                          letters ? Symbols : Letters, WideKey));
    KeyboardKey language = iconKey(KeyboardKey::Page, "images/keyboard-language.png");
    language.value = Languages;
    row.push_back(language);
    row.push_back(typingKey(ZrString(isChinese ? "，" : ",")));
    KeyboardKey space = wordKey(KeyboardKey::Type, tr(Text::KeySpace), 0, columns() - OtherKeys);
    space.text = ZrString(" ");
    row.push_back(space);
    row.push_back(typingKey(ZrString(isChinese ? "。" : ".")));
    row.push_back(iconKey(KeyboardKey::Left, "images/keyboard-left.png"));
    row.push_back(iconKey(KeyboardKey::Right, "images/keyboard-right.png"));
    row.push_back(iconKey(KeyboardKey::Done, "images/keyboard-enter.png", WideKey));
    return row;
}

// --- words to choose from ---

// How many words fit the row from that one on.
int TextKeyboard::candidatesFrom(std::size_t first) const
{
    const float arrows = 2;
    float room = columns() - arrows;
    int count = 0;
    KeyboardKey key;
    key.action = KeyboardKey::Candidate;
    key.text = ZrString(spelling_->letters().c_str());
    room -= float(look().captionWidth(key)) / float(unitsX(ColumnUnits));
    for (std::size_t i = first; i < spelling_->words().size(); ++i, ++count) {
        key.text = spelling_->words()[i].text;
        room -= std::max(1.0f, float(look().captionWidth(key)) / float(unitsX(ColumnUnits)));
        if (room < 0 && count > 0)
            break;
    }
    return count;
}

KeyboardRow TextKeyboard::candidateRow() const
{
    KeyboardRow row;
    if (spelling_->isEmpty())
        return row;
    const auto add = [&](const ZrString &text, int value, float least) {
        KeyboardKey key;
        key.action = KeyboardKey::Candidate;
        key.text = text;
        key.value = value;
        key.columns = std::max(least, float(look().captionWidth(key)) / float(unitsX(ColumnUnits)));
        row.push_back(key);
    };
    // The letters themselves come first: they can be had as they are.
    add(ZrString(spelling_->letters().c_str()), -1, 0);
    const std::size_t count = std::size_t(candidatesFrom(firstCandidate_));
    for (std::size_t i = firstCandidate_; i < firstCandidate_ + count; ++i)
        add(spelling_->words()[i].text, int(i), 1);
    if (count > 0)
        row[1].on = true; // what the space key takes
    float used = SideKeys;
    for (const KeyboardKey &key : row)
        used += key.columns;
    row.back().columns += std::max(0.0f, columns() - used);
    row.insert(row.begin(), iconKey(KeyboardKey::Earlier, "images/keyboard-left.png"));
    row.push_back(iconKey(KeyboardKey::Later, "images/keyboard-right.png"));
    return row;
}

void TextKeyboard::turnCandidates(int pages)
{
    if (pages > 0) {
        const std::size_t next = firstCandidate_ + std::size_t(candidatesFrom(firstCandidate_));
        firstCandidate_ = next < spelling_->words().size() ? next : firstCandidate_;
    } else {
        // Back to the page whose end is where this one begins.
        std::size_t page = 0;
        while (page < firstCandidate_) {
            const std::size_t next = page + std::size_t(std::max(1, candidatesFrom(page)));
            if (next >= firstCandidate_)
                break;
            page = next;
        }
        firstCandidate_ = page;
    }
    rebuild();
}

void TextKeyboard::chooseWord(std::size_t index)
{
    const ZrString word = spelling_->choose(index);
    firstCandidate_ = 0;
    rebuild();
    if (!word.isEmpty())
        send(0, word);
}

bool TextKeyboard::typedInSpelling(const ZrString &text)
{
    if (shift_ == Off && spelling_->type(text)) {
        firstCandidate_ = 0;
        rebuild();
        return true;
    }
    if (spelling_->isEmpty())
        return false;
    const bool isSpace = text == ZrString(" ");
    const bool isDigit = text.size() == 1 && text.at(0) >= '1' && text.at(0) <= '9';
    const std::size_t chosen = firstCandidate_ + (isDigit ? std::size_t(text.at(0) - '1') : 0);
    if ((!isSpace && !isDigit) || chosen >= spelling_->words().size())
        return false;
    chooseWord(chosen);
    return true;
}

// --- keys ---

void TextKeyboard::act(const KeyboardKey &key)
{
    switch (key.action) {
    case KeyboardKey::Shift:
        nextShift();
        return;
    case KeyboardKey::Page:
        showPage(PageNumber(key.value));
        return;
    case KeyboardKey::Layout:
        lastChosen = {currentLanguage(), key.value};
        setLayout(key.value);
        return;
    case KeyboardKey::Candidate:
        if (key.value >= 0) {
            chooseWord(std::size_t(key.value));
        } else {
            forgetComposition();
            send(0, key.text);
        }
        return;
    case KeyboardKey::Earlier:
    case KeyboardKey::Later:
        turnCandidates(key.action == KeyboardKey::Later ? 1 : -1);
        return;
    case KeyboardKey::Left:
    case KeyboardKey::Right:
    case KeyboardKey::Done:
        if (spells() && !spelling_->isEmpty() && key.action == KeyboardKey::Done) {
            const ZrString letters(spelling_->letters().c_str());
            forgetComposition();
            send(0, letters);
            return;
        }
        forgetComposition();
        break;
    default:
        break;
    }
    Keyboard::act(key);
}

void TextKeyboard::typed(const ZrString &text)
{
    if (spells() && typedInSpelling(text))
        return;
    const ComposedEdit edit = composer_ ? composer_->type(text) : ComposedEdit{0, text};
    if (shift_ == Once && page_ == Letters) {
        shift_ = Off;
        rebuild();
    }
    const ZrGuard<TextKeyboard> self(this);
    for (int i = 0; i < edit.erase && self; ++i)
        send(Zr::Key_Backspace);
    if (self && !edit.text.isEmpty())
        send(0, edit.text);
}

void TextKeyboard::erase()
{
    if (spells() && spelling_->erase()) {
        firstCandidate_ = 0;
        rebuild();
        return;
    }
    const ComposedEdit edit = composer_ ? composer_->erase() : ComposedEdit{1, ZrString()};
    const ZrGuard<TextKeyboard> self(this);
    send(Zr::Key_Backspace);
    if (self && !edit.text.isEmpty())
        send(0, edit.text);
}

void TextKeyboard::nextShift()
{
    shift_ = shift_ == Off ? (page_ == Letters ? Once : Locked) : shift_ == Once ? Locked : Off;
    rebuild();
}

void TextKeyboard::showPage(PageNumber page)
{
    page_ = page;
    shift_ = Off;
    forgetComposition();
    rebuild();
}

void TextKeyboard::forgetComposition()
{
    if (composer_)
        composer_->reset();
    if (!spelling_ || spelling_->isEmpty())
        return;
    spelling_->clear();
    firstCandidate_ = 0;
    rebuild();
}
