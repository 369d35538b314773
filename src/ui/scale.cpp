#include "ui/scale.h"

#include <algorithm>
#include <cmath>

namespace
{

float factorX = 1;
float factorY = 1;

int nearest(float value)
{
    return int(std::floor(value + 0.5f));
}

} // namespace

void setScreenScale(int screenWidth, int screenHeight)
{
    factorX = float(screenWidth) / DesignWidth;
    factorY = float(screenHeight) / DesignHeight;
}

float scaleX()
{
    return factorX;
}

float scaleY()
{
    return factorY;
}

int unitsX(float units)
{
    return nearest(units * factorX);
}

int unitsY(float units)
{
    return nearest(units * factorY);
}

int fontUnits(float units)
{
    return nearest(units * std::min(factorX, factorY));
}
