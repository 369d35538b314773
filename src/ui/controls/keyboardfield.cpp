#include "ui/controls/keyboardfield.h"

#include "gfx/fillring.h"
#include "ui/keyboard/keyboard.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "widgets/style/drawpicture.h"

#include <algorithm>
#include <zrpainter>

namespace
{

// Units.
constexpr float FieldWidth = 222;
constexpr float FieldHeight = 36;
constexpr float IconSide = 20;
constexpr float IconGap = 8;
constexpr float ErrorBorder = 2;
constexpr int LeastIcons = 6; // a field narrower than so many icons has no room for one

} // namespace

KeyboardField::KeyboardField(ZrWidget *parent) : ZrLineEdit(parent) {}

void KeyboardField::setError(bool error)
{
    if (error == error_)
        return;
    error_ = error;
    update();
}

ZrSize KeyboardField::sizeHint() const
{
    return ZrSize(unitsX(FieldWidth), unitsY(FieldHeight));
}

void KeyboardField::openKeyboard()
{
    if (!isServed() && !isReadOnly())
        makeKeyboard()->open();
}

void KeyboardField::commit()
{
    // With the keyboard open this is its Enter.
    const bool ends = isServed() || typedHere_;
    typedHere_ = false;
    if (ends)
        ZrLineEdit::commit();
    else
        openKeyboard();
}

void KeyboardField::keyPressEvent(ZrKeyEvent *event)
{
    if (!isReadOnly() && !event->text().isEmpty())
        noteTyped();
    ZrLineEdit::keyPressEvent(event);
}

void KeyboardField::focusOutEvent(ZrFocusEvent *event)
{
    typedHere_ = false;
    ZrLineEdit::focusOutEvent(event);
}

void KeyboardField::clicked()
{
    openKeyboard();
}

int KeyboardField::trailingRoom() const
{
    const int icon = fontUnits(IconSide);
    return isActive() && !isReadOnly() && width() >= LeastIcons * icon ? icon + unitsX(IconGap) : 0;
}

void KeyboardField::paintEvent(ZrPaintEvent *event)
{
    ZrLineEdit::paintEvent(event);
    ZrPainter painter(this);
    if (trailingRoom() > 0) {
        const int side = fontUnits(IconSide);
        drawPicture(
            painter,
            ZrRect(textRect().right() + 1 + unitsX(IconGap), (height() - side) / 2, side, side),
            picture("images/edit-keyboard.png"));
    }
    if (!error_)
        return;
    const ZrColor color = commonStyleFile().colorValue(ZrString("LineEdit/Border/Error"));
    fillRing(painter, rect(), color, std::max(1, fontUnits(ErrorBorder)));
}
