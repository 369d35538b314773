// Pictures on controls, scaled to the place that they take.
//
// What was scaled is kept, so that a part of a picture that is painted alone has the pixels that it
// has in the whole.
#pragma once

#include <zrpixmap>

class ZrPainter;
class ZrRect;
class ZrSize;

// A null picture draws nothing.
void drawPicture(ZrPainter &painter, const ZrRect &place, const ZrPixmap &picture);
// In the middle of a room, of that size.
void drawPictureInMiddle(ZrPainter &painter, const ZrRect &room, const ZrSize &size,
                         const ZrPixmap &picture);
// On a control that cannot be used: half as opaque.
void drawFadedPicture(ZrPainter &painter, const ZrRect &place, const ZrPixmap &picture);
