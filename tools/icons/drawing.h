// Drawings told as a row of parts in a table, for what the icon font has not. Build-time only.
#pragma once

#include "palette.h"

#include <string>
#include <vector>

// One part of a drawing, on the drawing's own grid:
//   box LEFT,TOP RIGHT,BOTTOM RADIUS COLOUR      frame the same with a WIDTH before the colour
//   disc X,Y RADIUS COLOUR                       ring X,Y RADIUS WIDTH COLOUR
//   shape COLOUR X,Y X,Y X,Y ...                 line COLOUR WIDTH X,Y X,Y ...
// The colour "clear" takes away what is below. A part behind "turn" is turned by the angle that the
// user of the drawing gives.
struct DrawingPart {
    Distance distance;
    std::string color;
};

struct Drawing {
    float width = 24;
    float height = 24;
    std::string text; // the parts, apart by ";"
};

// The parts at the drawing's full size in pixels. Throws what is wrong with the text.
std::vector<DrawingPart> partsOf(const Drawing &drawing, float pixelsPerUnit, float degrees = 0);

void draw(Picture &picture, const Drawing &drawing, State state, float degrees = 0);
