// From design units to pixels. Screens are designed on 1280 by 720 units; nothing is placed in bare
// pixels unless a rule says pixels.
#pragma once

constexpr int DesignWidth = 1280;
constexpr int DesignHeight = 720;

// Set once the screen is known, and again when its size changes.
void setScreenScale(int screenWidth, int screenHeight);
float scaleX();
float scaleY();
// Nearest pixel.
int unitsX(float units);
int unitsY(float units);
// For text and icons, which keep their shape: by the smaller of the two factors.
int fontUnits(float units);
