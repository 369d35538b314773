#include "ui/controls/calendar.h"

#include "gfx/fillring.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"
#include "widgets/style/drawpicture.h"

#include <algorithm>
#include <zrguard>
#include <zrpainter>
#include <zrpixmap>
#include <zrtranslation>

namespace
{

constexpr int DaysInWeek = 7;
constexpr int Weeks = 6;

// Units.
constexpr float CellWidth = 38;
constexpr float CellHeight = 32;
constexpr float TitleUnits = 40;
constexpr float WeekUnits = 26;
constexpr float TitleFont = 17;
constexpr float DayFont = 15;
constexpr float WeekFont = 13;
constexpr float ArrowIcon = 22;
constexpr float MarkWidth = 16;
constexpr float TitleInset = 8;

void drawIcon(ZrPainter &painter, const ZrRect &rect, const ZrPixmap &icon)
{
    const int side = std::min(fontUnits(ArrowIcon), rect.height());
    drawPictureInMiddle(painter, rect, ZrSize(side, side), icon);
}

} // namespace

Calendar::Calendar(ZrWidget *parent) : CWidget(parent)
{
    setFocusPolicy(AnyFocus);
    setAttribute(MouseTracking);
    showMonth(date_);
    walked_ = date_;
}

// data: style/calendar.ini
// Calendar/Day/{Fore,Back}ground/{Normal,Hover,Focus,Disabled,Current,Today}
const Calendar::Look &Calendar::look()
{
    static const Look look = [] {
        const ZrIniFile &file = styleFile("style/calendar.ini");
        const auto color = [&file](const char *key) { return file.colorValue(ZrString(key)); };
        const char *const states[] = {"Normal", "Hover", "Focus", "Disabled", "Current", "Today"};
        Look made;
        made.background = color("Calendar/Background");
        made.title = color("Calendar/Title/Foreground");
        made.week = color("Calendar/Week/Foreground");
        made.todayRing = color("Calendar/Day/Border/Today");
        made.focusRing = color("Calendar/Day/Border/Focus");
        made.mark = color("Calendar/Mark/Normal");
        made.alarm = color("Calendar/Mark/Alarm");
        for (int state = 0; state < DayStates; ++state) {
            const ZrString word(states[state]);
            made.foreground[state] = file.colorValue(ZrString("Calendar/Day/Foreground/") + word);
            made.dayBackground[state] =
                file.colorValue(ZrString("Calendar/Day/Background/") + word);
        }
        made.ring = file.intValue(ZrString("Calendar/Day/BorderWidth"));
        made.markHeight = file.intValue(ZrString("Calendar/Mark/Width"));
        return made;
    }();
    return look;
}

// --- what is shown ---

void Calendar::setDate(const ZrDate &date)
{
    if (!date.isValid())
        return;
    updateDay(date_);
    date_ = walked_ = date;
    showMonth(date);
    updateDay(date_);
}

void Calendar::showMonth(const ZrDate &anyDay)
{
    if (!anyDay.isValid())
        return;
    const ZrDate first = anyDay.addDays(1 - anyDay.day());
    if (first == first_)
        return;
    first_ = first;
    marks_ = alarms_ = 0;
    hovered_ = pressed_ = ZrDate();
    update();
    emit(this, &monthChanged);
}

void Calendar::setDateRange(const ZrDate &minimum, const ZrDate &maximum)
{
    minimum_ = minimum;
    maximum_ = maximum;
    update();
}

void Calendar::setMarks(std::uint32_t normal, std::uint32_t alarm)
{
    marks_ = normal;
    alarms_ = alarm;
    update();
}

bool Calendar::isAllowed(const ZrDate &day) const
{
    return day.isValid() && (!minimum_.isValid() || day >= minimum_) &&
           (!maximum_.isValid() || day <= maximum_);
}

bool Calendar::isShown(const ZrDate &day) const
{
    return day.isValid() && day >= first_ && first_.daysTo(day) < first_.daysInMonth();
}

// --- geometry ---

