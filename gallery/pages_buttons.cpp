// Buttons, check boxes, radio buttons, switches, sliders.
#include "pages.h"

#include "link/startup.h"
#include "ui/controls/boolbutton.h"
#include "ui/controls/daysselector.h"
#include "ui/controls/flatbutton.h"
#include "ui/controls/pressedbutton.h"
#include "ui/controls/primarybutton.h"
#include "ui/controls/toolbutton.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrbuttongroup>
#include <zrcheckbox>
#include <zrgroupbox>
#include <zrprogressbar>
#include <zrpushbutton>
#include <zrradiobutton>
#include <zrscrollbar>
#include <zrslider>
#include <zrtranslation>

namespace
{

constexpr float ButtonWidth = 184;
constexpr float ChoiceWidth = 170;

constexpr StatePictures Crop = {"images/crop.png", "images/crop-hover.png",
                                "images/crop-disabled.png", "images/crop-on.png"};

struct PoseRow {
    Pose pose;
    int text;
};
constexpr PoseRow Poses[] = {
    {Pose::AsItIs, Text::GalleryPlain},
    {Pose::Hovered, Text::GalleryHovered},
    {Pose::Focused, Text::GalleryFocused},
    {Pose::Disabled, Text::Disabled},
};

ZrPixmap image(const char *name)
{
    return ZrPixmap(resolveResourcePath(ZrString("images/") + ZrString(name)));
}

} // namespace

void fillButtons(GalleryPage &page)
{
    page.beginRow(Text::GalleryPlainButton);
    for (const PoseRow &row : Poses)
        page.add(new ZrPushButton(tr(row.text)), ButtonWidth, row.pose);
    page.beginRow(Text::GalleryMainButton);
    for (const PoseRow &row : Poses) {
        auto *button = page.add(new ZrPushButton(tr(row.text)), ButtonWidth, row.pose);
        makePrimary(button);
    }
    page.beginRow(Text::GalleryPressed);
    for (const PoseRow &row : Poses) {
        auto *button = page.add(new ZrPushButton(tr(row.text)), ButtonWidth, row.pose);
        button->setCheckable(true);
        button->setChecked(true);
    }
    page.beginRow(Text::GalleryPictureButton);
    for (const PoseRow &row : Poses) {
        auto *button = page.add(new ZrPushButton(tr(row.text)), ButtonWidth, row.pose);
        button->setIcon(image("search.png"));
        button->setIconSize(ZrSize(fontUnits(20), fontUnits(20)));
    }
    page.beginRow(Text::More);
    for (const PoseRow &row : Poses)
        makeFlat(page.add(new ZrPushButton(tr(row.text)), ButtonWidth, row.pose));
    page.beginRow(Text::GalleryPressed);
    for (const PoseRow &row : Poses)
        page.add(new PressedButton(tr(row.text), &page), ButtonWidth, row.pose)->setChecked(true);
    page.beginRow(Text::GalleryTip);
    for (const PoseRow &row : Poses) {
        auto *button = page.add(new TipButton, ButtonWidth, row.pose);
        button->setText(tr(row.text));
        button->setToolTip(tr(Text::GalleryTip));
    }
    page.beginRow(Text::GalleryPictureButton, IconButton::SideUnits);
    for (const PoseRow &row : Poses)
        page.add(new IconButton(Crop, &page), IconButton::SideUnits, row.pose);
    page.beginRow(Text::GalleryPictureButton, ToolButton::SideUnits);
    for (const bool checked : {false, true})
        for (const PoseRow &row : Poses) {
            auto *button = page.add(new ToolButton(Crop, &page), ToolButton::SideUnits, row.pose);
            button->setCheckable(true);
            button->setChecked(checked);
        }
}

void fillChoices(GalleryPage &page)
{
    for (const bool checked : {false, true}) {
        page.beginRow(checked ? Text::GallerySwitchedOn : Text::GallerySwitchedOff, 32);
        for (const PoseRow &row : Poses) {
            auto *box = page.add(new ZrCheckBox(tr(row.text)), ChoiceWidth, row.pose);
            box->setChecked(checked);
        }
        page.beginRow(checked ? Text::GallerySwitchedOn : Text::GallerySwitchedOff, 32);
        for (const PoseRow &row : Poses) {
            auto *radio = page.add(new ZrRadioButton(tr(row.text)), ChoiceWidth, row.pose);
            radio->setAutoExclusive(false);
            radio->setChecked(checked);
        }
    }
    page.beginRow(Text::GallerySwitchedOn, 32);
    for (const bool checked : {false, true})
        for (const PoseRow &row : Poses)
            page.add(new BoolButton(&page), 64, row.pose)->setChecked(checked);
    page.beginRow(Text::DaysOfWeek, 36);
    page.add(new DaysSelector(&page), 560)->setDays(DaysSelector::AllDays & ~(1 << 6));
    page.beginRow(Text::ChooseSource, 32);
    auto *group = new ZrButtonGroup(&page);
    for (int i = 1; i <= 3; ++i) {
        auto *radio = page.add(new ZrRadioButton(tr(Text::GalleryChoice).arg(i)), ChoiceWidth);
        group->addButton(radio);
        radio->setChecked(i == 2);
    }
    page.beginRow(Text::GallerySwitchedOn, 110);
    auto *box = page.add(new ZrGroupBox(tr(Text::GallerySwitchedOn)), 360);
    box->setCheckable(true);
    box->setChecked(true);
    auto *off = page.add(new ZrGroupBox(tr(Text::GallerySwitchedOff)), 360);
    off->setCheckable(true);
    off->setChecked(false);
}

void fillSliders(GalleryPage &page)
{
    page.beginRow(Text::GallerySliders, 32);
    for (const PoseRow &row : Poses) {
        auto *slider = page.add(new ZrSlider(Zr::Horizontal), ChoiceWidth, row.pose);
        slider->setRange(0, 100);
        slider->setValue(40);
    }
    for (const int percent : {0, 37, 100}) {
        page.beginRow(Text::GallerySliders, 24);
        page.add(new ZrProgressBar, 520)->setValue(percent);
    }
    page.beginRow(Text::GallerySliders, 16);
    for (const PoseRow &row : Poses) {
        auto *bar = page.add(new ZrScrollBar(Zr::Horizontal), ChoiceWidth, row.pose);
        bar->setRange(0, 100);
        bar->setPageStep(40);
        bar->setValue(30);
    }
    page.beginRow(Text::GallerySliders, 180);
    for (const PoseRow &row : Poses) {
        auto *bar = page.add(new ZrScrollBar(Zr::Vertical), 14, row.pose);
        bar->setRange(0, 100);
        bar->setPageStep(40);
        bar->setValue(30);
    }
    for (const PoseRow &row : Poses) {
        auto *slider = page.add(new ZrSlider(Zr::Vertical), 32, row.pose);
        slider->setRange(0, 100);
        slider->setValue(60);
    }
}
