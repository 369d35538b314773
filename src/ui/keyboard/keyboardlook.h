// How the keys of all on-screen keyboards look, from "style/keyboard.ini".
#pragma once

#include "ui/keyboard/keyboardkey.h"

#include <zrcolor>
#include <zrpainter>

class KeyboardLook
{
public:
    enum State { Normal, Hover, Focus, On };

    KeyboardLook();
    void drawGround(ZrPainter &painter, const ZrRect &rect) const;
    void drawKey(ZrPainter &painter, const KeyboardKey &key, State state) const;
    // Pixels of the ground's border.
    int borderWidth() const { return borderWidth_; }
    // What a key needs at least for its caption.
    int captionWidth(const KeyboardKey &key) const;

private:
    void drawCaption(ZrPainter &painter, const KeyboardKey &key, const ZrColor &color) const;
    static ZrFont fontOf(const KeyboardKey &key);

    ZrColor ground_;
    ZrColor border_;
    int borderWidth_ = 1;
    ZrColor foreground_[4];
    ZrColor background_[4];
    ZrColor keyBorder_[4];
    int keyBorderWidth_ = 2;
    ZrColor specialForeground_;
    ZrColor specialBackground_;
    ZrColor candidateBackground_;
};
