// A key of an on-screen keyboard.
#pragma once

#include <vector>
#include <zrrect>
#include <zrstring>

struct KeyboardKey {
    enum Action {
        Type, // the text
        Erase,
        Left,
        Right,
        Done,
        Shift,
        Page,      // value: which
        Layout,    // value: which
        Candidate, // value: which
        Earlier,   // candidates
        Later
    };
    Action action = Type;
    ZrString text;              // what is typed
    ZrString caption;           // empty: the text
    const char *icon = nullptr; // the path of a picture instead
    float columns = 1;          // its width
    int value = 0;
    bool on = false; // drawn as switched on
    ZrRect rect{};   // set by the keyboard
};

using KeyboardRow = std::vector<KeyboardKey>;

inline KeyboardKey typingKey(const ZrString &text)
{
    KeyboardKey key;
    key.text = text;
    return key;
}
inline KeyboardKey iconKey(KeyboardKey::Action action, const char *icon, float columns = 1)
{
    KeyboardKey key;
    key.action = action;
    key.icon = icon;
    key.columns = columns;
    return key;
}
inline KeyboardKey wordKey(KeyboardKey::Action action, const ZrString &caption, int value,
                           float columns)
{
    KeyboardKey key;
    key.action = action;
    key.caption = caption;
    key.value = value;
    key.columns = columns;
    return key;
}
// Typing keys from captions with spaces between them.
KeyboardRow typingRow(const ZrString &captions);