ZrSize Calendar::sizeHint() const
{
    return ZrSize(unitsX(CellWidth) * DaysInWeek,
                  titleHeight() + weekHeight() + unitsY(CellHeight) * Weeks);
}

int Calendar::titleHeight() const
{
    return unitsY(TitleUnits);
}

int Calendar::weekHeight() const
{
    return unitsY(WeekUnits);
}

ZrRect Calendar::dayRect(const ZrDate &day) const
{
    if (!isShown(day))
        return ZrRect();
    const int place = first_.dayOfWeek() - 1 + int(first_.daysTo(day));
    const int column = place % DaysInWeek;
    const int row = place / DaysInWeek;
    const int top = titleHeight() + weekHeight();
    const int room = height() - top;
    return ZrRect::fromEdges(column * width() / DaysInWeek, top + row * room / Weeks,
                             (column + 1) * width() / DaysInWeek - 1,
                             top + (row + 1) * room / Weeks - 1)
        .adjusted(1, 1, -1, -1);
}

ZrRect Calendar::previousRect() const
{
    return nextRect().translated(-titleHeight(), 0);
}

ZrRect Calendar::nextRect() const
{
    return ZrRect(width() - titleHeight(), 0, titleHeight(), titleHeight());
}

ZrDate Calendar::dayAt(const ZrPoint &at) const
{
    for (int i = 0; i < first_.daysInMonth(); ++i) {
        const ZrDate day = first_.addDays(i);
        if (dayRect(day).contains(at))
            return day;
    }
    return ZrDate();
}

// --- walking and choosing ---

void Calendar::updateDay(const ZrDate &day)
{
    update(dayRect(day));
}

void Calendar::setWalked(const ZrDate &day)
{
    updateDay(walked_);
    walked_ = day;
    updateDay(walked_);
}

void Calendar::setHovered(const ZrDate &day)
{
    if (day == hovered_)
        return;
    updateDay(hovered_);
    hovered_ = day;
    updateDay(hovered_);
}

bool Calendar::walk(int days)
{
    const ZrDate target = walked_.addDays(days);
    if (!target.isValid())
        return false;
    setWalked(target);
    showMonth(target);
    return true;
}

bool Calendar::walkWithinMonth(int days)
{
    const ZrDate target = walked_.addDays(days);
    if (!isShown(target))
        return false;
    setWalked(target);
    return true;
}

bool Calendar::upKey()
{
    return walkWithinMonth(-DaysInWeek);
}

bool Calendar::downKey()
{
    return walkWithinMonth(DaysInWeek);
}

void Calendar::clickKey()
{
    choose(walked_);
}

void Calendar::focusIn(const ZrPoint &)
{
    setWalked(isShown(date_) ? date_ : first_);
}

void Calendar::choose(const ZrDate &day)
{
    if (!isAllowed(day))
        return;
    updateDay(date_);
    date_ = day;
    setWalked(day);
    emit(this, &dayClicked);
}

void Calendar::turnMonth(int months)
{
    const ZrDate target = first_.addMonths(months);
    if (!target.isValid())
        return;
    walked_ = target;
    showMonth(target);
}

// --- painting ---

ZrString Calendar::title() const
{
    const ZrString year = ZrString::number(first_.year());
    // Only the months of the common calendar have names.
    if (ZrDate::dateMode() == Zr::Persian)
        return first_.toString(ZrString("yyyy/MM"));
    return tr(Text::MonthAndYear).arg(tr(Text::MonthJanuary + first_.month() - 1)).arg(year);
}

void Calendar::paintEvent(ZrPaintEvent *event)
{
    ZrPainter painter(this);
    painter.fillRect(rect(), look().background);
    drawTitle(painter);
    drawWeekdays(painter);
    for (int i = 0; i < first_.daysInMonth(); ++i) {
        const ZrDate day = first_.addDays(i);
        if (event->region().intersects(dayRect(day)))
            drawDay(painter, day);
    }
}

