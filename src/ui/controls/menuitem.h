// One row of a menu.
#pragma once

#include <zrpixmap>
#include <zrstring>

struct MenuItem {
    int action = 0; // the caller's own number
    int textId = 0; // 0: the text stays as it is when the language changes
    ZrString text;
    ZrPixmap picture;
    ZrPixmap hoverPicture; // null: the same
    bool enabled = true;
    bool visible = true;
    bool checked = false;         // has a bar at its leading edge
    bool separatorBehind = false; // a line parts it from the next one
};
