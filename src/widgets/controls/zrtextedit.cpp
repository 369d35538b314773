#include <zrtextedit>

#include "widgets/controls/editabletext.h"
#include "widgets/style/boxmodel.h"
#include "widgets/style/textdirection.h"

#include <algorithm>
#include <zrpainter>

namespace
{

constexpr int BlinkMs = 500;
constexpr int LinesPerNotch = 3;
constexpr int WheelNotch = 120;
constexpr int ReachShare = 2; // of a line: how far marks may stand out of it, above and below
constexpr int HintLines = 4;
constexpr int HintCharacters = 30;

} // namespace

ZrTextEdit::ZrTextEdit(ZrWidget *parent)
    : ZrWidget(parent), editable_(std::make_unique<EditableText>(EditableText::Lines::Many))
{
    setFocusPolicy(AnyFocus);
    setAttribute(Hover);
    connect(&blinkTimer_, &blinkTimer_.timeout, this, zrSlot<&ZrTextEdit::blink>);
}

ZrTextEdit::~ZrTextEdit() = default;

ZrString ZrTextEdit::text() const
{
    return editable_->text();
}

void ZrTextEdit::setText(const ZrString &text)
{
    if (!editable_->setText(text))
        return;
    if (readOnly_)
        scroll_ = 0; // a text to read is read from its beginning
    textReplaced();
    emit(this, &textChanged);
}

void ZrTextEdit::append(const ZrString &line)
{
    const bool wasAtEnd = scroll_ == mostScroll();
    const ZrString before = text();
    editable_->setText(before.isEmpty() ? line : before + ZrString("\n") + line);
    textReplaced();
    if (wasAtEnd)
        scroll_ = mostScroll();
    emit(this, &textChanged);
}

void ZrTextEdit::textReplaced()
{
    layout_.reset();
    wishedX_ = -1;
    if (readOnly_)
        scroll_ = std::min(scroll_, mostScroll());
    else
        followCursor();
    restartCursor();
    update();
}

void ZrTextEdit::setReadOnly(bool readOnly)
{
    if (readOnly == readOnly_)
        return;
    readOnly_ = readOnly;
    restartCursor();
    update();
}

void ZrTextEdit::setMaxLength(int characters)
{
    editable_->maxLength = characters;
    setText(text());
}

int ZrTextEdit::cursorPosition() const
{
    return editable_->cursor();
}

void ZrTextEdit::setCursorPosition(int position)
{
    wishedX_ = -1;
    moveTo(position);
}

void ZrTextEdit::moveTo(int position)
{
    const ZrRect before = cursorPlace();
    if (!editable_->moveTo(position, layout()))
        return;
    update(before);
    followCursor();
    restartCursor();
    update(cursorPlace());
}

void ZrTextEdit::insert(const ZrString &text)
{
    edit([&] { return editable_->insert(text); });
}

void ZrTextEdit::backspace()
{
    edit([&] { return editable_->backspace(layout()); });
}

template <typename Change>
void ZrTextEdit::edit(Change change)
{
    const int height = contentHeight();
    const int side = leadingAlignment(editable_->shown());
    update(cursorPlace());
    if (!change())
        return;
    layout_.reset();
    wishedX_ = -1;
    const int scroll = scroll_;
    followCursor();
    restartCursor();
    if (side != leadingAlignment(editable_->shown()))
        update();
    else if (scroll == scroll_)
        repaintFrom(editable_->changedFrom(), height);
    emit(this, &textChanged);
}

// A word may move up to the line before the change; what follows moves only when the number of
// lines is another one, and else the change ends with its paragraph.
void ZrTextEdit::repaintFrom(int changedFrom, int heightBefore)
{
    const ZrRect area = textRect();
    const int origin = area.top() - scroll_;
    const int reach = lineHeight() / ReachShare;
    const int top = origin + layout().cursorPoint(changedFrom).y() - lineHeight() - reach;
    int bottom = area.bottom();
    if (contentHeight() == heightBefore) {
        const int lineEnd = editable_->shown().indexOf('\n', editable_->cursor());
        const int last = lineEnd < 0 ? editable_->size() : lineEnd;
        bottom = origin + layout().cursorPoint(last).y() + lineHeight() + reach;
    }
    update(ZrRect::fromEdges(0, top, width() - 1, bottom) & rect());
}

