// Text, numbers, addresses and dates, and the keyboards that type them.
#include "pages.h"

#include "ui/controls/calendar.h"
#include "ui/controls/channelnameedit.h"
#include "ui/controls/dateedit.h"
#include "ui/controls/folderedit.h"
#include "ui/controls/linetextdisplayer.h"
#include "ui/controls/numedits.h"
#include "ui/controls/passwordedit.h"
#include "ui/controls/textedit.h"
#include "ui/controls/zripv6edit.h"
#include "ui/text_ids.h"

#include <zrspinbox>
#include <zrtranslation>

namespace
{

constexpr float FieldWidth = 164;
constexpr float FieldHeight = 36;
constexpr Pose Poses[] = {Pose::AsItIs, Pose::Hovered, Pose::Focused, Pose::Disabled};

const ZrDate &someDay()
{
    static const ZrDate day(2026, 3, 14, Zr::Gregorian);
    return day;
}

} // namespace

void fillEntry(GalleryPage &page)
{
    page.beginRow(Text::GalleryEntry, FieldHeight);
    for (const Pose pose : Poses)
        page.add(new LineEdit, FieldWidth, pose)->setText(tr(Text::Recorder));
    page.beginRow(Text::GallerySmallHint, FieldHeight);
    for (const Pose pose : Poses)
        page.add(new LineEdit, FieldWidth, pose)->setHint(tr(Text::GallerySmallHint));
    page.beginRow(Text::Password, FieldHeight);
    for (const Pose pose : Poses)
        page.add(new PasswordEdit, FieldWidth, pose)->setText(ZrString("12345678"));
    page.beginRow(Text::Error, FieldHeight);
    for (const Pose pose : Poses) {
        auto *edit = page.add(new LineEdit, FieldWidth, pose);
        edit->setText(tr(Text::Recorder));
        edit->setError(true);
    }
    page.beginRow(Text::Name, FieldHeight);
    page.add(new ChannelNameEdit, 2 * FieldWidth)->setText(tr(Text::Recorder));
    page.beginRow(Text::Folder, FieldHeight);
    page.add(new FolderEdit, 2 * FieldWidth)->setText(ZrString("/usb/2026-03-14"));
    page.beginRow(Text::GalleryReadOnly, FieldHeight);
    page.add(new LineTextDisplayer, 2 * FieldWidth)->setText(tr(Text::GalleryLongText));
    page.beginRow(Text::GalleryEntry, 150);
    page.add(new TextEdit, 540)->setText(tr(Text::GalleryLongText));
}

void fillKeyboards(GalleryPage &page)
{
    page.beginRow(Text::Digits, FieldHeight);
    auto *number = page.add(new ZrNumEdit, FieldWidth, "digits");
    number->setRange(-90, 65535);
    number->setValue(554);
    page.beginRow(Text::Address, FieldHeight);
    page.add(new ZrIpv6Edit, 2 * FieldWidth, "address")->setText(ZrString("fe80::1"));
    page.beginRow(Text::ScreenKeyboard, FieldHeight);
    page.add(new LineEdit, 2 * FieldWidth, "text");
    page.beginRow(Text::Password, FieldHeight);
    page.add(new PasswordEdit, 2 * FieldWidth);
}

void fillNumbers(GalleryPage &page)
{
    page.beginRow(Text::Number, FieldHeight);
    for (const Pose pose : Poses) {
        auto *box = page.add(new ZrSpinBox, FieldWidth, pose);
        box->setRange(0, 64);
        box->setValue(16);
    }
    page.beginRow(Text::Number, FieldHeight);
    for (const Pose pose : Poses) {
        auto *number = page.add(new ZrNumEdit, FieldWidth, pose);
        number->setRange(0, 65535);
        number->setValue(554);
    }
    page.beginRow(Text::Number, FieldHeight);
    page.add(new NumFixedEdit(6), FieldWidth)->setValue(1234);
    page.beginRow(Text::Address, FieldHeight);
    for (const Pose pose : Poses)
        page.add(new ZrIpEdit, FieldWidth, pose)->setAddress(ZrString("192.168.1.108"));
    page.beginRow(Text::Address, FieldHeight);
    page.add(new ZrIpv6Edit, 2 * FieldWidth)->setText(ZrString("fe80::1"));
    page.beginRow(Text::SelectTime, FieldHeight);
    page.add(new ZrTimeEdit, FieldWidth)->setTime(ZrTime(8, 30));
    page.add(new ZrTimeEdit(ZrTimeEdit::WithSeconds), FieldWidth)->setTime(ZrTime(23, 59, 59));
    page.beginRow(Text::Date, FieldHeight);
    page.add(new DateEdit, FieldWidth, "date")->setDate(someDay());
    for (const Pose pose : {Pose::Hovered, Pose::Focused, Pose::Disabled})
        page.add(new DateEdit, FieldWidth, pose)->setDate(someDay());
    page.beginRow(Text::Date, 262);
    auto *calendar = page.add(new Calendar, 280);
    calendar->setDate(someDay());
    calendar->setDateRange(ZrDate(), someDay().addDays(10));
    calendar->setMarks(0x00003ff7, 0x00000420);
}
