#include <zrlineedit>

#include "widgets/controls/editabletext.h"
#include "widgets/style/boxmodel.h"
#include "widgets/style/textdirection.h"

#include <algorithm>
#include <zrregion>

namespace
{

constexpr int HintCharacters = 12; // of a field that nothing else gives a width

// A glyph may reach a little beyond its advance.
int overhang(const ZrFont &font)
{
    return ZrFontMetrics::lineHeight(font) / 4;
}

// Where a change from that position on may begin to show. Letters may join the one before them, and
// marks that stand alone take no room: they are drawn over what is before them.
int shownFrom(const ZrFontMetrics &layout, int changedFrom)
{
    const int x = layout.cursorPoint(changedFrom).x();
    int from = layout.clusterStart(std::max(0, changedFrom - 1));
    while (from > 0 && layout.cursorPoint(from).x() >= x)
        from = layout.clusterStart(from - 1);
    return from;
}

// The side that the first cluster stands at tells the direction of the whole.
bool runsRightToLeft(const ZrString &shown, const ZrFontMetrics &layout)
{
    return mayRunRightToLeft(shown) && layout.cursorPoint(0).x() > 0;
}

} // namespace

// What a repaint must compare.
struct ZrLineEdit::View {
    int originX;
    int textWidth;
    bool empty;
    bool mayRunRightToLeft;
    ZrRegion selection;
    ZrRect cursor;
};

ZrLineEdit::ZrLineEdit(ZrWidget *parent)
    : ZrFrame(parent), editable_(std::make_unique<EditableText>())
{
    setFocusPolicy(AnyFocus);
    setAttribute(Hover);
    revealTimer_.setSingleShot(true);
    connect(&blinkTimer_, &blinkTimer_.timeout, this, zrSlot<&ZrLineEdit::blink>);
    connect(&revealTimer_, &revealTimer_.timeout, this, zrSlot<&ZrLineEdit::concealLast>);
}

ZrLineEdit::~ZrLineEdit() = default;

// --- text ---

ZrString ZrLineEdit::text() const
{
    return editable_->text();
}

bool ZrLineEdit::isEmpty() const
{
    return editable_->size() == 0;
}

const ZrString &ZrLineEdit::shownText() const
{
    return editable_->shown();
}

void ZrLineEdit::setText(const ZrString &text)
{
    edit([&] { return editable_->setText(text); });
}

void ZrLineEdit::insert(const ZrString &text)
{
    if (echoMode_ == Normal && !accepts(editable_->textWith(text)))
        return;
    edit([&] { return editable_->insert(text); });
}

void ZrLineEdit::backspace()
{
    edit([&] { return editable_->backspace(layout()); });
}

bool ZrLineEdit::accepts(const ZrString &) const
{
    return true;
}

void ZrLineEdit::setEchoMode(EchoMode mode)
{
    if (mode == echoMode_)
        return;
    echoMode_ = mode;
    editable_->setMasked(mode == Password);
    refit();
}

void ZrLineEdit::setReadOnly(bool readOnly)
{
    if (readOnly == readOnly_)
        return;
    readOnly_ = readOnly;
    restartCursor();
    update();
}

void ZrLineEdit::setHint(const ZrString &hint)
{
    if (hint == hint_)
        return;
    hint_ = hint;
    if (isEmpty())
        refit();
}

void ZrLineEdit::setAlignment(int alignment)
{
    if (alignment == alignment_)
        return;
    alignment_ = alignment;
    refit();
}

int ZrLineEdit::maxLength() const
{
    return editable_->maxLength;
}

void ZrLineEdit::setMaxLength(int characters)
{
    editable_->maxLength = characters;
    edit([&] { return editable_->refit(); });
}

int ZrLineEdit::maxBytes() const
{
    return editable_->maxBytes;
}

void ZrLineEdit::setMaxBytes(int bytes)
{
    editable_->maxBytes = bytes;
    edit([&] { return editable_->refit(); });
}

