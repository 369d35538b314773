// What a language package must keep, one check each. They append a line for each fault.
#pragma once

#include "package.h"

// How much room a text has: the ids from first to last in one line of that width, in a font of
// that size, both in design units (1280 by 720).
struct WidthRule {
    int first, last;
    int width;
    int fontSize;
};

// Lines of "ID[-ID] WIDTH FONT"; the rest of a line behind "#" is a comment.
std::vector<WidthRule> readWidthRules(const std::string &path, Faults *faults);

// Numbers in ascending order, each once, none without text or with spaces around it.
void checkForm(const Package &package, Faults *faults);
// The same numbers as the reference.
void checkComplete(const Package &package, const Package &reference, Faults *faults);
// The same places to fill, %1 to %99, each as often.
void checkPlaces(const Package &package, const Package &reference, Faults *faults);
// Names of languages are the same everywhere.
void checkLanguageNames(const Package &package, const Package &reference, Faults *faults);
// The font has every character.
void checkGlyphs(const Package &package, Faults *faults);
// A place counts as two digits.
void checkWidths(const Package &package, const std::vector<WidthRule> &rules, Faults *faults);
