// Syllables of Hangul from the keys of a keyboard with two sets, consonants and vowels.
#pragma once

#include "ui/keyboard/composer.h"

class HangulComposer : public Composer
{
public:
    ComposedEdit type(const ZrString &key) override;
    ComposedEdit erase() override;
    void reset() override { parts_ = Parts(); }

private:
    // Compatibility jamo; 0 for none. A vowel or final of two keys keeps both.
    struct Parts {
        ZrUcs2 lead = 0;
        ZrUcs2 vowel = 0;
        ZrUcs2 secondVowel = 0;
        ZrUcs2 tail = 0;
        ZrUcs2 secondTail = 0;
        bool isEmpty() const { return !lead && !vowel; }
    };

    ComposedEdit typeVowel(ZrUcs2 jamo);
    ComposedEdit typeConsonant(ZrUcs2 jamo);
    ComposedEdit begin(ZrUcs2 lead, ZrUcs2 vowel);
    static ZrString shown(const Parts &parts);

    Parts parts_;
};
