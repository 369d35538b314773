#include "ui/controls/dateedit.h"

#include "ui/controls/calendar.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"

#include <algorithm>
#include <zrpainter>
#include <zrscreen>

namespace
{

// Units.
constexpr float FieldWidth = 222;
constexpr float FieldHeight = 36;
constexpr float PopupInset = 10;
constexpr float PopupGap = 4;

} // namespace

DateEditPopup::DateEditPopup() : calendar_(new Calendar(this)) // owned as a child
{
    setWindowFlags(Popup);
    connect(calendar_, &calendar_->dayClicked, this, zrSlot<&DateEditPopup::dayClicked>);
    const ZrSize days = calendar_->sizeHint();
    const int inset = unitsX(PopupInset);
    calendar_->setGeometry(ZrRect(inset, inset, days.width(), days.height()));
    resize(ZrSize(days.width() + 2 * inset, days.height() + 2 * inset));
}

void DateEditPopup::openAt(const ZrRect &field)
{
    const ZrRect screen = ZrScreen::instance()->rect();
    const int gap = unitsY(PopupGap);
    const int below = field.bottom() + 1 + gap;
    const int y = below + height() <= screen.height() ? below : field.top() - gap - height();
    move(ZrPoint(std::clamp(field.left(), 0, std::max(0, screen.width() - width())),
                 std::clamp(y, 0, std::max(0, screen.height() - height()))));
    show();
    calendar_->setFocus(Zr::KeyManagerFocus);
}

void DateEditPopup::dayClicked()
{
    const ZrGuard<DateEditPopup> self(this);
    emit(this, &chosen);
    if (self)
        close();
}

void DateEditPopup::paintEvent(ZrPaintEvent *)
{
    const ZrIniFile &file = styleFile("style/calendar.ini");
    ZrPainter painter(this);
    const int w = file.intValue(ZrString("Calendar/Border/Width"));
    painter.fillRect(rect(), file.colorValue(ZrString("Calendar/Border/Color")));
    painter.fillRect(rect().adjusted(w, w, -w, -w),
                     file.colorValue(ZrString("Calendar/Background")));
}

void DateEditPopup::keyPressEvent(ZrKeyEvent *event)
{
    if (event->key() != Zr::Key_Escape)
        return;
    event->accept();
    close();
}

void DateEditPopup::hideEvent(ZrHideEvent *)
{
    emit(this, &closed);
}

DateEdit::DateEdit(ZrWidget *parent) : ZrDateEdit(parent) {}

DateEdit::~DateEdit()
{
    if (popup_)
        popup_->close();
}

ZrSize DateEdit::sizeHint() const
{
    return ZrSize(unitsX(FieldWidth), unitsY(FieldHeight));
}

void DateEdit::openPopup()
{
    if (popup_)
        return;
    popup_ = new DateEditPopup; // deletes itself
    connect(popup_.get(), &popup_->chosen, this, zrSlot<&DateEdit::takeDay>);
    connect(popup_.get(), &popup_->closed, this, zrSlot<&DateEdit::popupClosed>);
    popup_->calendar()->setDateRange(minimumDate(), maximumDate());
    popup_->calendar()->setDate(date());
    setPopupOpen(true);
    popup_->openAt(ZrRect(mapToGlobal(ZrPoint(0, 0)), size()));
}

void DateEdit::takeDay()
{
    setDate(popup_->calendar()->date());
}

void DateEdit::popupClosed()
{
    popup_ = nullptr;
    setPopupOpen(false);
}

void DateEdit::hideEvent(ZrHideEvent *event)
{
    ZrDateEdit::hideEvent(event);
    if (popup_)
        popup_->close();
}
