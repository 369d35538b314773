#include "workbench/board/panelkeys.h"

namespace
{

struct KeyRow {
    std::uint32_t symbol;
    int panelKey;
};

constexpr KeyRow Keys[] = {
    {0xFF08, 5},  // backspace
    {0xFF1B, 6},  // escape
    {0xFF52, 24}, // up
    {0xFF54, 25}, // down
    {0xFF51, 26}, // left
    {0xFF53, 27}, // right
    {0xFF0D, 28}, // return
    {0xFF8D, 28}, // enter of the number block
};

constexpr std::uint32_t NumberBlockFirst = 0xFFB0;
constexpr std::uint32_t NumberBlockLast = 0xFFB9;
constexpr std::uint32_t UnicodeFlag = 0x01000000;

// The Cyrillic symbols of 0x6C0 to 0x6FF stand in the order of KOI8.
constexpr char16_t Cyrillic[] = u"юабцдефгхийклмнопярстужвьызшэщчъЮАБЦДЕФГХИЙКЛМНОПЯРСТУЖВЬЫЗШЭЩЧЪ";

std::uint32_t characterOf(std::uint32_t symbol)
{
    if ((symbol >= 0x20 && symbol <= 0x7E) || (symbol >= 0xA0 && symbol <= 0xFF))
        return symbol;
    if (symbol >= 0x6C0 && symbol <= 0x6FF)
        return Cyrillic[symbol - 0x6C0];
    if (symbol >= NumberBlockFirst && symbol <= NumberBlockLast)
        return '0' + symbol - NumberBlockFirst;
    if (symbol > UnicodeFlag && symbol <= UnicodeFlag + 0x10FFFF)
        return symbol - UnicodeFlag;
    return 0;
}

void appendUtf8(std::string &text, std::uint32_t c)
{
    if (c < 0x80) {
        text += char(c);
        return;
    }
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr int Lead[] = {0, 0xC0, 0xE0, 0xF0};
    text += char(Lead[more] | int(c >> (6 * more)));
    for (int i = more - 1; i >= 0; --i)
        text += char(0x80 | (int(c >> (6 * i)) & 0x3F));
}

} // namespace

std::string panelLineOfKey(std::uint32_t symbol)
{
    for (const KeyRow &row : Keys)
        if (row.symbol == symbol)
            return "key " + std::to_string(row.panelKey);
    const std::uint32_t character = characterOf(symbol);
    if (character == 0)
        return std::string();
    std::string line = "text ";
    appendUtf8(line, character);
    return line;
}
