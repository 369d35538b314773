#include "ui/keyboard/mackeyboard.h"

namespace
{

constexpr float Columns = 6;
constexpr int RowUnits = 52;

} // namespace

MacKeyboard::MacKeyboard(ZrWidget *target) : Keyboard(target)
{
    std::vector<KeyboardRow> rows{typingRow(ZrString("1 2 3 A B")),
                                  typingRow(ZrString("4 5 6 C D")),
                                  typingRow(ZrString("7 8 9 E F")), typingRow(ZrString(": 0 . -"))};
    rows[0].push_back(iconKey(KeyboardKey::Erase, "images/keyboard-backspace.png"));
    rows[1].push_back(iconKey(KeyboardKey::Left, "images/keyboard-left.png"));
    rows[2].push_back(iconKey(KeyboardKey::Right, "images/keyboard-right.png"));
    rows[3].push_back(iconKey(KeyboardKey::Done, "images/keyboard-enter.png", 2));
    setRows(std::move(rows), Columns, RowUnits);
}
