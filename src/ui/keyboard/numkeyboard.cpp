#include "ui/keyboard/numkeyboard.h"

namespace
{

constexpr float Columns = 4;
constexpr int RowUnits = 52;

} // namespace

NumKeyboard::NumKeyboard(ZrWidget *target, const ZrString &sign) : Keyboard(target)
{
    std::vector<KeyboardRow> rows{typingRow(ZrString("1 2 3")), typingRow(ZrString("4 5 6")),
                                  typingRow(ZrString("7 8 9")), typingRow(sign + ZrString(" 0"))};
    rows[0].push_back(iconKey(KeyboardKey::Erase, "images/keyboard-backspace.png"));
    rows[1].push_back(iconKey(KeyboardKey::Left, "images/keyboard-left.png"));
    rows[2].push_back(iconKey(KeyboardKey::Right, "images/keyboard-right.png"));
    rows[3].push_back(iconKey(KeyboardKey::Done, "images/keyboard-enter.png", 2));
    if (sign.isEmpty())
        rows[3].front().columns = 2;
    setRows(std::move(rows), Columns, RowUnits);
}
