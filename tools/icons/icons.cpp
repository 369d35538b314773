#include "icons.h"

#include "drawing.h"
#include "table.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <stdexcept>

namespace
{

constexpr float PixelsPerUnit = 1.5f; // made for a screen of 1920; smaller ones draw them scaled
constexpr float PlateRadius = 3;      // units
constexpr float BadgeShare = 0.54f;   // of the icon's side
constexpr float BadgeGap = 1;         // units left clear about a badge

using Drawings = std::map<std::string, Drawing>;

struct IconLine {
    std::string pattern;
    std::string shape; // a glyph's name, or "@" and a drawing's, perhaps with ":" and an angle
    float width = 0;   // units
    float height = 0;
    float glyph = 0;  // side of the glyph
    float middle = 0; // how far below the top the middle of the glyph is
    std::string role;
    std::string badge; // a glyph's name; empty for none
    std::string badgeRole;
};

int pixels(float units)
{
    return int(std::lround(units * PixelsPerUnit));
}

// "24" or "36x18".
void readSize(const std::string &text, float &width, float &height)
{
    std::istringstream words(text);
    char times = 0;
    words >> width;
    if (!(words >> times >> height))
        height = width;
}

// "50/28": a picture of 50 with a glyph of 28 in the middle; "160x90/40,30": its middle 30 below
// the top.
void readGlyphSize(const std::string &text, IconLine &line)
{
    const std::size_t slash = text.find('/');
    readSize(text.substr(0, slash), line.width, line.height);
    line.glyph = std::min(line.width, line.height);
    line.middle = line.height / 2;
    if (slash == std::string::npos)
        return;
    std::istringstream words(text.substr(slash + 1));
    char comma = 0;
    words >> line.glyph;
    float middle = 0;
    if (words >> comma >> middle)
        line.middle = middle;
}

IconLine readIconLine(const std::string &text)
{
    std::istringstream words(text);
    IconLine line;
    std::string size, badge;
    if (!(words >> line.pattern >> line.shape >> size >> line.role))
        throw std::invalid_argument("too few words: " + text);
    readGlyphSize(size, line);
    if (line.width <= 0 || line.height <= 0)
        throw std::invalid_argument("no size: " + text);
    if (words >> badge) {
        const std::size_t colon = badge.find(':');
        if (badge[0] != '+' || colon == std::string::npos)
            throw std::invalid_argument("a badge reads +GLYPH:COLOUR: " + text);
        line.badge = badge.substr(1, colon - 1);
        line.badgeRole = badge.substr(colon + 1);
    }
    return line;
}

Drawings readDrawings(const std::string &path)
{
    Drawings drawings;
    for (const std::string &line : readTable(path)) {
        std::istringstream words(line);
        std::string name, size;
        Drawing drawing;
        words >> name >> size;
        readSize(size, drawing.width, drawing.height);
        std::getline(words, drawing.text);
        drawings[name] = drawing;
    }
    return drawings;
}

void drawBadge(Picture &picture, IconFont &font, const IconLine &line, State state)
{
    const int side = int(float(picture.height()) * BadgeShare);
    const int left = picture.width() - side, top = picture.height() - side;
    const Point center{float(left) + float(side) / 2, float(top) + float(side) / 2};
    picture.erase(disc(center, float(side) / 2 + BadgeGap * PixelsPerUnit - 1));
    const State own = state == State::Disabled ? state : State::Normal;
    font.draw(picture, line.badge, iconColor(line.badgeRole, own), left, top, side);
}

void drawGlyphIcon(Picture &picture, IconFont &font, const IconLine &line, State state)
{
    const int side = pixels(line.glyph);
    font.draw(picture, line.shape, iconColor(line.role, state), (picture.width() - side) / 2,
              pixels(line.middle) - side / 2, side);
    if (!line.badge.empty())
        drawBadge(picture, font, line, state);
}

// A thing that is switched on stands on a plate: its colour alone would not tell.
Picture withPlate(const Picture &icon)
{
    Picture picture(icon.width(), icon.height());
    const Point end{float(icon.width()), float(icon.height())};
    picture.fill(box({0, 0}, end, PlateRadius * PixelsPerUnit), roleColor("deep", State::Normal));
    picture.draw(0, 0, icon);
    return picture;
}

Picture drawIcon(IconFont &font, const Drawings &drawings, const IconLine &line, State state)
{
    Picture picture(pixels(line.width), pixels(line.height));
    if (line.shape[0] != '@') {
        drawGlyphIcon(picture, font, line, state);
        return state == State::On ? withPlate(picture) : picture;
    }
    const std::size_t colon = line.shape.find(':');
    const auto drawing = drawings.find(line.shape.substr(1, colon - 1));
    if (drawing == drawings.end())
        throw std::invalid_argument("no drawing is called " + line.shape);
    const float degrees = colon == std::string::npos ? 0 : std::stof(line.shape.substr(colon + 1));
    draw(picture, drawing->second, state, degrees);
    return picture;
}

} // namespace

void makeIcons(IconFont &font, const std::string &iconTable, const std::string &drawingTable,
               const std::string &folder)
{
    const Drawings drawings = readDrawings(drawingTable);
    for (const std::string &text : readTable(iconTable)) {
        const IconLine line = readIconLine(text);
        for (const TwinName &twin : expandTwins(line.pattern)) {
            const Picture picture = drawIcon(font, drawings, line, stateOfTwin(twin.ending));
            if (!picture.save(folder + "/" + twin.name + ".png"))
                throw std::runtime_error("cannot write " + twin.name);
        }
    }
}
