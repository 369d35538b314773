// The video plane under the framebuffer: a moving, numbered test picture for each channel, where
// the interface told App to show it.
#pragma once

#include "workbench/board/picture.h"

#include <cstdint>
#include <vector>

class VideoPlane
{
public:
    struct Tile {
        uint32_t channel = 0;
        Area where;             // in display pixels
        Area crop;              // visible part of the picture, on a reference of 704 x 576
        bool hasPicture = true; // without one the place stays dark
    };

    VideoPlane(int width, int height) : picture_(width, height) {}

    // The tiles of a body of 100/0 or 100/1. Counts and rectangles are taken with care: what is
    // outside the plane is cut.
    static std::vector<Tile> decode(const std::vector<uint8_t> &body);
    // Shows these tiles instead of those before, all else black. Returns what changed.
    std::vector<Area> setTiles(const std::vector<Tile> &tiles);
    // Draws everything as it stands at this moment. Returns what changed.
    std::vector<Area> advance(unsigned milliseconds);

    const Picture &picture() const { return picture_; }

private:
    void drawTile(const Tile &tile, const Area &part);
    Area moverAt(const Tile &tile, unsigned milliseconds) const;

    Picture picture_;
    std::vector<Tile> tiles_;
    std::vector<Area> movers_; // of each tile, as drawn
};
