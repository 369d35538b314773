#include "widgets/style/boxmodel.h"

#include "widgets/style/drawpicture.h"

#include <zrframe>
#include <zrnamespace>

ZrStateChain zrStateOf(const ZrWidget &widget, bool on)
{
    int flags = widget.isEnabled() ? 0 : ZrStateChain::Disabled;
    flags |= widget.isHovered() ? ZrStateChain::Hovered : 0;
    flags |= widget.hasFocus() ? ZrStateChain::Focused : 0;
    flags |= on ? ZrStateChain::On : 0;
    return ZrStateChain(flags);
}

BoxModel::BoxModel(const ZrWidget &widget, const ZrFrameOption &group, bool on)
    : widget_(widget), group_(group), chain_(zrStateOf(widget, on))
{
}

ZrRect BoxModel::draw(ZrPainter &painter, const ZrRect &rect) const
{
    drawBackground(painter, rect);
    const ZrRect box = margin().inside(rect);
    if (const ZrPixmap *image = chain_.pick(group_.image))
        drawPicture(painter, box, *image);
    drawBorder(painter, box);
    drawFocusRing(painter, box);
    return inner().inside(box);
}

ZrRect BoxModel::contents(const ZrRect &rect) const
{
    return inner().inside(margin().inside(rect));
}

ZrSize BoxModel::surplus() const
{
    const ZrSides outer = margin();
    const ZrSides within = inner();
    return ZrSize(outer.across() + within.across(), outer.along() + within.along());
}

void BoxModel::drawBackground(ZrPainter &painter, const ZrRect &rect) const
{
    if (const ZrPixmap *tile = chain_.pick(group_.backgroundImage)) {
        painter.drawTiledPixmap(rect.left(), rect.top(), rect.width(), rect.height(), *tile);
        return;
    }
    const ZrColor *color = chain_.pick(group_.background);
    if (!color)
        return;
    const ZrCorners *corners = chain_.pick(group_.borderRadius);
    if (corners)
        painter.drawRoundedRect(rect, corners->topLeft.x, corners->topLeft.y, *color);
    else
        painter.fillRect(rect, *color);
}

// Filled strips, so that a border of any width stays inside the box; the corners belong to the
// side drawn last.
void BoxModel::drawBorder(ZrPainter &painter, const ZrRect &rect) const
{
    const ZrSides *width = chain_.pick(group_.borderWidth);
    const ZrSideColors *color = chain_.pick(group_.borderColor);
    if (!width || !color || rect.isEmpty())
        return;
    const int w = rect.width();
    const int h = rect.height();
    if (width->left > 0)
        painter.fillRect(ZrRect(rect.left(), rect.top(), width->left, h), color->left);
    if (width->top > 0)
        painter.fillRect(ZrRect(rect.left(), rect.top(), w, width->top), color->top);
    if (width->right > 0)
        painter.fillRect(ZrRect(rect.right() - width->right + 1, rect.top(), width->right, h),
                         color->right);
    if (width->bottom > 0)
        painter.fillRect(ZrRect(rect.left(), rect.bottom() - width->bottom + 1, w, width->bottom),
                         color->bottom);
}

void BoxModel::drawFocusRing(ZrPainter &painter, const ZrRect &rect) const
{
    const auto *frame = dynamic_cast<const ZrFrame *>(&widget_);
    if (widget_.hasFocus() && (!frame || frame->focusFrame()))
        drawRing(painter, rect);
}

void BoxModel::drawRing(ZrPainter &painter, const ZrRect &rect) const
{
    const int *thickness = group_.focusRing.get(0);
    const ZrSideColors *color = group_.borderColor.get(zrIndex(ZrVisualState::Focus));
    if (!thickness || !color)
        return;
    const int w = rect.width();
    const int inner = rect.height() - 2 * *thickness;
    painter.fillRect(ZrRect(rect.left(), rect.top(), w, *thickness), color->top);
    painter.fillRect(ZrRect(rect.left(), rect.bottom() - *thickness + 1, w, *thickness),
                     color->bottom);
    painter.fillRect(ZrRect(rect.left(), rect.top() + *thickness, *thickness, inner), color->left);
    painter.fillRect(
        ZrRect(rect.right() - *thickness + 1, rect.top() + *thickness, *thickness, inner),
        color->right);
}

ZrSides BoxModel::margin() const
{
    const ZrSides *margin = chain_.pick(group_.margin);
    return margin ? *margin : ZrSides();
}

ZrSides BoxModel::inner() const
{
    ZrSides sum;
    for (const ZrSides *part : {chain_.pick(group_.borderWidth), chain_.pick(group_.padding)})
        if (part)
            sum = ZrSides(sum.top + part->top, sum.right + part->right, sum.bottom + part->bottom,
                          sum.left + part->left);
    return sum;
}

bool BoxModel::prepareText(ZrPainter &painter) const
{
    painter.setFont(font());
    const ZrColor *color = chain_.pick(group_.foreground);
    if (color)
        painter.setPen(*color);
    return color != nullptr;
}

ZrFont BoxModel::font() const
{
    const ZrFont *font = chain_.pick(group_.font);
    return font ? *font : widget_.font(0);
}

int BoxModel::alignment() const
{
    const int *align = chain_.pick(group_.align);
    return align ? *align : int(Zr::AlignCenter);
}
