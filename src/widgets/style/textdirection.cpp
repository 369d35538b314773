#include "widgets/style/textdirection.h"

namespace
{

bool isRightToLeft(ZrUcs2 unit)
{
    // Hebrew, Arabic and their neighbours, and their presentation forms.
    return (unit >= 0x0590 && unit <= 0x08FF) || (unit >= 0xFB1D && unit <= 0xFDFF) ||
           (unit >= 0xFE70 && unit <= 0xFEFF);
}

bool isLetter(ZrUcs2 unit)
{
    const bool latin = (unit | 0x20) >= 'a' && (unit | 0x20) <= 'z';
    // Behind the signs of Latin-1; general punctuation has no direction either.
    return latin || (unit >= 0xC0 && !(unit >= 0x2000 && unit <= 0x206F));
}

} // namespace

int leadingAlignment(const ZrString &text)
{
    for (const ZrUcs2 unit : text) {
        if (isRightToLeft(unit))
            return Zr::AlignRight;
        if (isLetter(unit))
            return Zr::AlignLeft;
    }
    return Zr::AlignLeft;
}
