// Draws the interface's icons from an icon font, and its pointers from outlines, by the tables in
// images/. Runs at build time.
//   zr-icons icons FONT CSS TABLE FOLDER
//   zr-icons pointers TABLE FOLDER
//   zr-icons layouts FOLDER
#include "layouts.h"
#include "picture.h"

#include <cstdio>
#include <fstream>
#include <ft2build.h>
#include <sstream>
#include FT_FREETYPE_H

namespace
{

constexpr int PointerGrid = 24;
constexpr float MaxFactor = 1.5f; // of the "-max" twins
// The pointer is a one-bit mask on the screen: a light shape with a dark rim reads on any picture.
constexpr Color PointerFill{248, 248, 248};
constexpr Color PointerRim{16, 20, 24};

Color parseColor(const std::string &text)
{
    const unsigned value = unsigned(std::stoul(text, nullptr, 16));
    return {std::uint8_t(value >> 16), std::uint8_t(value >> 8), std::uint8_t(value)};
}

// The lines of a table without comments and empty ones.
std::vector<std::string> readTable(const std::string &path)
{
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#')
            lines.push_back(line);
    }
    return lines;
}

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

// The glyph in the middle of its square.
bool drawGlyph(FT_Face face, unsigned long code, Color color, Picture &picture)
{
    FT_Set_Pixel_Sizes(face, 0, unsigned(picture.height()));
    if (FT_Load_Char(face, code, FT_LOAD_RENDER))
        return false;
    const FT_Bitmap &bitmap = face->glyph->bitmap;
    const int left = (picture.width() - int(bitmap.width)) / 2;
    const int top = (picture.height() - int(bitmap.rows)) / 2;
    for (int y = 0; y < int(bitmap.rows); ++y) {
        for (int x = 0; x < int(bitmap.width); ++x)
            picture.cover(left + x, top + y, color, bitmap.buffer[y * bitmap.pitch + x]);
    }
    return true;
}

int makeIcons(const std::string &font, const std::string &cssPath, const std::string &table,
              const std::string &folder)
{
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    if (FT_Init_FreeType(&library) || FT_New_Face(library, font.c_str(), 0, &face)) {
        std::fprintf(stderr, "cannot read the icon font %s\n", font.c_str());
        return 1;
    }
    const std::string css = readAll(cssPath);
    int failures = 0;
    for (const std::string &line : readTable(table)) {
        std::istringstream words(line);
        std::string file, glyph, color;
        int side = 0;
        words >> file >> glyph >> side >> color;
        const unsigned long code = codePoint(css, glyph);
        Picture picture(side, side);
        if (code == 0 || !drawGlyph(face, code, parseColor(color), picture) ||
            !picture.save(folder + "/" + file)) {
            std::fprintf(stderr, "cannot draw %s\n", line.c_str());
            ++failures;
        }
    }
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    return failures ? 1 : 0;
}

std::vector<Point> readOutline(std::istringstream &words)
{
    std::vector<Point> corners;
    Point corner{};
    for (char comma; words >> corner.x >> comma >> corner.y;)
        corners.push_back(corner);
    return corners;
}

// The outline with a rim of one pixel about it.
Picture drawPointer(const std::vector<Point> &grid, int side)
{
    std::vector<Point> outline;
    for (const Point &corner : grid)
        outline.push_back(
            {corner.x * float(side) / PointerGrid, corner.y * float(side) / PointerGrid});
    Picture picture(side, side);
    const float rim = float(side) / PointerGrid;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const Point center{float(x) + 0.5f, float(y) + 0.5f};
            if (!contains(outline, center) && distanceToOutline(outline, center) <= rim)
                picture.cover(x, y, PointerRim, 255);
        }
    }
    picture.fill(outline, PointerFill, Picture::Edges::Hard);
    return picture;
}

int makePointers(const std::string &table, const std::string &folder)
{
    int failures = 0;
    for (const std::string &line : readTable(table)) {
        std::istringstream words(line);
        std::string file;
        int side = 0;
        words >> file >> side;
        const std::vector<Point> outline = readOutline(words);
        const std::string name = file.substr(0, file.rfind('.'));
        const int large = int(float(side) * MaxFactor);
        if (outline.size() < 3 || !drawPointer(outline, side).save(folder + "/" + file) ||
            !drawPointer(outline, large).save(folder + "/" + name + "-max.png")) {
            std::fprintf(stderr, "cannot draw %s\n", line.c_str());
            ++failures;
        }
    }
    return failures ? 1 : 0;
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 5 && words[0] == "icons")
        return makeIcons(words[1], words[2], words[3], words[4]);
    if (words.size() == 3 && words[0] == "pointers")
        return makePointers(words[1], words[2]);
    if (words.size() == 2 && words[0] == "layouts")
        return makeLayouts(words[1]);
    std::fprintf(stderr,
                 "zr-icons icons FONT CSS TABLE FOLDER | pointers TABLE FOLDER | layouts FOLDER\n");
    return 2;
}