void ZrLineEdit::setAllowedCharacters(const ZrCharacterSet &set)
{
    editable_->allowed = set;
    edit([&] { return editable_->refit(); });
}

// --- cursor and selection ---

int ZrLineEdit::cursorPosition() const
{
    return editable_->cursor();
}

void ZrLineEdit::setCursorPosition(int position)
{
    moveCursorBy([&] { return editable_->moveTo(position, layout()); });
}

void ZrLineEdit::moveCursor(int clusters)
{
    moveCursorBy([&] { return editable_->step(clusters, layout()); });
}

bool ZrLineEdit::hasSelection() const
{
    return editable_->hasSelection();
}

int ZrLineEdit::selectionStart() const
{
    return editable_->selectionStart();
}

int ZrLineEdit::selectionEnd() const
{
    return editable_->selectionEnd();
}

void ZrLineEdit::setSelection(int from, int to)
{
    moveCursorBy([&] { return editable_->select(from, to, layout()); });
}

void ZrLineEdit::selectAll()
{
    setSelection(0, editable_->size());
}

void ZrLineEdit::servedChanged()
{
    restartCursor();
    refit();
}

void ZrLineEdit::putCursor(const ZrPoint &at)
{
    setCursorPosition(positionAt(at));
}

int ZrLineEdit::positionAt(const ZrPoint &at) const
{
    const ZrPoint origin = textOrigin();
    return editable_->fromShown(layout().positionAt(ZrPoint(at.x() - origin.x(), 0)));
}

// --- geometry ---

ZrFont ZrLineEdit::textFont() const
{
    return BoxModel(*this, style().lineEdit()).font();
}

int ZrLineEdit::cursorWidth() const
{
    const int *width = style().lineEdit().cursorWidth.get(0);
    return width ? *width : 1;
}

ZrFontMetrics ZrLineEdit::layout() const
{
    return ZrFontMetrics(editable_->shown(), textFont());
}

ZrRect ZrLineEdit::textRect() const
{
    return BoxModel(*this, style().lineEdit()).contents(rect()).adjusted(0, 0, -trailingRoom(), 0);
}

ZrPoint ZrLineEdit::textOrigin() const
{
    const ZrRect area = textRect();
    const int line = ZrFontMetrics::lineHeight(textFont());
    return ZrPoint(area.left() + originX_, area.top() + (area.height() - line) / 2);
}

ZrRect ZrLineEdit::cursorPlace() const
{
    const ZrPoint origin = textOrigin();
    const int x = layout().cursorPoint(editable_->toShown(editable_->cursor())).x();
    return ZrRect(origin.x() + x, origin.y(), cursorWidth(), ZrFontMetrics::lineHeight(textFont()));
}

ZrRect ZrLineEdit::cursorRect() const
{
    return cursorOn_ ? cursorPlace() : ZrRect();
}

ZrRegion ZrLineEdit::selectionRegion() const
{
    ZrRegion region;
    if (!hasSelection())
        return region;
    const ZrFontMetrics metrics = layout();
    const ZrPoint origin = textOrigin();
    const int line = ZrFontMetrics::lineHeight(textFont());
    const int from = editable_->toShown(selectionStart());
    const int to = editable_->toShown(selectionEnd());
    const auto add = [&](int start, int end) {
        const int x = std::min(metrics.cursorPoint(start).x(), metrics.cursorPoint(end).x());
        const int right = std::max(metrics.cursorPoint(start).x(), metrics.cursorPoint(end).x());
        region += ZrRegion(ZrRect(origin.x() + x, origin.y(), right - x, line));
    };
    if (!mayRunRightToLeft(editable_->shown())) {
        add(from, to);
        return region;
    }
    // Parts of both directions need not stand side by side: every cluster for itself.
    const ZrList<int> widths = metrics.characterWidth();
    for (int at = from; at < to; at += std::max(1, metrics.charCombinationNum(at))) {
        const int x = metrics.cursorPoint(at).x();
        const bool toRight = metrics.positionAt(ZrPoint(x + 1, 0)) == at;
        region += ZrRegion(ZrRect(origin.x() + (toRight ? x : x - widths.at(at)), origin.y(),
                                  widths.at(at), line));
    }
    return region;
}

