#include "samples.h"

#include "ui/dialogs/msgbox.h"
#include "ui/dialogs/progressdialog.h"
#include "ui/text_ids.h"

#include <zrtranslation>

namespace
{

DialogFrame *message(MsgBox::Sign sign, int buttons, int timeLimitMs)
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

DialogFrame *question()
{
    return message(MsgBox::Sign::Question, MsgBox::Yes | MsgBox::No, 0);
}

DialogFrame *notice()
{
    return message(MsgBox::Sign::Information, MsgBox::Ok, 0);
}

DialogFrame *countdown()
{
    return message(MsgBox::Sign::Warning, MsgBox::Continue | MsgBox::Cancel, 30000);
}

DialogFrame *progress()
{
    auto *page = new ProgressDialog(tr(Text::CopyingFiles));
    page->setPercent(42);
    return new DialogFrame(page, tr(Text::CopyingFiles), DialogFrame::TitleClose);
}

} // namespace

const Sample Samples[] = {
    {"question", Text::GalleryShowQuestion, question},
    {"notice", Text::GalleryShowNotice, notice},
    {"countdown", Text::GalleryShowCountdown, countdown},
    {"progress", Text::GalleryShowProgress, progress},
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
