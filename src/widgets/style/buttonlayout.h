// Where the parts of a button go, for painting it and for telling how large it wants to be.
#pragma once

#include <zrabstractbutton>
#include <zrstyleoption>

ZrSize pushButtonHint(const ZrAbstractButton &button, const ZrPushButtonOption &group);
ZrSize indicatorButtonHint(const ZrAbstractButton &button, const ZrIndicatorOption &group);

// Height of a control of one line: room for the line, and half of it for air.
int lineControlHeight(const ZrFont &font);
// Pixels of one line of text in the font.
int textWidth(const ZrString &text, const ZrFont &font);

// A picture and a text beside each other.
struct IconAndText {
    ZrRect icon; // empty when there is none
    ZrRect text; // reaches to the end of the room; empty when there is no text
};
// `align` places both together; what does not fit is cut from the text.
IconAndText layIconAndText(const ZrRect &room, int align, const ZrSize &icon, int spacing,
                           int textPixels);
