#include "iconfont.h"

#include <fstream>
#include <ft2build.h>
#include <sstream>
#include <stdexcept>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace
{

std::string readAll(const std::string &path)
{
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

// The code point behind ".mdi-NAME:before { content: "\F123"; }"; 0 when the font has no such icon.
unsigned long codePoint(const std::string &css, const std::string &name)
{
    const std::string rule = ".mdi-" + name + ":";
    const std::size_t at = css.find(rule);
    const std::size_t slash = at == std::string::npos ? at : css.find('\\', at);
    return slash == std::string::npos ? 0 : std::stoul(css.substr(slash + 1, 6), nullptr, 16);
}

} // namespace

IconFont::IconFont(const std::string &fontPath, const std::string &cssPath)
{
    if (FT_Init_FreeType(&library_) || FT_New_Face(library_, fontPath.c_str(), 0, &face_))
        throw std::runtime_error("cannot read the font " + fontPath);
    css_ = readAll(cssPath);
}

IconFont::~IconFont()
{
    FT_Done_Face(face_);
    FT_Done_FreeType(library_);
}

void IconFont::stamp(Picture &picture, Color color, int left, int top) const
{
    const FT_Bitmap &bitmap = face_->glyph->bitmap;
    for (int y = 0; y < int(bitmap.rows); ++y) {
        for (int x = 0; x < int(bitmap.width); ++x)
            picture.cover(left + x, top + y, color, bitmap.buffer[y * bitmap.pitch + x]);
    }
}

void IconFont::draw(Picture &picture, const std::string &name, Color color, int left, int top,
                    int side)
{
    const unsigned long code = codePoint(css_, name);
    FT_Set_Pixel_Sizes(face_, 0, unsigned(side));
    if (code == 0 || FT_Load_Char(face_, code, FT_LOAD_NO_HINTING))
        throw std::invalid_argument("the icon font has no " + name);
    // By the glyph's own place on its square, so that icons of one row keep their heights; the
    // baseline is moved up to the next whole pixel, and the outline by what that takes.
    const long exact = long(side) * 64 * face_->ascender / face_->units_per_EM;
    const int baseline = int((exact + 63) / 64);
    FT_Outline_Translate(&face_->glyph->outline, 0, baseline * 64 - exact);
    if (FT_Render_Glyph(face_->glyph, FT_RENDER_MODE_NORMAL))
        throw std::runtime_error("cannot draw the glyph " + name);
    stamp(picture, color, left + face_->glyph->bitmap_left,
          top + baseline - face_->glyph->bitmap_top);
}

int IconFont::drawText(Picture &picture, const std::string &text, Color color, int left,
                       int baseline, int size)
{
    FT_Set_Pixel_Sizes(face_, 0, unsigned(size));
    int x = left;
    for (const char letter : text) {
        if (FT_Load_Char(face_, FT_ULong(letter), FT_LOAD_RENDER))
            continue;
        stamp(picture, color, x + face_->glyph->bitmap_left, baseline - face_->glyph->bitmap_top);
        x += int(face_->glyph->advance.x >> 6);
    }
    return x - left;
}
