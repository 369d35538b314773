#include <zrcursor>

#include "link/startup.h"

#include <zrstring>

namespace
{

// data: cursor-image/{arrow,cursor-uparrow,cursor-cross,cursor-wait,cursor-ibeam}.png
// data: cursor-image/cursor-{sizev,sizeh,vsplit,hsplit,hand,forbidden,whatsthis}.png
// data: cursor-image/cursor-{busy,openhand,closehand}.png
constexpr const char *kFiles[ZrCursor::ShapeCount] = {
    "arrow.png",         "cursor-uparrow.png",  "cursor-cross.png",     "cursor-wait.png",
    "cursor-ibeam.png",  "cursor-sizev.png",    "cursor-sizeh.png",     "cursor-vsplit.png",
    "cursor-hsplit.png", "cursor-hand.png",     "cursor-forbidden.png", "cursor-whatsthis.png",
    "cursor-busy.png",   "cursor-openhand.png", "cursor-closehand.png",
};

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

ZrCursor::ZrCursor(int shape) : shape_(shape >= 0 && shape < ShapeCount ? shape : Arrow) {}

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
    return kFiles[shape >= 0 && shape < ShapeCount ? shape : Arrow];
}
