// A line of glyphs on its baseline.
#pragma once

#include <zrfontengine>
#include <zrvector>

#include <vector>

class ZrString;

// Where each glyph of a line goes, and the run beneath them.
struct GlyphLine {
    struct Place {
        const GlyphBitmap *glyph;
        int left;
        int top;
    };

    // The baseline stands above y by the greatest descent and by the given gap.
    GlyphLine(int x, int y, const ZrVector<const GlyphBitmap *> &glyphs, int letterSpacing,
              int gap);

    std::vector<Place> places;
    int underlineTop = 0;
    int underlineEnd = 0; // first column behind the run
};
