#include "layouts.h"

#include "live/splitmodes.h"
#include "palette.h"

#include <algorithm>
#include <stdexcept>

namespace
{

constexpr int Side = 75;   // 50 units on a screen of 1920
constexpr int Extent = 51; // what the cells may take of it
constexpr int FewCells = 4;

// Cells and gaps in whole pixels, all alike, and the whole in the middle.
struct Cells {
    explicit Cells(int count) : gap(count > FewCells ? 2 : 3)
    {
        step = (Extent + gap) / count;
        first = (Side - (step * count - gap)) / 2;
    }
    int gap;
    int step;
    int first;
};

void fillBlock(Picture &picture, const live::SplitMode &mode, int row, int column, int span,
               Color color)
{
    const Cells across(mode.columns), down(mode.rows);
    const int left = across.first + column * across.step;
    const int top = down.first + row * down.step;
    for (int y = top; y < top + span * down.step - down.gap; ++y) {
        for (int x = left; x < left + span * across.step - across.gap; ++x)
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

Picture drawMode(const live::SplitMode &mode, Color color)
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
    return picture;
}

} // namespace

void makeLayouts(const std::string &folder)
{
    for (const live::SplitMode &mode : live::SplitModes) {
        const std::string path = folder + "/mainview-layout" + mode.name;
        if (!drawMode(mode, iconColor("text", State::Normal)).save(path + ".png") ||
            !drawMode(mode, iconColor("text", State::Hover)).save(path + "-hover.png"))
            throw std::runtime_error("cannot write " + path);
    }
}