// --- scrolling ---

int ZrTextEdit::contentHeight() const
{
    return layout().sizeHint().height();
}

int ZrTextEdit::mostScroll() const
{
    return std::max(0, contentHeight() - textRect().height());
}

void ZrTextEdit::setScrollOffset(int pixels)
{
    pixels = std::clamp(pixels, 0, mostScroll());
    if (pixels == scroll_)
        return;
    scroll_ = pixels;
    update();
}

bool ZrTextEdit::scrollBy(int pixels)
{
    const int before = scroll_;
    setScrollOffset(scroll_ + pixels);
    return scroll_ != before;
}

void ZrTextEdit::followCursor()
{
    if (rect().isEmpty())
        return; // nothing to follow it in, and no width to wrap at
    const int top = layout().cursorPoint(editable_->cursor()).y();
    const int lowest = std::max(0, top + lineHeight() - textRect().height());
    setScrollOffset(std::clamp(scroll_, std::min(lowest, top), top));
}

// --- geometry ---

ZrFont ZrTextEdit::textFont() const
{
    return BoxModel(*this, style().lineEdit()).font();
}

int ZrTextEdit::lineHeight() const
{
    return ZrFontMetrics::lineHeight(textFont());
}

const ZrFontMetrics &ZrTextEdit::layout() const
{
    if (!layout_) {
        const int room = std::max(1, textRect().width());
        layout_ = std::make_unique<ZrFontMetrics>(editable_->shown(), textFont(), room);
        layout_->setWorpWrap(true);
        layout_->setAlignment(leadingAlignment(editable_->shown()));
    }
    return *layout_;
}

ZrRect ZrTextEdit::textRect() const
{
    const ZrRect box = BoxModel(*this, style().lineEdit()).contents(rect());
    // A field's box has no room above and below its one line.
    const int space = lineHeight() / 4;
    return box.adjusted(0, space, 0, -space);
}

ZrRect ZrTextEdit::cursorPlace() const
{
    const int *width = style().lineEdit().cursorWidth.get(0);
    const ZrPoint at = layout().cursorPoint(editable_->cursor());
    const ZrRect area = textRect();
    return ZrRect(area.left() + at.x(), area.top() + at.y() - scroll_, width ? *width : 1,
                  lineHeight());
}

ZrRect ZrTextEdit::cursorRect() const
{
    return cursorOn_ ? cursorPlace() : ZrRect();
}

ZrSize ZrTextEdit::sizeHint() const
{
    const BoxModel box(*this, style().lineEdit());
    return ZrSize(lineHeight() * HintCharacters / 2 + box.surplus().width(),
                  lineHeight() * HintLines + lineHeight() / 2 + box.surplus().height());
}

void ZrTextEdit::styleChanged()
{
    ZrWidget::styleChanged();
    layout_.reset();
}

void ZrTextEdit::setFont(const ZrFont &font, int index)
{
    ZrWidget::setFont(font, index);
    textReplaced();
}

// --- cursor ---

void ZrTextEdit::restartCursor()
{
    cursorOn_ = (hasFocus() || isServed()) && !readOnly_;
    if (cursorOn_)
        blinkTimer_.start(BlinkMs);
    else
        blinkTimer_.stop();
}

void ZrTextEdit::servedChanged()
{
    restartCursor();
    update();
}

void ZrTextEdit::blink()
{
    cursorOn_ = !cursorOn_;
    update(cursorPlace());
}

bool ZrTextEdit::moveByLine(int lines)
{
    const ZrPoint at = layout().cursorPoint(editable_->cursor());
    const int y = at.y() + lines * lineHeight();
    if (y < 0 || y >= contentHeight())
        return false;
    const int x = wishedX_ < 0 ? at.x() : wishedX_;
    moveTo(layout().positionAt(ZrPoint(x, y + lineHeight() / 2)));
    wishedX_ = x;
    return true;
}

// --- painting ---

void ZrTextEdit::paintEvent(ZrPaintEvent *)
{
    const ZrLineEditOption &option = style().lineEdit();
    const BoxModel box(*this, option);
    ZrPainter painter(this);
    box.draw(painter, rect());
    if (isServed())
        box.drawRing(painter, rect());
    if (contentHeight() > textRect().height())
        drawScrollMark(painter);
    if (!box.prepareText(painter))
        return;
    drawLines(painter);
    painter.setClipRegion(ZrRegion(textRect()));
    if (cursorOn_)
        painter.fillRect(cursorPlace(), *box.chain().pick(option.foreground));
}

