#include "workbench/board/videoplane.h"

#include "live/live_records.h"

#include <cmath>

namespace
{

constexpr int kReferenceWidth = live::CropWidth;
constexpr int kReferenceHeight = live::CropHeight;
constexpr uint32_t kNoPicture = 0x081018;
constexpr uint32_t kNumber = 0x98A8B8;
constexpr unsigned kSlowestCrossing = 24000; // milliseconds from one side to the other

// Muted scenes: sky or wall, ground, and two still things.
struct Scene {
    uint32_t upper, lower, first, second;
    int firstX, secondX; // in sixteenths of the width
};
constexpr Scene kScenes[] = {
    {0x1C2820, 0x243428, 0x344438, 0x383840, 2, 10},
    {0x28282C, 0x2C2C34, 0x3C4048, 0x40382C, 5, 11},
    {0x2C2820, 0x342C24, 0x443C30, 0x2C3C4C, 7, 9},
    {0x202830, 0x283040, 0x344450, 0x2C4030, 3, 10},
    {0x242C2C, 0x243428, 0x344438, 0x383840, 5, 10},
    {0x302428, 0x2C3038, 0x3C4048, 0x40382C, 7, 11},
    {0x1C2820, 0x342C24, 0x443C30, 0x2C3C4C, 3, 10},
    {0x28282C, 0x283040, 0x344450, 0x2C4030, 5, 10},
};

const Scene &sceneOf(uint32_t channel)
{
    return kScenes[channel % std::size(kScenes)];
}

// Digits on a grid of 3 x 5, a bit each, upper left first.
constexpr uint16_t kDigits[10] = {0x7B6F, 0x2C97, 0x73E7, 0x73CF, 0x5BC9,
                                  0x79CF, 0x79EF, 0x7292, 0x7BEF, 0x7BCF};

} // namespace

std::vector<VideoPlane::Tile> VideoPlane::decode(const std::vector<uint8_t> &body)
{
    using live::PreviewRecord;
    WireReader record(body.data(), body.size());
    const uint32_t count =
        std::min(record.u32(PreviewRecord::OffsetCount), uint32_t(PreviewRecord::Places));
    std::vector<Tile> tiles;
    for (uint32_t i = 0; i < count; ++i) {
        const auto rectangle = [&](size_t base) {
            const int x = record.u16(base), y = record.u16(base + 2);
            return Area{x, y, x + record.u16(base + 4), y + record.u16(base + 6)};
        };
        Tile tile;
        tile.channel = record.u32(PreviewRecord::OffsetChannel + 4 * i);
        tile.where = rectangle(PreviewRecord::OffsetRect + 8 * i);
        tile.crop = rectangle(PreviewRecord::OffsetCrop + 8 * i)
                        .cut({0, 0, kReferenceWidth, kReferenceHeight});
        if (tile.crop.isEmpty())
            tile.crop = {0, 0, kReferenceWidth, kReferenceHeight};
        if (!tile.where.isEmpty())
            tiles.push_back(tile);
    }
    return tiles;
}

std::vector<Area> VideoPlane::setTiles(const std::vector<Tile> &tiles)
{
    tiles_ = tiles;
    movers_.assign(tiles.size(), Area());
    picture_.fill(picture_.area(), 0);
    for (const Tile &tile : tiles_)
        drawTile(tile, tile.where);
    return {picture_.area()};
}

namespace
{

// Maps the scene, given in parts of its whole, onto a tile through its crop.
class Projection
{
public:
    explicit Projection(const VideoPlane::Tile &tile)
        : tile_(tile),
          scaleX_(double(tile.where.width()) / tile.crop.width()),
          scaleY_(double(tile.where.height()) / tile.crop.height())
    {
    }
    // Left, top, right and bottom as fractions of the scene.
    Area operator()(double left, double top, double right, double bottom) const
    {
        return Area{x(left), y(top), x(right), y(bottom)}.cut(tile_.where);
    }

private:
    int x(double part) const
    {
        return tile_.where.left +
               int(std::floor((part * kReferenceWidth - tile_.crop.left) * scaleX_));
    }
    int y(double part) const
    {
        return tile_.where.top +
               int(std::floor((part * kReferenceHeight - tile_.crop.top) * scaleY_));
    }

    const VideoPlane::Tile &tile_;
    double scaleX_;
    double scaleY_;
};

void drawNumber(Picture *picture, const Projection &project, uint32_t number, const Area &part)
{
    const std::string text = std::to_string(number);
    constexpr double dotWidth = 0.0105, dotHeight = 0.0185;
    double left = 0.5 - double(text.size()) * 2 * dotWidth;
    for (char character : text) {
        const uint16_t dots = kDigits[character - '0'];
        for (int i = 0; i < 15; ++i) {
            const double x = left + (i % 3) * dotWidth, y = 0.14 + (i / 3) * dotHeight;
            if (dots >> (14 - i) & 1)
                picture->fill(project(x, y, x + dotWidth, y + dotHeight).cut(part), kNumber);
        }
        left += 4 * dotWidth;
    }
}

} // namespace

Area VideoPlane::moverAt(const Tile &tile, unsigned milliseconds) const
{
    if (!tile.hasPicture)
        return {};
    // There and back again, each channel at its own pace and place.
    const unsigned crossing = kSlowestCrossing - tile.channel % 7 * 1700;
    const unsigned phase = (milliseconds + tile.channel * 2900) % (2 * crossing);
    const double way = double(phase < crossing ? phase : 2 * crossing - phase) / crossing;
    const double left = 0.04 + way * 0.86;
    return Projection(tile)(left, 0.60, left + 0.055, 0.82);
}

void VideoPlane::drawTile(const Tile &tile, const Area &part)
{
    const Area visible = part.cut(tile.where);
    if (!tile.hasPicture) {
        picture_.fill(visible, kNoPicture);
        return;
    }
    const Scene &scene = sceneOf(tile.channel);
    const Projection project(tile);
    const auto fill = [&](double left, double top, double right, double bottom, uint32_t colour) {
        picture_.fill(project(left, top, right, bottom).cut(visible), colour);
    };
    fill(0, 0, 1, 0.625, scene.upper);
    fill(0, 0.625, 1, 1.001, scene.lower);
    const double first = scene.firstX / 16.0, second = scene.secondX / 16.0;
    fill(first, 0.30, first + 0.16, 0.80, scene.first);
    fill(second, 0.42, second + 0.22, 0.72, scene.second);
    drawNumber(&picture_, project, tile.channel + 1, visible);
}

std::vector<Area> VideoPlane::advance(unsigned milliseconds)
{
    std::vector<Area> changed;
    for (size_t i = 0; i < tiles_.size(); ++i) {
        const Area now = moverAt(tiles_[i], milliseconds);
        if (now == movers_[i])
            continue;
        if (!movers_[i].isEmpty())
            drawTile(tiles_[i], movers_[i]);
        picture_.fill(now, sceneOf(tiles_[i].channel + 3).second + 0x181818);
        for (const Area &area : {movers_[i], now}) {
            if (!area.isEmpty())
                changed.push_back(area);
        }
        movers_[i] = now;
    }
    return changed;
}
