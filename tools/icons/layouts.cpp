#include "layouts.h"

#include "live/splitmodes.h"
#include "picture.h"

#include <cstdio>

namespace
{

constexpr int Side = 75; // 50 units on a screen of 1920
constexpr int Edge = 8;
constexpr int Gap = 3;
constexpr Color Plain{0x98, 0xA8, 0xB8};
constexpr Color Hovered{0x38, 0xA0, 0xF8};

void fillBlock(Picture &picture, const live::SplitMode &mode, int row, int column, int span,
               Color color)
{
    const int extent = Side - 2 * Edge;
    const int left = Edge + column * extent / mode.columns;
    const int right = Edge + (column + span) * extent / mode.columns - Gap;
    const int top = Edge + row * extent / mode.rows;
    const int bottom = Edge + (row + span) * extent / mode.rows - Gap;
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x)
            picture.cover(x, y, color, 255);
    }
}

// The merged block that covers the position, or null.
const live::SplitMerge *mergeAt(const live::SplitMode &mode, int row, int column)
{
    for (const live::SplitMerge &merge : mode.merges) {
        if (row >= merge.row && row < merge.row + merge.span && column >= merge.column &&
            column < merge.column + merge.span)
            return &merge;
    }
    return nullptr;
}

bool drawMode(const live::SplitMode &mode, Color color, const std::string &path)
{
    Picture picture(Side, Side);
    for (int row = 0; row < mode.rows; ++row) {
        for (int column = 0; column < mode.columns; ++column) {
            const live::SplitMerge *merge = mergeAt(mode, row, column);
            if (!merge)
                fillBlock(picture, mode, row, column, 1, color);
            else if (merge->row == row && merge->column == column)
                fillBlock(picture, mode, row, column, merge->span, color);
        }
    }
    return picture.save(path);
}

} // namespace

int makeLayouts(const std::string &folder)
{
    for (const live::SplitMode &mode : live::SplitModes) {
        const std::string path = folder + "/mainview-layout" + mode.name;
        if (!drawMode(mode, Plain, path + ".png") ||
            !drawMode(mode, Hovered, path + "-hover.png")) {
            std::fprintf(stderr, "cannot draw the layout %s\n", mode.name);
            return 1;
        }
    }
    return 0;
}
