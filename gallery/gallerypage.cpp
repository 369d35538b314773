#include "gallerypage.h"

#include "ui/scale.h"
#include "ui/stylefiles.h"

#include <zrapplication>
#include <zrtranslation>

namespace
{

constexpr float CaptionWidth = 180;
constexpr float LowestCaption = 24;
constexpr float HighestCaption = 40;
constexpr float GapX = 16;
constexpr float GapY = 12;
constexpr float Top = 16;
constexpr float Left = 24;

} // namespace

GalleryPage::GalleryPage(ZrWidget *parent) : ZrWidget(parent), nextY_(Top) {}

void GalleryPage::beginWideRow(float height)
{
    if (rowHeight_ > 0)
        nextY_ += rowHeight_ + GapY;
    rowHeight_ = height;
    nextX_ = Left;
}

void GalleryPage::beginRow(int captionText, float height)
{
    beginWideRow(height);
    auto *caption = new ZrLabel(tr(captionText), this);
    caption->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    caption->setElided(true);
    caption->style().labelOption().foreground.set(
        zrIndex(ZrVisualState::Normal),
        commonStyleFile().colorValue(ZrString("Common/Foreground/Dim")));
    // In the middle of a low row, at the top of a high one.
    const float captionHeight = std::clamp(height, LowestCaption, HighestCaption);
    const float above = std::max(0.f, captionHeight - height) / 2;
    caption->setGeometry(ZrRect(unitsX(nextX_), unitsY(nextY_ - above), unitsX(CaptionWidth),
                                unitsY(captionHeight)));
    nextX_ += CaptionWidth + GapX;
}

void GalleryPage::place(ZrWidget *control, float width, Pose pose)
{
    control->setParent(this);
    control->setGeometry(ZrRect(unitsX(nextX_), unitsY(nextY_), unitsX(width), unitsY(rowHeight_)));
    nextX_ += width + GapX;
    if (pose == Pose::Disabled)
        control->setEnabled(false);
    else if (pose != Pose::AsItIs)
        posed_.append({control, pose});
}

ZrWidget *GalleryPage::named(const char *name) const
{
    for (ZrObject *child : children())
        if (child->isWidgetType() && child->objectName() == ZrString(name))
            return static_cast<ZrWidget *>(child);
    return nullptr;
}

void GalleryPage::strikePoses()
{
    for (const Posed &posed : posed_) {
        if (posed.pose == Pose::Hovered) {
            ZrHoverEvent event(ZrEvent::HoverEnter, ZrPoint());
            ZrApplication::notify(posed.control, &event);
        } else {
            ZrFocusEvent event(ZrEvent::FocusIn, Zr::KeyManagerFocus);
            ZrApplication::notify(posed.control, &event);
        }
    }
}
