#include "gfx/paintflash.h"

#include <zrscreen>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <thread>

constexpr int kLongest = 1000;

void PaintFlash::show(ZrScreen &screen, const ZrRegion &region)
{
    static const int milliseconds = [] {
        const char *wanted = std::getenv("ZR_PAINT_FLASH");
        return wanted ? std::min(std::atoi(wanted), kLongest) : 0;
    }();
    if (milliseconds <= 0)
        return;
    screen.fillRegion(region, ZrColor(255, 0, 255));
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
