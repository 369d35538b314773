#include "gfx/glyphline.h"

#include <algorithm>

GlyphLine::GlyphLine(int x, int y, const ZrVector<const GlyphBitmap *> &glyphs, int letterSpacing,
                     int gap)
{
    int descent = glyphs.at(0)->descent;
    for (const GlyphBitmap *glyph : glyphs)
        descent = std::max<int>(descent, glyph->descent);
    const int baseline = y - (descent + gap);
    int below = glyphs.at(0)->rows - glyphs.at(0)->top;
    int pen = x;
    places.reserve(size_t(glyphs.size()));
    for (const GlyphBitmap *glyph : glyphs) {
        places.push_back({glyph, pen + glyph->left, baseline - glyph->top});
        below = std::max(below, glyph->rows - glyph->top);
        pen += glyph->advance + letterSpacing;
    }
    underlineTop = baseline + below;
    underlineEnd = pen - letterSpacing;
}
