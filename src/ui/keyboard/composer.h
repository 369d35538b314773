// Turns keys into letters where a letter takes more than one key.
#pragma once

#include <memory>
#include <zrstring>

// Take back that many letters before the cursor, then type the text.
struct ComposedEdit {
    int erase = 0;
    ZrString text;
};

class Composer
{
public:
    virtual ~Composer() = default;
    virtual ComposedEdit type(const ZrString &key) = 0;
    // Backspace: takes back the last key where there is one, else the letter before the cursor.
    virtual ComposedEdit erase()
    {
        reset();
        return {1, ZrString()};
    }
    // The cursor went elsewhere: the next key begins anew.
    virtual void reset() = 0;
};

enum class Composing {
    None,
    Hangul,     // syllables from their jamo
    Vietnamese, // a tone, as a combining mark, joins the vowel before it
    Kana        // the key "゛" changes the kana before it to its next form
};

// Null for None.
std::unique_ptr<Composer> makeComposer(Composing kind);
