// What a monitor shows: the framebuffer over the video plane, joined by the framebuffer's alpha
// bit.
#pragma once

#include "workbench/board/framebufferfile.h"
#include "workbench/board/picture.h"

#include <cstdint>
#include <vector>

class Compositor
{
public:
    static constexpr int TileWidth = 64;
    static constexpr int TileHeight = 16;

    Compositor(int width, int height);

    // Looks for tiles of the framebuffer that have changed since the last call, adds those that the
    // changed parts of the plane touch, and composes them. Returns the composed tiles.
    std::vector<Area> compose(const FramebufferFile &framebuffer, const Picture &plane,
                              const std::vector<Area> &planeChanges);
    // Whether the framebuffer itself had changed at the last call.
    bool framebufferChanged() const { return framebufferChanged_; }

    const Picture &picture() const { return picture_; }
    Picture &picture() { return picture_; }

    // One line: pixels with the alpha bit from the framebuffer, others from the plane.
    static void composeLine(const uint16_t *over, const uint32_t *under, uint32_t *out, int count);

private:
    Area tileArea(int column, int row) const;
    bool updateShadow(const FramebufferFile &framebuffer, const Area &tile);

    Picture picture_;
    int columns_;
    int rows_;
    std::vector<uint16_t> shadow_; // the framebuffer as it was composed
    std::vector<uint8_t> dirty_;   // a byte a tile
    bool framebufferChanged_ = false;
    bool isFirst_ = true;
};