void Calendar::drawTitle(ZrPainter &painter) const
{
    painter.setFont(ZrFont(fontUnits(TitleFont)));
    painter.setPen(look().title);
    painter.drawText(
        ZrRect(unitsX(TitleInset), 0, previousRect().left() - unitsX(TitleInset), titleHeight()),
        Zr::AlignLeft | Zr::AlignVCenter, title());
    drawIcon(painter, previousRect(), picture("images/page-previous.png"));
    drawIcon(painter, nextRect(), picture("images/page-next.png"));
}

void Calendar::drawWeekdays(ZrPainter &painter) const
{
    painter.setFont(ZrFont(fontUnits(WeekFont)));
    painter.setPen(look().week);
    for (int i = 0; i < DaysInWeek; ++i)
        painter.drawText(ZrRect::fromEdges(i * width() / DaysInWeek, titleHeight(),
                                           (i + 1) * width() / DaysInWeek - 1,
                                           titleHeight() + weekHeight() - 1),
                         Zr::AlignCenter, tr(Text::WeekdayMonday + i));
}

void Calendar::drawDay(ZrPainter &painter, const ZrDate &day) const
{
    const ZrRect cell = dayRect(day);
    const bool isWalked = hasFocus() && day == walked_;
    const bool isToday = day == ZrDate::currentDate();
    const DayState state = !isAllowed(day)   ? Disabled
                           : day == date_    ? Current
                           : day == hovered_ ? Hover
                           : isWalked        ? Focus
                                             : Normal;
    painter.fillRect(cell, look().dayBackground[state]);
    if (isToday)
        fillRing(painter, cell, look().todayRing, 1);
    if (isWalked) {
        // On the chosen day's ground, which has the ring's colour, the ring stands apart.
        fillRing(painter, cell, look().focusRing, look().ring);
        if (state == Current)
            fillRing(painter, cell.adjusted(look().ring, look().ring, -look().ring, -look().ring),
                     look().background, look().ring);
    }
    painter.setFont(ZrFont(fontUnits(DayFont)));
    painter.setPen(look().foreground[state]);
    painter.drawText(cell, Zr::AlignCenter, ZrString::number(day.day()));
    drawMark(painter, cell, day.day());
}

void Calendar::drawMark(ZrPainter &painter, const ZrRect &cell, int dayOfMonth) const
{
    const std::uint32_t bit = 1u << (dayOfMonth - 1);
    if (!((marks_ | alarms_) & bit))
        return;
    // An alarm's bar is the wider one, so that the two differ by more than colour.
    const bool isAlarm = alarms_ & bit;
    const int wide = std::min(cell.width(), unitsX(isAlarm ? 2 * MarkWidth : MarkWidth));
    const int high = std::max(1, unitsY(float(look().markHeight)));
    painter.fillRect(
        ZrRect(cell.left() + (cell.width() - wide) / 2, cell.bottom() - 2 * high + 1, wide, high),
        isAlarm ? look().alarm : look().mark);
}

// --- events ---

void Calendar::mousePressEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton)
        return;
    event->accept();
    if (previousRect().contains(event->position()))
        turnMonth(-1);
    else if (nextRect().contains(event->position()))
        turnMonth(1);
    else
        pressed_ = dayAt(event->position());
}

void Calendar::mouseReleaseEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton || !pressed_.isValid())
        return;
    event->accept();
    const ZrDate was = pressed_;
    pressed_ = ZrDate();
    if (dayAt(event->position()) == was)
        choose(was);
}

void Calendar::mouseMoveEvent(ZrMouseEvent *event)
{
    setHovered(dayAt(event->position()));
}

void Calendar::leaveEvent(ZrEvent *)
{
    setHovered(ZrDate());
}

void Calendar::focusInEvent(ZrFocusEvent *event)
{
    CWidget::focusInEvent(event);
    updateDay(walked_);
}

void Calendar::focusOutEvent(ZrFocusEvent *event)
{
    CWidget::focusOutEvent(event);
    updateDay(walked_);
}
