// A debug switch: with the environment variable ZR_PAINT_FLASH set to milliseconds, every flush
// first shows what it is about to refresh in one colour for that long.
#pragma once

#include <zrregion>

class ZrScreen;

class PaintFlash
{
public:
    static void show(ZrScreen &screen, const ZrRegion &region);
};
