#include "samples.h"

#include "ui/controls/formattypeselector.h"
#include "ui/controls/importsourceselector.h"
#include "ui/controls/multiselectmenu.h"
#include "ui/dialogs/dialogframe.h"
#include "ui/dialogs/msgbox.h"
#include "ui/dialogs/progressdialog.h"
#include "ui/text_ids.h"

#include <zrtranslation>

namespace
{

ZrDialog *message(MsgBox::Sign sign, int buttons, int timeLimitMs)
{
    MsgBox::Request request;
    request.text = tr(Text::GalleryLongText);
    request.sign = sign;
    request.buttons = buttons;
    request.timeLimitMs = timeLimitMs;
    request.showsCountdown = timeLimitMs > 0;
    return new DialogFrame(new MsgBox(request),
                           tr(sign == MsgBox::Sign::Question ? Text::Confirm : Text::Notice), 0);
}

ZrDialog *question()
{
    return message(MsgBox::Sign::Question, MsgBox::Yes | MsgBox::No, 0);
}

ZrDialog *notice()
{
    return message(MsgBox::Sign::Information, MsgBox::Ok, 0);
}

ZrDialog *countdown()
{
    return message(MsgBox::Sign::Warning, MsgBox::Continue | MsgBox::Cancel, 30000);
}

ZrDialog *progress()
{
    auto *page = new ProgressDialog(tr(Text::CopyingFiles));
    page->setPercent(42);
    return new DialogFrame(page, tr(Text::CopyingFiles), DialogFrame::TitleClose);
}

ZrDialog *format()
{
    return new DialogFrame(new FormatTypeSelector, tr(Text::ChooseFormat));
}

ZrDialog *import()
{
    return new DialogFrame(new ImportSourceSelector, tr(Text::ChooseSource));
}

ZrDialog *severalChoices()
{
    ZrStringList texts;
    ZrBitArray checked(16);
    for (int i = 1; i <= 16; ++i) {
        texts.append(tr(Text::GalleryEntryNumber).arg(i));
        checked.setBit(i - 1, i < 4);
    }
    auto *menu = new MultiSelectMenu(texts, checked);
    menu->centreOnScreen(menu->sizeHint());
    return menu;
}

} // namespace

const Sample Samples[] = {
    {"question", Text::GalleryShowQuestion, question},
    {"notice", Text::GalleryShowNotice, notice},
    {"countdown", Text::GalleryShowCountdown, countdown},
    {"progress", Text::GalleryShowProgress, progress},
    {"format", Text::ChooseFormat, format},
    {"import", Text::ChooseSource, import},
    {"choices", Text::Filter, severalChoices},
};
const int SampleCount = int(sizeof Samples / sizeof *Samples);

SampleButton::SampleButton(const Sample &sample) : sample_(sample)
{
    connect(this, &clicked, this, zrSlot<&SampleButton::open>);
}

void SampleButton::open()
{
    sample_.make()->exec(); // deletes itself
}

SlowButton::SlowButton()
{
    timer_.setSingleShot(true);
    connect(&timer_, &timer_.timeout, this, zrSlot<&SlowButton::end>);
    connect(this, &clicked, this, zrSlot<&SlowButton::begin>);
}

void SlowButton::begin()
{
    blocker_ = std::make_unique<WindowBlocker>(tr(Text::SearchingRecordings));
    timer_.start(SlowMs);
}