void ZrTextEdit::drawLines(ZrPainter &painter) const
{
    const ZrRect area = textRect();
    const int line = lineHeight();
    const int reach = line / ReachShare;
    const int ascent = ZrFontMetrics::ascent(textFont());
    for (const ZrPaintInfo &info : layout().paintInfoList()) {
        const int foot = info.y - scroll_;
        if (foot < 0 || foot - 2 * line > area.height())
            continue;
        const int top = area.top() + foot - ascent;
        painter.setClipRegion(
            ZrRegion(ZrRect(area.left(), top - reach, area.width(), line + 2 * reach) & area));
        painter.drawGlyphs(area.left() + info.x, area.top() + foot, info.glyphs);
    }
}

// A narrow mark in the margin that tells how much of the text is in view, and where.
void ZrTextEdit::drawScrollMark(ZrPainter &painter) const
{
    const ZrColor *color = style().scrollBar().slider.get(0);
    const ZrRect area = textRect();
    const int thickness = std::max(2, lineHeight() / 6);
    const int length = std::max(lineHeight(), area.height() * area.height() / contentHeight());
    const int top = (area.height() - length) * scroll_ / std::max(1, mostScroll());
    if (color)
        painter.fillRect(ZrRect(width() - 2 * thickness, area.top() + top, thickness, length),
                         *color);
}

// --- events ---

void ZrTextEdit::keyPressEvent(ZrKeyEvent *event)
{
    const int key = event->key();
    if (readOnly_) {
        event->setAccepted(readKey(key));
        return;
    }
    const int before = cursorPosition();
    if (key == Zr::Key_Up || key == Zr::Key_Down) {
        event->setAccepted(moveByLine(key == Zr::Key_Up ? -1 : 1));
    } else if (key == Zr::Key_Left || key == Zr::Key_Right) {
        const ZrRect place = cursorPlace();
        // Arrows go where they point.
        const bool isFromRight = leadingAlignment(editable_->shown()) == Zr::AlignRight;
        const bool isBack = (key == Zr::Key_Left) != isFromRight;
        const int target = isBack ? layout().clusterStart(std::max(0, before - 1))
                                  : before + std::max(1, layout().charCombinationNum(before));
        update(place);
        setCursorPosition(target);
        event->setAccepted(cursorPosition() != before);
    } else if (key == Zr::Key_Backspace) {
        event->accept();
        backspace();
    } else if (key == Zr::Key_Enter) {
        event->accept();
        insert(ZrString("\n"));
    } else if (!event->text().isEmpty()) {
        event->accept();
        insert(event->text());
    }
}

bool ZrTextEdit::readKey(int key)
{
    if (key == Zr::Key_Up || key == Zr::Key_Down)
        return scrollBy(key == Zr::Key_Up ? -lineHeight() : lineHeight());
    return false;
}

void ZrTextEdit::mousePressEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton)
        return;
    event->accept();
    if (!readOnly_)
        putCursor(event->position());
}

void ZrTextEdit::putCursor(const ZrPoint &at)
{
    const ZrRect area = textRect();
    setCursorPosition(
        layout().positionAt(ZrPoint(at.x() - area.left(), at.y() - area.top() + scroll_)));
}

void ZrTextEdit::wheelEvent(ZrWheelEvent *event)
{
    event->setAccepted(scrollBy(-event->delta() * LinesPerNotch * lineHeight() / WheelNotch));
}

void ZrTextEdit::focusInEvent(ZrFocusEvent *event)
{
    ZrWidget::focusInEvent(event);
    restartCursor();
    update();
}

void ZrTextEdit::focusOutEvent(ZrFocusEvent *event)
{
    ZrWidget::focusOutEvent(event);
    restartCursor();
    update();
}

void ZrTextEdit::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrWidget::hoverEnterEvent(event);
    update();
}

void ZrTextEdit::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrWidget::hoverLeaveEvent(event);
    update();
}

void ZrTextEdit::resizeEvent(ZrResizeEvent *)
{
    layout_.reset();
    scroll_ = std::min(scroll_, mostScroll());
}
