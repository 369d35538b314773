// How a menu is drawn: colours and widths from a section of a style file.
#pragma once

#include <zrcolor>
#include <zrinifile>

struct MenuLook {
    enum State { Normal, Hover, Focus, Disabled, States };
    struct Item {
        ZrColor background;
        ZrColor foreground;
        ZrColor border;
    };

    ZrColor background;
    ZrColor border;
    ZrColor splitter;
    ZrColor bar; // of a checked row
    Item item[States];
    int borderWidth = 1; // pixels, as all widths here
    int splitterWidth = 1;
    int itemBorderWidth = 0;

    // How the keys of rows are written: "Item/Background/Hover" or "Item/HoverBackground".
    enum class Keys { StateLast, StateInside };
    static MenuLook read(const ZrIniFile &file, const char *section, Keys keys);
};
