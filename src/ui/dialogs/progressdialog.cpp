#include "ui/dialogs/progressdialog.h"

#include "ui/scale.h"
#include "ui/text_ids.h"

#include <algorithm>
#include <zrguard>
#include <zrtranslation>

namespace
{

// Units.
constexpr float Width = 480;
constexpr float Margin = 20;
constexpr float Gap = 12;
constexpr float LabelHeight = 28;
constexpr float BarHeight = 24;
constexpr float ButtonWidth = 130;
constexpr float ButtonHeight = 36;
constexpr int Complete = 100;

} // namespace

ProgressDialog::ProgressDialog(const ZrString &text, Cancelling cancelling)
    : label_(new ZrLabel(text, this)), bar_(new ZrProgressBar(this))
{
    label_->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    label_->setElided(true);
    bar_->setRange(0, Complete);
    if (cancelling == Cancelling::Possible) {
        cancel_ = new ZrPushButton(this);
        connect(cancel_, &cancel_->clicked, this, zrSlot<&ProgressDialog::cancelClicked>);
    }
    retranslate();
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&ProgressDialog::retranslate>);
}

void ProgressDialog::setText(const ZrString &text)
{
    label_->setText(text);
}

void ProgressDialog::setPercent(int percent)
{
    bar_->setValue(percent);
    if (percent >= Complete)
        finish(1);
}

bool ProgressDialog::cancelPressed()
{
    if (!cancel_)
        return false;
    emit(this, &cancelled);
    return true;
}

void ProgressDialog::cancelClicked()
{
    const ZrGuard<ProgressDialog> self(this);
    emit(this, &cancelled);
    if (self)
        finish(0);
}

void ProgressDialog::retranslate()
{
    if (cancel_)
        cancel_->setText(tr(Text::Cancel));
}

void ProgressDialog::layoutForScale()
{
    const int left = unitsX(Margin);
    const int across = width() - 2 * left;
    int top = unitsY(Margin);
    label_->setGeometry(ZrRect(left, top, across, unitsY(LabelHeight)));
    top += unitsY(LabelHeight + Gap);
    bar_->setGeometry(ZrRect(left, top, across, unitsY(BarHeight)));
    if (!cancel_)
        return;
    top += unitsY(BarHeight + Gap);
    const int wide = std::max(unitsX(ButtonWidth), cancel_->sizeHint().width());
    cancel_->setGeometry(ZrRect(width() - left - wide, top, wide, unitsY(ButtonHeight)));
}

ZrSize ProgressDialog::preferredSize() const
{
    const float button = cancel_ ? Gap + ButtonHeight : 0;
    return ZrSize(unitsX(Width), unitsY(2 * Margin + LabelHeight + Gap + BarHeight + button));
}
