#include "workbench/board/compositor.h"

#include <cstring>

Compositor::Compositor(int width, int height)
    : picture_(width, height),
      columns_((width + TileWidth - 1) / TileWidth),
      rows_((height + TileHeight - 1) / TileHeight),
      shadow_(size_t(width) * size_t(height)),
      dirty_(size_t(columns_) * size_t(rows_))
{
}

Area Compositor::tileArea(int column, int row) const
{
    return Area{column * TileWidth, row * TileHeight, (column + 1) * TileWidth,
                (row + 1) * TileHeight}
        .cut(picture_.area());
}

bool Compositor::updateShadow(const FramebufferFile &framebuffer, const Area &tile)
{
    bool changed = false;
    const size_t bytes = size_t(tile.width()) * sizeof(uint16_t);
    for (int y = tile.top; y < tile.bottom; ++y) {
        uint16_t *kept = shadow_.data() + size_t(y) * size_t(picture_.width()) + tile.left;
        const uint16_t *now = framebuffer.line(y) + tile.left;
        if (memcmp(kept, now, bytes) != 0) {
            memcpy(kept, now, bytes);
            changed = true;
        }
    }
    return changed;
}

void Compositor::composeLine(const uint16_t *over, const uint32_t *under, uint32_t *out, int count)
{
    for (int i = 0; i < count; ++i) {
        const uint32_t pixel = over[i];
        // Five bits become eight by repeating their upper three.
        const uint32_t red = pixel >> 10 & 31, green = pixel >> 5 & 31, blue = pixel & 31;
        const uint32_t colour =
            (red << 3 | red >> 2) << 16 | (green << 3 | green >> 2) << 8 | (blue << 3 | blue >> 2);
        out[i] = pixel & 0x8000 ? colour : under[i];
    }
}

std::vector<Area> Compositor::compose(const FramebufferFile &framebuffer, const Picture &plane,
                                      const std::vector<Area> &planeChanges)
{
    std::fill(dirty_.begin(), dirty_.end(), uint8_t(isFirst_));
    for (const Area &change : planeChanges) {
        const Area inside = change.cut(picture_.area());
        if (inside.isEmpty())
            continue;
        for (int row = inside.top / TileHeight; row <= (inside.bottom - 1) / TileHeight; ++row) {
            for (int column = inside.left / TileWidth; column <= (inside.right - 1) / TileWidth;
                 ++column)
                dirty_[size_t(row * columns_ + column)] = 1;
        }
    }
    framebufferChanged_ = false;
    std::vector<Area> composed;
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column) {
            const Area tile = tileArea(column, row);
            const bool changed = updateShadow(framebuffer, tile);
            framebufferChanged_ |= changed;
            if (!changed && !dirty_[size_t(row * columns_ + column)])
                continue;
            for (int y = tile.top; y < tile.bottom; ++y)
                composeLine(shadow_.data() + size_t(y) * size_t(picture_.width()) + tile.left,
                            plane.line(y) + tile.left, picture_.line(y) + tile.left, tile.width());
            composed.push_back(tile);
        }
    }
    isFirst_ = false;
    return composed;
}
