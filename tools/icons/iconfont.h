// The icon font: glyphs by name. Build-time only.
#pragma once

#include "picture.h"

#include <string>

struct FT_FaceRec_;
struct FT_LibraryRec_;

class IconFont
{
public:
    // The style sheet tells which name has which code. Throws when the font cannot be read.
    IconFont(const std::string &fontPath, const std::string &cssPath);
    ~IconFont();
    IconFont(const IconFont &) = delete;
    IconFont &operator=(const IconFont &) = delete;

    // The glyph in the middle of the square at (left, top). Throws when there is no such glyph.
    void draw(Picture &picture, const std::string &name, Color color, int left, int top, int side);
    // A line of plain text on its baseline, for a text font; gives its width.
    int drawText(Picture &picture, const std::string &text, Color color, int left, int baseline,
                 int size);

private:
    void stamp(Picture &picture, Color color, int left, int top) const;

    FT_LibraryRec_ *library_ = nullptr;
    FT_FaceRec_ *face_ = nullptr;
    std::string css_;
};
