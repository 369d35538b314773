#include "widgets/style/buttonlayout.h"

#include "widgets/style/boxmodel.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrnamespace>

int lineControlHeight(const ZrFont &font)
{
    return ZrFontMetrics::lineHeight(font) * 3 / 2;
}

int textWidth(const ZrString &text, const ZrFont &font)
{
    return text.isEmpty() ? 0 : ZrFontMetrics(text, font).sizeHint().width();
}

ZrSize pushButtonHint(const ZrAbstractButton &button, const ZrPushButtonOption &group)
{
    const BoxModel box(button, group);
    const ZrSize around = box.surplus();
    const ZrSize icon = button.icon().isNull() ? ZrSize(0, 0) : button.iconSize();
    const int text = textWidth(button.text(), box.font());
    const int *spacing = group.spacing.get(0);
    const int gap = icon.width() > 0 && text > 0 && spacing ? *spacing : 0;
    return ZrSize(icon.width() + gap + text + around.width(),
                  std::max(icon.height(), lineControlHeight(box.font())) + around.height());
}

ZrSize indicatorButtonHint(const ZrAbstractButton &button, const ZrIndicatorOption &group)
{
    const BoxModel box(button, group);
    const ZrSize around = box.surplus();
    const ZrSize *indicator = group.indicatorSize.get(0);
    const ZrSize mark = indicator ? *indicator : ZrSize(0, 0);
    const int text = textWidth(button.text(), box.font());
    const int *spacing = group.spacing.get(0);
    const int gap = text > 0 && spacing ? *spacing : 0;
    const int line = text > 0 ? ZrFontMetrics::lineHeight(box.font()) : 0;
    return ZrSize(mark.width() + gap + text + around.width(),
                  std::max(mark.height(), line) + around.height());
}

IconAndText layIconAndText(const ZrRect &room, int align, const ZrSize &icon, int spacing,
                           int textPixels)
{
    IconAndText parts;
    const bool hasIcon = icon.width() > 0 && icon.height() > 0;
    const int gap = hasIcon && textPixels > 0 ? spacing : 0;
    const int iconWidth = hasIcon ? icon.width() : 0;
    const int text = std::max(0, std::min(textPixels, room.width() - iconWidth - gap));
    const int spare = std::max(0, room.width() - iconWidth - gap - text);
    int left = room.left();
    if (align & Zr::AlignHCenter)
        left += spare / 2;
    else if (align & Zr::AlignRight)
        left += spare;
    if (hasIcon)
        parts.icon = ZrRect(left, room.top() + (room.height() - icon.height()) / 2, icon.width(),
                            icon.height());
    if (text > 0)
        parts.text = ZrRect(left + iconWidth + gap, room.top(), text, room.height());
    return parts;
}
