// Fields and keyboards on a virtual screen, in the folder of the built resources.
#pragma once

#include "support/entryscreen.h"
#include "ui/controls/lineedit.h"
#include "ui/input/keynavigation.h"
#include "ui/keyboard/keyboardlayouts.h"
#include "ui/keyboard/textkeyboard.h"

#include <filesystem>

namespace zrtest
{

class EntryFixture : public EntryScreen
{
public:
    EntryFixture() : folder_(std::filesystem::current_path())
    {
        std::filesystem::current_path(ZR_BINARY_DIR "/data");
    }
    ~EntryFixture() override { std::filesystem::current_path(folder_); }

    Keyboard *keyboard() const { return dynamic_cast<Keyboard *>(ZrDesktop::activePopup()); }
    // A text keyboard that works for the field, with the layout of a language.
    TextKeyboard *openKeyboard(ZrLineEdit *field, int language)
    {
        auto *opened = new TextKeyboard(field, TextKeyboard::Open); // deletes itself
        opened->setLayout(keyboardLayoutOf(language));
        opened->open();
        screen->settle();
        return opened;
    }
    // Presses the first key that does this, or types that; false when there is none.
    bool pressKey(KeyboardKey::Action action, const ZrString &text = ZrString(), int value = -1)
    {
        Keyboard *open = keyboard();
        if (!open)
            return false;
        for (int row = 0; row < int(open->rows().size()); ++row)
            for (int i = 0; i < int(open->rows()[std::size_t(row)].size()); ++i) {
                const KeyboardKey &key = open->rows()[std::size_t(row)][std::size_t(i)];
                if (key.action != action || (action == KeyboardKey::Type && key.text != text) ||
                    (value >= 0 && key.value != value))
                    continue;
                open->press(row, i);
                screen->settle();
                return true;
            }
        return false;
    }
    bool pressText(const ZrString &text) { return pressKey(KeyboardKey::Type, text); }

    KeyNavigation navigation;

private:
    std::filesystem::path folder_;
};

} // namespace zrtest
