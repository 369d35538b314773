#include <zrprogressbar>

#include "widgets/style/boxmodel.h"
#include "widgets/style/buttonlayout.h"

#include <algorithm>

ZrProgressBar::ZrProgressBar(ZrWidget *parent) : ZrFrame(parent), format_("%p%")
{
    setFocusFrame(false);
}

void ZrProgressBar::setRange(int minimum, int maximum)
{
    maximum = std::max(minimum, maximum);
    if (minimum == minimum_ && maximum == maximum_)
        return;
    minimum_ = minimum;
    maximum_ = maximum;
    value_ = std::clamp(value_, minimum_, maximum_);
    update();
}

void ZrProgressBar::setValue(int value)
{
    value = std::clamp(value, minimum_, maximum_);
    if (value == value_)
        return;
    const ZrRect bar = BoxModel(*this, style().progressBar()).contents(rect());
    const int before = filledWidth(bar.width());
    const ZrString textBefore = text();
    value_ = value;
    const int after = filledWidth(bar.width());
    if (text() != textBefore)
        update();
    else if (before != after)
        update(ZrRect(bar.left() + std::min(before, after), bar.top(), std::abs(after - before),
                      bar.height()));
}

void ZrProgressBar::setFormat(const ZrString &format)
{
    if (format == format_)
        return;
    format_ = format;
    update();
}

ZrString ZrProgressBar::text() const
{
    return ZrString(format_).replace(ZrString("%p"), ZrString::number(percent()));
}

int ZrProgressBar::percent() const
{
    return filledWidth(100);
}

int ZrProgressBar::filledWidth(int width) const
{
    const double range = double(maximum_) - minimum_;
    return range > 0 ? int(width * ((double(value_) - minimum_) / range)) : 0;
}

ZrSize ZrProgressBar::sizeHint() const
{
    const int height = lineControlHeight(BoxModel(*this, style().progressBar()).font());
    return ZrSize(height * 5, height);
}

void ZrProgressBar::paintEvent(ZrPaintEvent *)
{
    style().drawProgressBar(this);
}
