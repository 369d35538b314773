#include <zrcursor>

#include "link/startup.h"

#include <zrstring>

namespace
{

// data: cursor-image/{arrow,cursor-uparrow,cursor-cross,cursor-wait,cursor-ibeam}.png
// data: cursor-image/cursor-{sizev,sizeh,vsplit,hsplit,hand,forbidden,whatsthis}.png
// data: cursor-image/cursor-{busy,openhand,closehand}.png
struct ShapeFile {
    const char *name;
    int hotX, hotY; // the pixel that points
};
constexpr ShapeFile kFiles[ZrCursor::ShapeCount] = {
    {"arrow.png", 0, 0},
    {"cursor-uparrow.png", 12, 1},
    {"cursor-cross.png", 12, 12},
    {"cursor-wait.png", 12, 12},
    {"cursor-ibeam.png", 12, 12},
    {"cursor-sizev.png", 12, 12},
    {"cursor-sizeh.png", 12, 12},
    {"cursor-vsplit.png", 12, 12},
    {"cursor-hsplit.png", 12, 12},
    {"cursor-hand.png", 9, 1},
    {"cursor-forbidden.png", 12, 12},
    {"cursor-whatsthis.png", 0, 0},
    {"cursor-busy.png", 0, 0},
    {"cursor-openhand.png", 12, 12},
    {"cursor-closehand.png", 12, 12},
};

int knownShape(int shape)
{
    return shape >= 0 && shape < ZrCursor::ShapeCount ? shape : int(ZrCursor::Arrow);
}

// Each file is read once.
const ZrImage &shapeImage(int shape)
{
    static ZrImage images[ZrCursor::ShapeCount];
    static bool isRead[ZrCursor::ShapeCount];
    if (!isRead[shape]) {
        isRead[shape] = true;
        ZrString path("cursor-image/");
        path.append(ZrCursor::fileName(shape));
        images[shape] = ZrImage(resolveResourcePath(path));
    }
    return images[shape];
}

} // namespace

ZrCursor::ZrCursor(int shape)
    : shape_(knownShape(shape)), hotSpot_(kFiles[shape_].hotX, kFiles[shape_].hotY)
{
}

ZrCursor::ZrCursor(const ZrImage &image, int hotX, int hotY)
    : shape_(-1), hotSpot_(hotX, hotY), image_(image)
{
}

const ZrImage &ZrCursor::image() const
{
    if (shape_ >= 0 && image_.isNull())
        image_ = shapeImage(shape_);
    return image_;
}

bool ZrCursor::operator==(const ZrCursor &other) const
{
    if (shape_ != other.shape_)
        return false;
    return shape_ >= 0 || (hotSpot_ == other.hotSpot_ && image_.isSharedWith(other.image_));
}

const char *ZrCursor::fileName(int shape)
{
    return kFiles[knownShape(shape)].name;
}
