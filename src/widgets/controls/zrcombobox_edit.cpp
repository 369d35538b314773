// The combo box whose text may be typed.
#include <zrcombobox>

#include "widgets/controls/editabletext.h"
#include "widgets/style/boxmodel.h"
#include "widgets/style/textdirection.h"

#include <algorithm>

namespace
{

constexpr int StartMaxLength = 64;

} // namespace

void ZrComboBox::setEditable(bool editable)
{
    if (editable == isEditable())
        return;
    edit_.reset();
    if (editable) {
        edit_ = std::make_unique<EditableText>();
        edit_->maxLength = StartMaxLength;
        edit_->setText(itemText(current_));
    }
    update();
}

void ZrComboBox::setEditText(const ZrString &text)
{
    if (edit_ && edit_->setText(text))
        update();
}

void ZrComboBox::setMaxLength(int characters)
{
    if (!edit_)
        return;
    edit_->maxLength = characters;
    setEditText(edit_->text());
}

int ZrComboBox::cursorPosition() const
{
    return edit_ ? edit_->cursor() : 0;
}

void ZrComboBox::setCursorPosition(int position)
{
    if (edit_ && edit_->moveTo(position, editLayout()))
        update(textRect());
}

// --- geometry ---

ZrFontMetrics ZrComboBox::editLayout() const
{
    return ZrFontMetrics(edit_->shown(), BoxModel(*this, style().comboBox()).font());
}

// The end of a text that is too long shows while the cursor stands there.
ZrPoint ZrComboBox::textOrigin() const
{
    const ZrRect area = textRect();
    const ZrFontMetrics layout = editLayout();
    const int room = area.width() - cursorWidth();
    const int spare = room - layout.sizeHint().width();
    const int line = ZrFontMetrics::lineHeight(BoxModel(*this, style().comboBox()).font());
    int left = leadingAlignment(edit_->shown()) == Zr::AlignRight ? std::max(0, spare) : 0;
    if (spare < 0 && takesKeys())
        left = std::max(spare, std::min(0, room - layout.cursorPoint(edit_->cursor()).x()));
    return ZrPoint(area.left() + left, area.top() + (area.height() - line) / 2);
}

ZrRect ZrComboBox::cursorRect() const
{
    if (!takesKeys())
        return ZrRect();
    const ZrPoint origin = textOrigin();
    const int line = ZrFontMetrics::lineHeight(BoxModel(*this, style().comboBox()).font());
    return ZrRect(origin.x() + editLayout().cursorPoint(edit_->cursor()).x(), origin.y(),
                  cursorWidth(), line);
}

int ZrComboBox::cursorWidth() const
{
    const int *width = style().lineEdit().cursorWidth.get(0);
    return width ? *width : 1;
}

void ZrComboBox::putCursor(const ZrPoint &at)
{
    if (edit_)
        setCursorPosition(editLayout().positionAt(ZrPoint(at.x() - textOrigin().x(), 0)));
}

// --- keys ---

// False when the key changed nothing, so that the focus may move on.
bool ZrComboBox::editKey(const ZrKeyEvent &event)
{
    switch (event.key()) {
    case Zr::Key_Left:
    case Zr::Key_Right: {
        // Arrows go where they point.
        const bool isFromRight = leadingAlignment(edit_->shown()) == Zr::AlignRight;
        const bool isBack = (event.key() == Zr::Key_Left) != isFromRight;
        if (!edit_->step(isBack ? -1 : 1, editLayout()))
            return false;
        update(textRect());
        return true;
    }
    case Zr::Key_Backspace:
        if (edit_->backspace(editLayout()))
            edited();
        return true;
    default:
        if (event.text().isEmpty())
            return false;
        if (edit_->insert(event.text()))
            edited();
        return true;
    }
}

void ZrComboBox::edited()
{
    update(textRect());
    emit(this, &editTextChanged);
}
