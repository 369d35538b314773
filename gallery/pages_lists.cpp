// Lists and drop boxes.
#include "pages.h"

#include "ui/text_ids.h"

#include <zrcombobox>
#include <zrlistwidget>
#include <zrtranslation>

namespace
{

constexpr float FieldWidth = 164;
constexpr Pose Poses[] = {Pose::AsItIs, Pose::Hovered, Pose::Focused, Pose::Disabled};

} // namespace

void fillLists(GalleryPage &page)
{
    page.beginRow(Text::GalleryLists, 34);
    for (const Pose pose : Poses) {
        auto *box = page.add(new ZrComboBox, FieldWidth, pose);
        for (int i = 1; i <= 64; ++i)
            box->addItem(tr(Text::GalleryEntryNumber).arg(i));
        box->setCurrentIndex(2);
    }
    page.beginRow(Text::GalleryLists, 34);
    auto *edit = page.add(new ZrComboBox, FieldWidth);
    edit->addItem(tr(Text::GalleryEntryNumber).arg(1));
    edit->setEditable(true);
    page.beginRow(Text::GalleryLists, 240);
    for (const Pose pose : {Pose::AsItIs, Pose::Focused, Pose::Disabled}) {
        auto *list = page.add(new ZrListWidget, 220, pose);
        for (int i = 1; i <= 20; ++i)
            list->addItem(tr(Text::GalleryEntryNumber).arg(i));
        list->setCurrentRow(1);
    }
}
