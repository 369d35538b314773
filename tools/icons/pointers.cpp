#include "pointers.h"

#include "drawing.h"
#include "table.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

namespace
{

constexpr int Grid = 24;
constexpr int Side = 24;
constexpr int LargeSide = 36;
// Away from the edges that fall on the middle of a pixel, so that even shapes stay even.
constexpr float Hair = 0.01f;
// A pointer is a mask on the screen, without half-transparent pixels: a light shape with a dark rim
// reads on any picture.
constexpr Color Fill{248, 248, 248};
constexpr Color Rim{8, 16, 24};

Picture drawPointer(const Drawing &drawing, int side)
{
    const float scale = float(side) / Grid;
    const std::vector<DrawingPart> parts = partsOf(drawing, scale);
    Picture picture(side, side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const Point at{float(x) + 0.5f, float(y) + 0.5f};
            float nearest = 1e9f;
            const DrawingPart *top = nullptr;
            for (const DrawingPart &part : parts) {
                const float distance = part.distance(at);
                nearest = std::min(nearest, distance);
                if (distance < -Hair)
                    top = &part;
            }
            if (top)
                picture.cover(x, y, top->color == "ink" ? Rim : Fill, 255);
            else if (nearest < scale - Hair)
                picture.cover(x, y, Rim, 255);
        }
    }
    return picture;
}

} // namespace

void makePointers(const std::string &table, const std::string &folder)
{
    for (const std::string &line : readTable(table)) {
        std::istringstream words(line);
        std::string name, hotSpot;
        Drawing drawing;
        words >> name >> hotSpot;
        std::getline(words, drawing.text);
        if (!drawPointer(drawing, Side).save(folder + "/" + name + ".png") ||
            !drawPointer(drawing, LargeSide).save(folder + "/" + name + "-max.png"))
            throw std::runtime_error("cannot write " + name);
    }
}
