#include "ui/controls/tabbar.h"

#include "gfx/fillring.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "widgets/style/buttonlayout.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrpainter>

namespace
{

constexpr float InsetUnits = 24; // before and behind a tab's text
constexpr float HeightUnits = 50;

} // namespace

TabBar::TabBar(ZrWidget *parent) : CWidget(parent)
{
    setFocusPolicy(AnyFocus);
    setAttribute(MouseTracking);
    readStyle(commonStyleFile());
}

// data: style/commonstyle.ini
// TabBar/Item/{Foreground,Background}/{Normal,Hover,Focus,Disabled,Current}
void TabBar::readStyle(const ZrIniFile &file)
{
    const char *const words[Looks] = {"Normal", "Hover", "Focus", "Disabled", "Current"};
    for (int look = 0; look < Looks; ++look) {
        const ZrString word(words[look]);
        foreground_[look] = file.colorValue(ZrString("TabBar/Item/Foreground/") + word);
        background_[look] = file.colorValue(ZrString("TabBar/Item/Background/") + word);
    }
    ground_ = file.colorValue(ZrString("TabBar/Background"));
    ring_ = file.colorValue(ZrString("TabBar/Item/Border/Focus"));
    ringUnits_ = file.intValue(ZrString("TabBar/Item/BorderWidth"));
    currentLine_ = file.colorValue(ZrString("TabBar/Item/Bar/Color"));
    currentLineUnits_ = file.intValue(ZrString("TabBar/Item/Bar/Width"));
    bottomLine_ = file.colorValue(ZrString("TabBar/BottomLine/Color"));
    bottomLineUnits_ = file.intValue(ZrString("TabBar/BottomLine/Width"));
}

// --- tabs ---

int TabBar::addTab(const ZrString &text, int data)
{
    tabs_.append({text, data, true, 0, 0});
    layTabs();
    if (current_ < 0)
        setCurrentIndex(0);
    return count() - 1;
}

void TabBar::setTabText(int index, const ZrString &text)
{
    if (text == tabs_.at(index).text)
        return;
    tabs_[index].text = text;
    layTabs();
}

void TabBar::setTabEnabled(int index, bool enabled)
{
    if (enabled == tabs_.at(index).enabled)
        return;
    tabs_[index].enabled = enabled;
    updateTab(index);
}

void TabBar::clear()
{
    tabs_.clear();
    current_ = focused_ = hovered_ = -1;
    update();
}

void TabBar::setCurrentIndex(int index)
{
    if (index == current_ || index < 0 || index >= count() || !tabs_.at(index).enabled)
        return;
    updateTab(current_);
    current_ = index;
    updateTab(current_);
    emit(this, &currentChanged);
}

void TabBar::setFocused(int index)
{
    updateTab(focused_);
    focused_ = index;
    updateTab(focused_);
}

void TabBar::setHovered(int index)
{
    if (index == hovered_)
        return;
    updateTab(hovered_);
    hovered_ = index;
    updateTab(hovered_);
}

bool TabBar::moveFocus(int direction)
{
    int index = focused_ < 0 ? current_ : focused_ + direction;
    while (index >= 0 && index < count() && !tabs_.at(index).enabled)
        index += direction;
    if (index < 0 || index >= count())
        return false;
    setFocused(index);
    return true;
}

// --- geometry ---

void TabBar::setTabUnits(float narrowest, float font)
{
    narrowestUnits_ = narrowest;
    fontUnits_ = font;
    layTabs();
}

void TabBar::setClear(bool clear)
{
    if (clear == clear_)
        return;
    clear_ = clear;
    update();
}

ZrFont TabBar::tabFont() const
{
    return ZrFont(fontUnits(fontUnits_));
}

int TabBar::wantedWidth(const Tab &tab) const
{
    return std::max(unitsX(narrowestUnits_),
                    textWidth(tab.text, tabFont()) + 2 * unitsX(InsetUnits));
}

