#include "ui/dialogs/msgbox.h"

#include "ui/controls/primarybutton.h"
#include "ui/dialogs/dialogframe.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"
#include "widgets/style/drawpicture.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrpainter>
#include <zrpushbutton>
#include <zrtranslation>

namespace
{

// Units.
constexpr float ButtonWidth = 130;
constexpr float ButtonHeight = 36;
constexpr float SpacingX = 20;
constexpr float SpacingY = 5;
constexpr float MarginX = 15;
constexpr float MarginBottom = 15;
constexpr float TextTop = 24;
constexpr float TextBottom = 24;
constexpr float SignSide = 32;
constexpr float NarrowestText = 300;
constexpr float WidestText = 480;

struct SignRow {
    const char *image;
    int title;
};

// By MsgBox::Sign.
constexpr SignRow Signs[] = {
    {"images/message-information.png", Text::Notice},
    {"images/message-question.png", Text::Confirm},
    {"images/message-warning.png", Text::Notice},
    {"images/message-error.png", Text::Notice},
    {"images/message-good.png", Text::Notice},
};

struct ButtonRow {
    MsgBox::Button button;
    int text;
    int result;
};

// From the leading to the trailing end, where the answer that goes on stands.
constexpr ButtonRow Buttons[] = {
    {MsgBox::Cancel, Text::Cancel, 0}, {MsgBox::No, Text::No, 0},
    {MsgBox::Close, Text::Close, 0},   {MsgBox::Continue, Text::Continue, 1},
    {MsgBox::Yes, Text::Yes, 1},       {MsgBox::Ok, Text::Ok, 1},
};

const ButtonRow &rowOf(MsgBox::Button button)
{
    return *std::find_if(std::begin(Buttons), std::end(Buttons),
                         [button](const ButtonRow &row) { return row.button == button; });
}

} // namespace

MsgBox::MsgBox(const Request &request)
    : sign_(picture(Signs[int(request.sign)].image)), label_(new ZrLabel(request.text, this))
{
    label_->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
    label_->setWordWrap(true);
    if (request.timeLimitMs > 0) {
        secondsLeft_ = (request.timeLimitMs + 999) / 1000;
        connect(&second_, &second_.timeout, this, zrSlot<&MsgBox::secondPassed>);
        second_.setInterval(std::uint32_t(request.timeLimitMs) / std::uint32_t(secondsLeft_));
    }
    if (request.showsCountdown) {
        countdown_ = new ZrLabel(this);
        countdown_->setAlignment(Zr::AlignLeft | Zr::AlignVCenter);
        countdown_->style().labelOption().foreground.set(
            zrIndex(ZrVisualState::Normal),
            commonStyleFile().colorValue(ZrString("Common/Foreground/Dim")));
    }
    makeButtons(request.buttons);
    retranslate();
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&MsgBox::retranslate>);
}

int MsgBox::run(const Request &request)
{
    const ZrString title =
        request.title.isEmpty() ? tr(Signs[int(request.sign)].title) : request.title;
    return DialogFrame::run(new MsgBox(request), title, 0);
}

void MsgBox::notice(const ZrString &text, int timeLimitMs)
{
    Request request;
    request.text = text;
    request.timeLimitMs = timeLimitMs;
    run(request);
}

bool MsgBox::ask(const ZrString &text, int timeLimitMs)
{
    Request request;
    request.text = text;
    request.sign = Sign::Question;
    request.buttons = Yes | No;
    request.timeLimitMs = timeLimitMs;
    return run(request) == 1;
}

void MsgBox::makeButtons(int buttons)
{
    for (const ButtonRow &row : Buttons) {
        if (!(buttons & row.button))
            continue;
        auto *button = new ZrPushButton(this);
        if (row.result == 1)
            makePrimary(button);
        connect(button, &button->clicked, this, zrSlot<&MsgBox::buttonClicked>);
        choices_.append({row.button, button});
    }
}

void MsgBox::retranslate()
{
    for (const Choice &choice : choices_)
        choice.widget->setText(tr(rowOf(choice.button).text));
    if (countdown_)
        countdown_->setText(tr(Text::ClosesIn).arg(secondsLeft_));
    layoutForScale();
}

void MsgBox::setText(const ZrString &text)
{
    label_->setText(text);
}

ZrPushButton *MsgBox::button(Button button) const
{
    for (const Choice &choice : choices_)
        if (choice.button == button)
            return choice.widget;
    return nullptr;
}

void MsgBox::buttonClicked(ZrObject *sender)
{
    for (const Choice &choice : choices_)
        if (choice.widget == sender)
            return finish(rowOf(choice.button).result);
}

void MsgBox::showEvent(ZrShowEvent *)
{
    if (secondsLeft_ > 0)
        second_.start();
}

void MsgBox::secondPassed()
{
    --secondsLeft_;
    if (countdown_)
        countdown_->setText(tr(Text::ClosesIn).arg(secondsLeft_));
    if (secondsLeft_ > 0)
        return;
    second_.stop();
    finish(0);
}

int MsgBox::textWidth() const
{
    const int natural = ZrFontMetrics(label_->text(), label_->font(0)).sizeHint().width();
    return std::clamp(natural, unitsX(NarrowestText), unitsX(WidestText));
}

ZrSize MsgBox::buttonSize(const ZrPushButton &button) const
{
    return ZrSize(std::max(unitsX(ButtonWidth), button.sizeHint().width()), unitsY(ButtonHeight));
}

ZrSize MsgBox::preferredSize() const
{
    const int beside = unitsX(2 * MarginX + SpacingX) + fontUnits(SignSide);
    int buttons = unitsX(2 * MarginX) - unitsX(SpacingX);
    for (const Choice &choice : choices_)
        buttons += buttonSize(*choice.widget).width() + unitsX(SpacingX);
    int height = unitsY(TextTop + TextBottom) +
                 std::max(fontUnits(SignSide), label_->heightForWidth(textWidth()));
    if (countdown_)
        height += countdown_->sizeHint().height() + unitsY(SpacingY);
    if (!choices_.isEmpty())
        height += unitsY(ButtonHeight + MarginBottom);
    return ZrSize(std::max(textWidth() + beside, buttons), height);
}

void MsgBox::layoutForScale()
{
    const int left = unitsX(MarginX + SpacingX) + fontUnits(SignSide);
    int bottom = height() - unitsY(MarginBottom);
    int right = width() - unitsX(MarginX);
    for (int i = choices_.size() - 1; i >= 0; --i) {
        const ZrSize size = buttonSize(*choices_.at(i).widget);
        choices_.at(i).widget->setGeometry(
            ZrRect(right - size.width(), bottom - size.height(), size.width(), size.height()));
        right -= size.width() + unitsX(SpacingX);
    }
    if (!choices_.isEmpty())
        bottom -= unitsY(ButtonHeight);
    if (countdown_) {
        const int line = countdown_->sizeHint().height();
        bottom -= line + unitsY(SpacingY);
        countdown_->setGeometry(ZrRect(left, bottom, width() - left - unitsX(MarginX), line));
    }
    label_->setGeometry(ZrRect::fromEdges(left, 0, width() - 1 - unitsX(MarginX), bottom - 1));
}

void MsgBox::paintEvent(ZrPaintEvent *)
{
    const int side = fontUnits(SignSide);
    const ZrRect text = label_->geometry();
    ZrPainter painter(this);
    drawPicture(painter,
                ZrRect(unitsX(MarginX), text.top() + (text.height() - side) / 2, side, side),
                sign_);
}
