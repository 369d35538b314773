#include <zrlabel>

#include <zrfontmetrics>

ZrLabel::ZrLabel(ZrWidget *parent) : ZrLabel(ZrString(), parent) {}

ZrLabel::ZrLabel(const ZrString &text, ZrWidget *parent)
    : ZrWidget(parent), text_(text), alignment_(Zr::AlignCenter)
{
}

void ZrLabel::setText(const ZrString &text)
{
    if (text == text_)
        return;
    text_ = text;
    update();
}

void ZrLabel::setAlignment(int alignment)
{
    if (alignment == alignment_)
        return;
    alignment_ = alignment;
    update();
}

ZrSize ZrLabel::sizeHint() const
{
    return ZrFontMetrics(text_, font(0), 0, 0).sizeHint();
}

void ZrLabel::paintEvent(ZrPaintEvent *)
{
    style().drawLabel(this);
}
