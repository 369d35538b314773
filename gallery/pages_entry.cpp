// Text, numbers and dates.
#include "pages.h"

#include "ui/text_ids.h"

#include <zrdateedit>
#include <zrlineedit>
#include <zrspinbox>
#include <zrtextedit>
#include <zrtranslation>

namespace
{

constexpr float FieldWidth = 164;
constexpr Pose Poses[] = {Pose::AsItIs, Pose::Hovered, Pose::Focused, Pose::Disabled};

} // namespace

void fillEntry(GalleryPage &page)
{
    page.beginRow(Text::GalleryEntry, 34);
    for (const Pose pose : Poses)
        page.add(new ZrLineEdit, FieldWidth, pose)->setText(tr(Text::Recorder));
    page.beginRow(Text::GallerySmallHint, 34);
    for (const Pose pose : Poses)
        page.add(new ZrLineEdit, FieldWidth, pose)->setHint(tr(Text::GallerySmallHint));
    page.beginRow(Text::Password, 34);
    for (const Pose pose : Poses) {
        auto *edit = page.add(new ZrLineEdit, FieldWidth, pose);
        edit->setEchoMode(ZrLineEdit::Password);
        edit->setText(ZrString("12345678"));
    }
    page.beginRow(Text::GalleryReadOnly, 34);
    auto *fixed = page.add(new ZrLineEdit, 2 * FieldWidth);
    fixed->setText(tr(Text::GalleryLongText));
    fixed->setReadOnly(true);
    page.beginRow(Text::GalleryEntry, 150);
    page.add(new ZrTextEdit, 540)->setText(tr(Text::GalleryLongText));
}

void fillNumbers(GalleryPage &page)
{
    page.beginRow(Text::GalleryNumbers, 34);
    for (const Pose pose : Poses) {
        auto *box = page.add(new ZrSpinBox, FieldWidth, pose);
        box->setRange(0, 64);
        box->setValue(16);
    }
    page.beginRow(Text::Date, 34);
    for (const Pose pose : Poses)
        page.add(new ZrDateEdit, FieldWidth, pose)->setDate(ZrDate(2026, 3, 14, Zr::Gregorian));
}
