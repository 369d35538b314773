// A line of text with its hint, selection and cursor.
#include <zrstyle>

#include "widgets/style/boxmodel.h"
#include "widgets/style/stylepainter.h"
#include "widgets/style/textdirection.h"

#include <zrfontmetrics>
#include <zrlineedit>

namespace
{

void drawHint(ZrPainter &painter, const BoxModel &box, const ZrLineEditOption &option,
              const ZrLineEdit &edit)
{
    const ZrColor *color = box.chain().pick(option.hint);
    if (!color)
        return;
    painter.setPen(*color);
    const int side = edit.alignment() & Zr::AlignHorizontalMask;
    painter.drawText(edit.textRect(),
                     (side ? side : leadingAlignment(edit.hint())) | Zr::AlignVCenter, edit.hint());
}

void drawLaidOut(ZrPainter &painter, const ZrLineEdit &edit, const ZrFontMetrics &layout)
{
    const ZrPoint origin = edit.textOrigin();
    for (const ZrPaintInfo &line : layout.paintInfoList())
        painter.drawGlyphs(origin.x() + line.x, origin.y() + line.y, line.glyphs);
}

void drawSelection(ZrPainter &painter, const BoxModel &box, const ZrLineEditOption &option,
                   const ZrLineEdit &edit, const ZrFontMetrics &layout)
{
    const ZrRegion selected = edit.selectionRegion() & ZrRegion(edit.textRect());
    const ZrColor *ground = box.chain().pick(option.selectionBackground);
    const ZrColor *text = box.chain().pick(option.selectionForeground);
    if (selected.isEmpty() || !ground)
        return;
    painter.setClipRegion(selected);
    painter.fillRect(edit.textRect(), *ground);
    if (text)
        painter.setPen(*text);
    drawLaidOut(painter, edit, layout);
}

} // namespace

void ZrStyle::drawLineEdit(ZrWidget *widget, const ZrLineEditOption *group) const
{
    const auto *edit = zrPaintableAs<ZrLineEdit>(widget);
    if (!edit)
        return;
    const ZrLineEditOption &option = group ? *group : lineEdit();
    const BoxModel box(*widget, option);
    ZrPainter painter(widget);
    box.draw(painter, widget->rect());
    if (edit->isServed())
        box.drawRing(painter, widget->rect());
    const bool hasTextColor = box.prepareText(painter);
    const ZrRect cursor = edit->cursorRect();
    painter.setClipRegion(ZrRegion(edit->textRect()));
    if (edit->isEmpty()) {
        drawHint(painter, box, option, *edit);
    } else if (hasTextColor) {
        const ZrFontMetrics layout = edit->layout();
        drawLaidOut(painter, *edit, layout);
        drawSelection(painter, box, option, *edit, layout);
    }
    if (!cursor.isEmpty() && hasTextColor) {
        painter.setClipRegion(ZrRegion(edit->textRect()));
        if (const ZrColor *color = box.chain().pick(option.foreground))
            painter.fillRect(cursor, *color);
    }
}