int ZrLineEdit::aligned(int room, int textWidth, bool rightToLeft) const
{
    if (alignment_ & Zr::AlignHCenter)
        return (room - textWidth) / 2;
    const bool atRight =
        alignment_ & Zr::AlignHorizontalMask ? bool(alignment_ & Zr::AlignRight) : rightToLeft;
    return atRight ? room - textWidth : 0;
}

void ZrLineEdit::followCursor()
{
    const ZrFontMetrics metrics = layout();
    const int width = metrics.sizeHint().width();
    const int room = textRect().width() - cursorWidth();
    if (width <= room) {
        // In an empty field the cursor stands where its hint begins.
        const bool fromRight = isEmpty() ? leadingAlignment(hint_) == Zr::AlignRight
                                         : runsRightToLeft(editable_->shown(), metrics);
        originX_ = aligned(room, width, fromRight);
        return;
    }
    // At rest a long text shows its beginning.
    const int at = isActive() ? editable_->toShown(editable_->cursor()) : 0;
    const int x = metrics.cursorPoint(at).x();
    originX_ = std::clamp(originX_, room - width, 0);
    originX_ = std::clamp(originX_, -x, std::max(-x, room - x));
}

ZrSize ZrLineEdit::sizeHint() const
{
    const BoxModel box(*this, style().lineEdit());
    const ZrSize around = box.surplus();
    const int line = ZrFontMetrics::lineHeight(box.font());
    return ZrSize(line * HintCharacters / 2 + trailingRoom() + around.width(),
                  line + line / 2 + around.height());
}

ZrSize ZrLineEdit::minimumSizeHint() const
{
    const BoxModel box(*this, style().lineEdit());
    const int line = ZrFontMetrics::lineHeight(box.font());
    return ZrSize(line + trailingRoom() + box.surplus().width(), line + box.surplus().height());
}

// --- changes and what they repaint ---

ZrLineEdit::View ZrLineEdit::view() const
{
    return {originX_,          layout().sizeHint().width(),
            isEmpty(),         mayRunRightToLeft(editable_->shown()),
            selectionRegion(), cursorPlace()};
}

template <typename Change>
void ZrLineEdit::edit(Change change)
{
    const View before = view();
    if (!change())
        return;
    followCursor();
    restartCursor();
    repaintFrom(before, editable_->changedFrom());
    if (editable_->isRevealing())
        revealTimer_.start(RevealMs);
    emit(this, &textChanged);
}

template <typename Change>
void ZrLineEdit::moveCursorBy(Change change)
{
    const View before = view();
    if (!change())
        return;
    followCursor();
    restartCursor();
    repaintMove(before);
}

void ZrLineEdit::repaintFrom(const View &before, int changedFrom)
{
    const ZrRect area = textRect();
    const ZrFontMetrics metrics = layout();
    const bool all = before.originX != originX_ || before.mayRunRightToLeft ||
                     mayRunRightToLeft(editable_->shown()) || before.empty != isEmpty();
    // Marks of tall scripts stand out of the line, so whatever changes is as high as the field.
    const ZrRect wholeHeight(area.left(), 0, area.width(), height());
    if (all) {
        update(wholeHeight);
        return;
    }
    const int from = shownFrom(metrics, changedFrom);
    const int margin = overhang(textFont());
    const int left = area.left() + originX_;
    const int end = std::max(before.textWidth, metrics.sizeHint().width()) + cursorWidth();
    const ZrRect changed = ZrRect::fromEdges(left + metrics.cursorPoint(from).x() - margin, 0,
                                             left + end + margin, height() - 1);
    update(ZrRegion(changed & wholeHeight) + before.selection + ZrRegion(before.cursor));
}