void TabBar::layTabs()
{
    long long wanted = 0;
    for (const Tab &tab : tabs_)
        wanted += wantedWidth(tab);
    const long long room = std::max(0, width());
    long long end = 0;
    for (int i = 0; i < count(); ++i) {
        const long long start = end;
        end += wantedWidth(tabs_.at(i));
        const auto placed = [&](long long x) { return int(wanted > room ? x * room / wanted : x); };
        tabs_[i].left = placed(start);
        tabs_[i].width = placed(end) - placed(start);
    }
    update();
}

ZrRect TabBar::tabRect(int index) const
{
    if (index < 0 || index >= count())
        return ZrRect();
    const Tab &tab = tabs_.at(index);
    return ZrRect(tab.left, 0, tab.width, height());
}

int TabBar::tabAt(const ZrPoint &point) const
{
    for (int i = 0; i < count(); ++i)
        if (tabRect(i).contains(point))
            return i;
    return -1;
}

ZrSize TabBar::sizeHint() const
{
    int all = 0;
    for (const Tab &tab : tabs_)
        all += wantedWidth(tab);
    return ZrSize(all, unitsY(HeightUnits));
}

void TabBar::updateTab(int index)
{
    if (index >= 0)
        update(tabRect(index));
}

void TabBar::resizeEvent(ZrResizeEvent *)
{
    layTabs();
}

// --- events ---

void TabBar::focusIn(const ZrPoint &point)
{
    const int at = tabAt(point);
    setFocused(at >= 0 && tabs_.at(at).enabled ? at : current_);
}

void TabBar::mousePressEvent(ZrMouseEvent *event)
{
    const int at = event->button() == Zr::LeftButton ? tabAt(event->position()) : -1;
    event->setAccepted(at >= 0);
    if (at < 0)
        return;
    setFocused(at);
    setCurrentIndex(at);
}

void TabBar::mouseMoveEvent(ZrMouseEvent *event)
{
    setHovered(tabAt(event->position()));
}

void TabBar::leaveEvent(ZrEvent *)
{
    setHovered(-1);
}

void TabBar::focusInEvent(ZrFocusEvent *event)
{
    CWidget::focusInEvent(event);
    if (focused_ < 0)
        focused_ = current_;
    updateTab(focused_);
}

void TabBar::focusOutEvent(ZrFocusEvent *event)
{
    CWidget::focusOutEvent(event);
    updateTab(focused_);
}

// --- painting ---

void TabBar::paintEvent(ZrPaintEvent *event)
{
    ZrPainter painter(this);
    if (!clear_)
        painter.fillRect(rect(), ground_);
    const int line = std::max(1, unitsY(float(bottomLineUnits_)));
    painter.fillRect(ZrRect(0, height() - line, width(), line), bottomLine_);
    for (int i = 0; i < count(); ++i)
        if (event->region().intersects(tabRect(i)))
            paintTab(painter, i);
}

void TabBar::paintTab(ZrPainter &painter, int index) const
{
    const Tab &tab = tabs_.at(index);
    const bool ringed = hasFocus() && index == focused_;
    const Look look = !tab.enabled || !isEnabled() ? Disabled
                      : index == current_          ? Current
                      : ringed                     ? Focus
                      : index == hovered_          ? Hover
                                                   : Normal;
    const ZrRect place = tabRect(index);
    const int line = std::max(1, unitsY(float(bottomLineUnits_)));
    if (!clear_ || (look != Normal && look != Disabled))
        painter.fillRect(place.adjusted(0, 0, 0, -line), background_[look]);
    if (index == current_) {
        const int thickness = unitsY(float(currentLineUnits_));
        painter.fillRect(
            ZrRect(place.left(), place.bottom() - thickness + 1, place.width(), thickness),
            currentLine_);
    }
    const int inset = std::min(unitsX(InsetUnits), place.width() / 8);
    const ZrRect room = place.adjusted(inset, 0, -inset, 0);
    painter.setFont(tabFont());
    painter.setPen(foreground_[look]);
    painter.drawText(room, Zr::AlignCenter,
                     ZrFontMetrics::elided(tab.text, tabFont(), room.width()));
    if (!ringed)
        return;
    const int ring = std::max(1, fontUnits(float(ringUnits_)));
    fillRing(painter, place, ring_, ring);
}
