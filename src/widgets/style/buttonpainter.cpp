// Push buttons, radio buttons and check boxes.
#include <zrstyle>

#include "widgets/style/boxmodel.h"
#include "widgets/style/buttonlayout.h"
#include "widgets/style/drawpicture.h"
#include "widgets/style/stylepainter.h"

#include <zrfontmetrics>
#include <zrpainter>

namespace
{

void drawOneLine(ZrPainter &painter, const ZrRect &rect, int align, const ZrString &text,
                 const ZrFont &font, int pixels)
{
    painter.drawText(rect, align,
                     pixels > rect.width() ? ZrFontMetrics::elided(text, font, rect.width())
                                           : text);
}

// The picture of the state, checked or not; without any the indicator is drawn.
void drawIndicator(ZrPainter &painter, const ZrRect &rect, const BoxModel &box,
                   const ZrIndicatorOption &group, bool checked)
{
    if (const ZrPixmap *image = box.chain().pick(checked ? group.checked : group.unchecked)) {
        drawPicture(painter, rect, *image);
        return;
    }
    const ZrColor *color = box.chain().pick(group.foreground);
    if (!color)
        return;
    painter.setPen(*color);
    painter.setBrush(ZrBrush());
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    if (checked) {
        const int inset = rect.width() / 4;
        painter.fillRect(rect.adjusted(inset, inset, -inset, -inset), *color);
    }
}

// One routine for both: an indicator, and text to its right.
void drawIndicatorButton(ZrAbstractButton &button, const ZrIndicatorOption &group)
{
    // Checked and not checked are told by the indicator, so the box is that of the plain states.
    const BoxModel box(button, group);
    ZrPainter painter(&button);
    const ZrRect contents = box.draw(painter, button.rect());
    const ZrSize *size = group.indicatorSize.get(0);
    const int *spacing = group.spacing.get(0);
    const int pixels = textWidth(button.text(), box.font());
    const IconAndText parts = layIconAndText(contents, box.alignment(), size ? *size : ZrSize(0, 0),
                                             spacing ? *spacing : 0, pixels);
    if (!parts.icon.isEmpty())
        drawIndicator(painter, parts.icon, box, group, button.isChecked());
    // The ring's room is the text's too: marks of some scripts reach high and low.
    const ZrRect line =
        ZrRect::fromEdges(parts.text.left(), 0, parts.text.right(), button.height() - 1);
    if (!parts.text.isEmpty() && box.prepareText(painter))
        drawOneLine(painter, line, Zr::AlignLeft | Zr::AlignVCenter, button.text(), box.font(),
                    pixels);
}

} // namespace

void ZrStyle::drawPushButton(ZrWidget *widget, const ZrPushButtonOption *option) const
{
    const auto *button = zrPaintableAs<ZrAbstractButton>(widget);
    if (!button)
        return;
    const ZrPushButtonOption &group = option ? *option : pushButton();
    const BoxModel box(*widget, group, button->isOn());
    ZrPainter painter(widget);
    const ZrRect contents = box.draw(painter, widget->rect().adjusted(1, 1, -1, -1));
    const bool hasIcon = !button->icon().isNull();
    const int pixels = textWidth(button->text(), box.font());
    const int *spacing = group.spacing.get(0);
    const IconAndText parts =
        layIconAndText(contents, box.alignment(), hasIcon ? button->iconSize() : ZrSize(0, 0),
                       spacing ? *spacing : 0, pixels);
    if (button->isEnabled())
        drawPicture(painter, parts.icon, button->icon());
    else
        drawFadedPicture(painter, parts.icon, button->icon());
    if (!parts.text.isEmpty() && box.prepareText(painter))
        drawOneLine(painter, parts.text, Zr::AlignLeft | Zr::AlignVCenter, button->text(),
                    box.font(), pixels);
}

void ZrStyle::drawRadioButton(ZrWidget *widget, const ZrIndicatorOption *group) const
{
    if (auto *button = zrPaintableAs<ZrAbstractButton>(widget))
        drawIndicatorButton(*button, group ? *group : radioButton());
}

void ZrStyle::drawCheckBox(ZrWidget *widget, const ZrIndicatorOption *group) const
{
    if (auto *button = zrPaintableAs<ZrAbstractButton>(widget))
        drawIndicatorButton(*button, group ? *group : checkBox());
}
