#include <zrgroupbox>

#include "widgets/style/boxmodel.h"
#include "widgets/style/buttonlayout.h"
#include "widgets/style/drawpicture.h"
#include "widgets/style/textdirection.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrpainter>

ZrGroupBox::ZrGroupBox(const ZrString &title, ZrWidget *parent) : ZrFrame(parent), title_(title)
{
    setAttribute(Hover);
    const int inset = ZrFontMetrics::lineHeight(font(0)) / 2;
    setContentsMargins(inset, titleRect().height() + inset, inset, inset);
}

void ZrGroupBox::setTitle(const ZrString &title)
{
    if (title == title_)
        return;
    title_ = title;
    update();
}

void ZrGroupBox::setCheckable(bool checkable)
{
    if (checkable == checkable_)
        return;
    checkable_ = checkable;
    checked_ = true;
    setFocusPolicy(checkable ? AnyFocus : NoFocus);
    applyChecked();
}

void ZrGroupBox::setChecked(bool checked)
{
    if (!checkable_ || checked == checked_)
        return;
    checked_ = checked;
    applyChecked();
}

void ZrGroupBox::applyChecked()
{
    for (int i = 0; i < children().size(); ++i)
        if (children().at(i)->isWidgetType())
            static_cast<ZrWidget *>(children().at(i))->setEnabled(checked_);
    update();
}

void ZrGroupBox::toggle()
{
    if (!checkable_ || !isEnabled())
        return;
    setChecked(!checked_);
    emit(this, &toggled);
}

// --- geometry ---

ZrRect ZrGroupBox::titleRect() const
{
    return ZrRect(0, 0, width(), ZrFontMetrics::lineHeight(font(0)) * 3 / 2);
}

ZrRect ZrGroupBox::indicatorRect() const
{
    if (!checkable_)
        return ZrRect();
    const ZrSize *size = style().checkBox().indicatorSize.get(0);
    const int line = ZrFontMetrics::lineHeight(font(0));
    const ZrSize side = size ? *size : ZrSize(line, line);
    return ZrRect(line / 2, (titleRect().height() - side.height()) / 2, side.width(),
                  side.height());
}

// --- events ---

void ZrGroupBox::paintEvent(ZrPaintEvent *)
{
    const BoxModel box(*this, style().checkBox());
    const ZrRect head = titleRect();
    const ZrRect indicator = indicatorRect();
    const int gap = ZrFontMetrics::lineHeight(font(0)) / 2;
    const int left = indicator.isEmpty() ? gap : indicator.right() + 1 + gap / 2;
    ZrPainter painter(this);
    if (const ZrSideColors *line = style().frame().borderColor.get(0)) {
        const int middle = head.center().y();
        const int end = std::min(width(), left + textWidth(title_, box.font()) + gap);
        painter.fillRect(ZrRect::fromEdges(end, middle, width() - 1, middle), line->top);
        painter.fillRect(ZrRect::fromEdges(0, height() - 1, width() - 1, height() - 1),
                         line->bottom);
        painter.fillRect(ZrRect::fromEdges(0, middle, 0, height() - 1), line->left);
        painter.fillRect(ZrRect::fromEdges(width() - 1, middle, width() - 1, height() - 1),
                         line->right);
        painter.fillRect(ZrRect::fromEdges(0, middle, std::max(0, gap / 2 - 1), middle), line->top);
    }
    if (const ZrPixmap *picture =
            box.chain().pick(checked_ ? style().checkBox().checked : style().checkBox().unchecked))
        if (!indicator.isEmpty())
            drawPicture(painter, indicator, *picture);
    if (box.prepareText(painter))
        painter.drawText(ZrRect::fromEdges(left, head.top(), width() - 1, head.bottom()),
                         Zr::AlignLeft | Zr::AlignVCenter, title_);
    if (hasFocus())
        box.drawRing(
            painter,
            ZrRect::fromEdges(gap / 4, head.top(),
                              std::min(width() - 1, left + gap / 2 + textWidth(title_, box.font())),
                              head.bottom()));
}

void ZrGroupBox::mousePressEvent(ZrMouseEvent *event)
{
    event->setAccepted(checkable_ && event->button() == Zr::LeftButton &&
                       titleRect().contains(event->position()));
    if (event->isAccepted())
        toggle();
}

void ZrGroupBox::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    mousePressEvent(event);
}

void ZrGroupBox::keyPressEvent(ZrKeyEvent *event)
{
    event->setAccepted(checkable_ && event->key() == Zr::Key_Enter);
    if (event->isAccepted())
        toggle();
}

void ZrGroupBox::focusInEvent(ZrFocusEvent *event)
{
    ZrFrame::focusInEvent(event);
    update(titleRect());
}

void ZrGroupBox::focusOutEvent(ZrFocusEvent *event)
{
    ZrFrame::focusOutEvent(event);
    update(titleRect());
}

void ZrGroupBox::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverEnterEvent(event);
    update(titleRect());
}

void ZrGroupBox::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverLeaveEvent(event);
    update(titleRect());
}
