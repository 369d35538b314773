#include "ui/controls/menulook.h"

#include "ui/scale.h"
#include "ui/stylefiles.h"

#include <algorithm>

namespace
{

const char *const StateWords[MenuLook::States] = {"Normal", "Hover", "Focus", "Disabled"};

// At least a pixel where the file asks for a line.
int thickness(int units)
{
    return units > 0 ? std::max(1, unitsY(float(units))) : 0;
}

} // namespace

// data: style/mainview.ini Menu/{Background,Border/Color,Border/Width,Item/BorderWidth}
// data: style/mainview.ini Menu/Item/{Foreground,Background}/{Normal,Hover,Focus,Disabled}
MenuLook MenuLook::read(const ZrIniFile &file, const char *section, Keys keys)
{
    const ZrString prefix = ZrString(section) + ZrString("/");
    const auto color = [&](const char *key) { return file.colorValue(prefix + ZrString(key)); };
    const auto itemColor = [&](const char *part, const char *borderPart, int state) {
        const ZrString word(StateWords[state]);
        const ZrString key = keys == Keys::StateLast
                                 ? ZrString("Item/") + ZrString(part) + ZrString("/") + word
                                 : ZrString("Item/") + word + ZrString(borderPart);
        return file.colorValue(prefix + key);
    };
    MenuLook look;
    look.background = color("Background");
    look.border = color("Border/Color");
    look.splitter = keys == Keys::StateInside
                        ? color("Spliter/Color")
                        : commonStyleFile().colorValue(ZrString("Common/Separator/Color"));
    look.bar = commonStyleFile().colorValue(ZrString("Common/Accent/Color"));
    look.borderWidth = thickness(file.intValue(prefix + ZrString("Border/Width")));
    look.itemBorderWidth = thickness(file.intValue(prefix + ZrString("Item/BorderWidth")));
    for (int state = 0; state < States; ++state) {
        look.item[state].background = itemColor("Background", "Background", state);
        look.item[state].foreground = itemColor("Foreground", "Foreground", state);
        look.item[state].border = itemColor("Border", "BorderColor", state);
        if (look.item[state].border.alpha() == 0)
            look.item[state].border = look.item[state].background;
    }
    return look;
}