void ZrLineEdit::repaintMove(const View &before)
{
    if (before.originX != originX_) {
        update(textRect());
        return;
    }
    update(before.selection.eor(selectionRegion()) + ZrRegion(before.cursor) +
           ZrRegion(cursorPlace()));
}

void ZrLineEdit::refit()
{
    followCursor();
    update();
}

void ZrLineEdit::restartCursor()
{
    const bool blinks = isActive() && !readOnly_;
    cursorOn_ = blinks;
    if (blinks)
        blinkTimer_.start(BlinkMs);
    else
        blinkTimer_.stop();
}

void ZrLineEdit::blink()
{
    cursorOn_ = !cursorOn_;
    update(cursorPlace());
}

void ZrLineEdit::concealLast()
{
    const View before = view();
    if (!editable_->conceal())
        return;
    followCursor();
    repaintFrom(before, editable_->changedFrom());
}

void ZrLineEdit::styleChanged()
{
    ZrFrame::styleChanged();
    followCursor();
}

void ZrLineEdit::setFont(const ZrFont &font, int index)
{
    ZrFrame::setFont(font, index);
    refit();
}

// --- events ---

void ZrLineEdit::paintEvent(ZrPaintEvent *)
{
    style().drawLineEdit(this);
}

void ZrLineEdit::commit()
{
    emit(this, &committed);
}

void ZrLineEdit::clicked() {}

void ZrLineEdit::keyPressEvent(ZrKeyEvent *event)
{
    if (readOnly_)
        return;
    // Arrows go where they point: in a text that runs from right to left, Left is onwards.
    const int onwards = runsRightToLeft(editable_->shown(), layout()) ? -1 : 1;
    const int before = cursorPosition();
    switch (event->key()) {
    case Zr::Key_Left:
        moveCursor(-onwards);
        event->setAccepted(cursorPosition() != before);
        return;
    case Zr::Key_Right:
        moveCursor(onwards);
        event->setAccepted(cursorPosition() != before);
        return;
    case Zr::Key_Backspace:
        event->accept();
        backspace();
        return;
    case Zr::Key_Enter:
        event->accept();
        commit();
        return;
    default:
        if (event->text().isEmpty())
            return;
        event->accept();
        insert(event->text());
    }
}

void ZrLineEdit::mousePressEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton)
        return;
    event->accept();
    dragging_ = true;
    dragged_ = false;
    putCursor(event->position());
}

void ZrLineEdit::mouseMoveEvent(ZrMouseEvent *event)
{
    if (!dragging_)
        return;
    event->accept();
    setSelection(editable_->anchor(), positionAt(event->position()));
    dragged_ = dragged_ || hasSelection();
}

void ZrLineEdit::mouseReleaseEvent(ZrMouseEvent *event)
{
    if (!dragging_ || event->button() != Zr::LeftButton)
        return;
    event->accept();
    dragging_ = false;
    if (!dragged_)
        clicked();
}

void ZrLineEdit::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton)
        return;
    event->accept();
    selectAll();
}

void ZrLineEdit::focusInEvent(ZrFocusEvent *event)
{
    ZrFrame::focusInEvent(event);
    restartCursor();
    refit();
}

void ZrLineEdit::focusOutEvent(ZrFocusEvent *event)
{
    ZrFrame::focusOutEvent(event);
    if (!isServed()) {
        editable_->moveTo(cursorPosition(), layout());
        editable_->conceal();
    }
    restartCursor();
    refit();
}

void ZrLineEdit::hoverEnterEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverEnterEvent(event);
    update();
}

void ZrLineEdit::hoverLeaveEvent(ZrHoverEvent *event)
{
    ZrFrame::hoverLeaveEvent(event);
    update();
}

void ZrLineEdit::resizeEvent(ZrResizeEvent *)
{
    followCursor();
}
