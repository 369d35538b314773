#include "ui/controls/numedits.h"

#include <algorithm>

namespace
{

constexpr bool Padded = true;
constexpr bool Plain = false;
constexpr int MostDigits = 10;

int largestOf(int digits)
{
    int power = 1;
    for (int i = 0; i < digits; ++i)
        power *= 10;
    return power - 1;
}

} // namespace

NumFixedEdit::NumFixedEdit(int digits, ZrWidget *parent)
    : NumEditBase({{0, largestOf(std::clamp(digits, 1, 9)), std::clamp(digits, 1, 9), Padded}}, ' ',
                  parent)
{
}

ZrNumEdit::ZrNumEdit(ZrWidget *parent) : NumEditBase({{0, 99, MostDigits, Plain}}, ' ', parent) {}

void ZrNumEdit::setRange(int minimum, int maximum)
{
    setNumberRange(0, minimum, maximum);
}

ZrIpEdit::ZrIpEdit(ZrWidget *parent)
    : NumEditBase({{0, 255, 3, Plain}, {0, 255, 3, Plain}, {0, 255, 3, Plain}, {0, 255, 3, Plain}},
                  '.', parent)
{
}

bool ZrIpEdit::isNull() const
{
    for (int i = 0; i < count(); ++i)
        if (numberValue(i) != 0)
            return false;
    return true;
}

ZrTimeEdit::ZrTimeEdit(Form form, ZrWidget *parent)
    : NumEditBase(
          form == WithSeconds
              ? std::vector<Number>{{0, 23, 2, Padded}, {0, 59, 2, Padded}, {0, 59, 2, Padded}}
              : std::vector<Number>{{0, 23, 2, Padded}, {0, 59, 2, Padded}},
          ':', parent)
{
}

ZrTime ZrTimeEdit::time() const
{
    return ZrTime(numberValue(0), numberValue(1), count() > 2 ? numberValue(2) : 0);
}

void ZrTimeEdit::setTime(const ZrTime &time)
{
    if (time.isValid())
        setNumberValues({time.hour(), time.minute(), time.second()});
}
