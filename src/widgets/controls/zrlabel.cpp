#include <zrlabel>

#include "widgets/style/boxmodel.h"

#include <algorithm>
#include <zrfontmetrics>

ZrLabel::ZrLabel(ZrWidget *parent) : ZrLabel(ZrString(), parent) {}

ZrLabel::ZrLabel(const ZrString &text, ZrWidget *parent)
    : ZrFrame(parent), text_(text), shownText_(text)
{
    setFocusFrame(false);
}

void ZrLabel::setText(const ZrString &text)
{
    if (text == text_)
        return;
    text_ = text;
    textChanged();
}

void ZrLabel::setAlignment(int alignment)
{
    if (alignment == alignment_)
        return;
    alignment_ = alignment;
    update();
}

void ZrLabel::setWordWrap(bool wrap)
{
    if (wrap == wordWrap_)
        return;
    wordWrap_ = wrap;
    textChanged();
}

void ZrLabel::setElided(bool elided)
{
    if (elided == elided_)
        return;
    elided_ = elided;
    textChanged();
}

ZrSize ZrLabel::sizeHint() const
{
    const BoxModel box(*this, style().label());
    const ZrSize around = box.surplus();
    if (wordWrap_ && width() > 0)
        return ZrSize(width(), heightForWidth(width()));
    const ZrSize text = ZrFontMetrics(text_, box.font()).sizeHint();
    return ZrSize(text.width() + around.width(), text.height() + around.height());
}

ZrSize ZrLabel::minimumSizeHint() const
{
    if (!wordWrap_ && !elided_)
        return sizeHint();
    const BoxModel box(*this, style().label());
    const ZrSize around = box.surplus();
    const int line = ZrFontMetrics::lineHeight(box.font());
    return ZrSize(around.width() + (wordWrap_ ? line : 0), around.height() + line);
}

int ZrLabel::heightForWidth(int width) const
{
    const BoxModel box(*this, style().label());
    const ZrSize around = box.surplus();
    ZrFontMetrics metrics(text_, box.font(), std::max(1, width - around.width()));
    metrics.setWorpWrap(wordWrap_);
    return metrics.sizeHint().height() + around.height();
}

void ZrLabel::styleChanged()
{
    ZrFrame::styleChanged();
    fitText();
}

void ZrLabel::setFont(const ZrFont &font, int index)
{
    ZrFrame::setFont(font, index);
    textChanged();
}

void ZrLabel::paintEvent(ZrPaintEvent *)
{
    style().drawLabel(this);
}

void ZrLabel::resizeEvent(ZrResizeEvent *)
{
    fitText();
}

void ZrLabel::fitText()
{
    const BoxModel box(*this, style().label());
    const int room = box.contents(rect()).width();
    shownText_ =
        elided_ && !wordWrap_ && room > 0 ? ZrFontMetrics::elided(text_, box.font(), room) : text_;
}

void ZrLabel::textChanged()
{
    fitText();
    update();
}
