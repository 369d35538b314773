// The letters of each language's keyboard, as data.
#pragma once

#include "ui/keyboard/composer.h"

#include <cstdint>
#include <vector>

struct KeyboardLayout {
    static constexpr int Rows = 5;

    int language;            // whose name it bears; a number of ZrTranslation
    std::uint64_t languages; // bit n: the first choice of language n
    bool digitsRow;          // a row of digits above the letters
    // Captions with spaces between them, from the top; null where there is no row. Shift and erase
    // stand on both sides of the last one.
    const char *rows[Rows];
    // With shift; where a row is null, its letters in upper case.
    const char *shifted[Rows];
    Composing composing;
    bool pinyin; // letters choose among words
};

const std::vector<KeyboardLayout> &keyboardLayouts();
// An index of them; the English one for a language that nobody has thought of.
int keyboardLayoutOf(int language);
int latinKeyboardLayout();

// The pages of signs, which all layouts share.
constexpr int SymbolPages = 2;
constexpr int SymbolRows = 4;
extern const char *const SymbolKeys[SymbolPages][SymbolRows];
