// Combo boxes, spin boxes and progress bars.
#include <zrstyle>

#include "widgets/style/boxmodel.h"
#include "widgets/style/drawpicture.h"
#include "widgets/style/stylepainter.h"
#include "widgets/style/textdirection.h"

#include <algorithm>
#include <zrcombobox>
#include <zrfontmetrics>
#include <zrpainter>
#include <zrprogressbar>
#include <zrspinbox>

namespace
{

// Beyond any text of a field.
constexpr int MaximumRight = 16384;

enum class Points { Up, Down };

// Two parts wide and one high, as in the pictures of arrows; rows of one pixel stay crisp.
void drawTriangle(ZrPainter &painter, const ZrRect &box, Points points, const ZrColor &color)
{
    const int rows = std::max(3, box.height() / 7);
    const ZrPoint middle = box.center();
    const int top = middle.y() - rows / 2;
    for (int row = 0; row < rows; ++row) {
        const int half = points == Points::Down ? rows - 1 - row : row;
        painter.fillRect(ZrRect(middle.x() - half, top + row, 2 * half + 1, 1), color);
    }
}

// `side` pixels wide and high, in the middle of the box.
void drawArrow(ZrPainter &painter, const ZrRect &box, int side, Points points,
               const ZrPixmap *picture, const ZrColor *color)
{
    const ZrPoint middle = box.center();
    if (picture)
        drawPicture(painter, ZrRect(middle.x() - side / 2, middle.y() - side / 2, side, side),
                    *picture);
    else if (color)
        drawTriangle(painter, box, points, *color);
}

} // namespace

void ZrStyle::drawComboBox(ZrWidget *widget, const ZrComboBoxOption *option) const
{
    const auto *combo = zrPaintableAs<ZrComboBox>(widget);
    if (!combo)
        return;
    const ZrComboBoxOption &group = option ? *option : comboBox();
    const BoxModel box(*widget, group, combo->isPopupVisible());
    ZrPainter painter(widget);
    box.draw(painter, widget->rect());
    const ZrRect arrow = combo->arrowRect();
    const int border = 1;
    if (const ZrColor *line = box.chain().pick(group.arrowBorder))
        painter.fillRect(
            ZrRect(arrow.left(), arrow.top() + 2 * border, border, arrow.height() - 4 * border),
            *line);
    const ZrColor *triangle = box.chain().pick(group.arrowColor);
    drawArrow(painter, arrow, arrow.height() / 2, Points::Down, box.chain().pick(group.downArrow),
              triangle ? triangle : box.chain().pick(group.foreground));
    const ZrRect room = combo->textRect();
    const ZrString text = combo->currentText();
    if (combo->isServed())
        box.drawRing(painter, widget->rect());
    if (!box.prepareText(painter))
        return;
    if (combo->isEditable()) {
        const ZrPoint origin = combo->textOrigin();
        painter.setClipRegion(ZrRegion(room));
        painter.drawText(ZrRect::fromEdges(origin.x(), room.top(), MaximumRight, room.bottom()),
                         Zr::AlignLeft | Zr::AlignVCenter, text);
        painter.fillRect(combo->cursorRect(), *box.chain().pick(group.foreground));
    } else if (!text.isEmpty()) {
        painter.drawText(room, leadingAlignment(text) | Zr::AlignVCenter,
                         ZrFontMetrics::elided(text, box.font(), room.width()));
    }
}

void ZrStyle::drawSpinBox(ZrWidget *widget, const ZrSpinBoxOption *option) const
{
    const auto *spin = zrPaintableAs<ZrSpinBox>(widget);
    if (!spin)
        return;
    const ZrSpinBoxOption &group = option ? *option : spinBox();
    const BoxModel box(*widget, group);
    ZrPainter painter(widget);
    ZrRect room = box.draw(painter, widget->rect());
    const auto paintArrow = [&](ZrSpinBox::Arrow which, Points points, const auto &pictures) {
        const ZrRect place = spin->arrowRect(which);
        if (spin->pressedArrow() == which) {
            if (const ZrSideColors *color = group.borderColor.get(zrIndex(ZrVisualState::Hover)))
                painter.fillRect(place, color->top);
        }
        const ZrStateChain chain =
            spin->canStep(which) ? box.chain() : ZrStateChain(ZrStateChain::Disabled);
        drawArrow(painter, place, std::min(place.width(), place.height()), points,
                  chain.pick(pictures), chain.pick(group.foreground));
    };
    paintArrow(ZrSpinBox::UpArrow, Points::Up, group.upArrow);
    paintArrow(ZrSpinBox::DownArrow, Points::Down, group.downArrow);
    room.setRight(std::min(room.right(), spin->arrowRect(ZrSpinBox::UpArrow).left() - 1));
    if (box.prepareText(painter))
        painter.drawText(room, box.alignment(), spin->text());
    // A pressed arrow fills its corner; the ring goes over it.
    if (spin->pressedArrow() != ZrSpinBox::NoArrow && widget->hasFocus())
        box.drawRing(painter, widget->rect());
}

void ZrStyle::drawProgressBar(ZrWidget *widget, const ZrProgressBarOption *option) const
{
    const auto *bar = zrPaintableAs<ZrProgressBar>(widget);
    if (!bar)
        return;
    const ZrProgressBarOption &group = option ? *option : progressBar();
    const BoxModel box(*widget, group);
    ZrPainter painter(widget);
    const ZrRect contents = box.draw(painter, widget->rect());
    ZrRect filled = contents;
    filled.setWidth(bar->filledWidth(contents.width()));
    if (const ZrColor *color = box.chain().pick(group.chunk))
        painter.fillRect(filled, *color);
    else if (const ZrPixmap *picture = box.chain().pick(group.chunkImage))
        painter.drawTiledPixmap(filled.left(), filled.top(), filled.width(), filled.height(),
                                *picture);
    box.drawBorder(painter, widget->rect());
    const ZrString text = bar->text();
    if (!text.isEmpty() && box.prepareText(painter))
        painter.drawText(contents, box.alignment(), text);
}
