#include "ui/controls/menu.h"

#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "widgets/style/buttonlayout.h"
#include "widgets/style/drawpicture.h"
#include "widgets/style/textdirection.h"

#include <algorithm>
#include <zrapplication>
#include <zrfontmetrics>
#include <zrguard>
#include <zrpainter>
#include <zrtranslation>

namespace
{

constexpr float InsetUnits = 16;
constexpr float PictureUnits = 24;
constexpr float GapUnits = 12;
constexpr float BarUnits = 4;
constexpr float MarginUnits = 3; // above the first row and below the last

} // namespace

Menu::Menu()
    : look_(MenuLook::read(styleFile("style/mainview.ini"), "Menu", MenuLook::Keys::StateLast))
{
    setWindowFlags(Popup);
    setFocusPolicy(AnyFocus);
    setAttribute(MouseTracking);
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&Menu::retranslate>);
}

// --- items ---

MenuItem *Menu::addItem(int action, int textId)
{
    MenuItem *added = addItem(action, tr(textId));
    added->textId = textId;
    return added;
}

MenuItem *Menu::addItem(int action, const ZrString &text)
{
    items_.push_back(std::make_unique<MenuItem>());
    items_.back()->action = action;
    items_.back()->text = text;
    return items_.back().get();
}

void Menu::addSeparator()
{
    if (!items_.empty())
        items_.back()->separatorBehind = true;
}

MenuItem *Menu::itemByAction(int action) const
{
    for (const auto &item : items_)
        if (item->action == action)
            return item.get();
    return nullptr;
}

void Menu::retranslate()
{
    for (const auto &item : items_)
        if (item->textId != 0)
            item->text = tr(item->textId);
    if (isVisible())
        resize(sizeHint());
    update();
}

void Menu::setLook(const MenuLook &look)
{
    look_ = look;
    update();
}

void Menu::setItemUnits(float width, float height)
{
    widthUnits_ = width;
    heightUnits_ = height;
}

// --- geometry ---

int Menu::itemHeight() const
{
    return unitsY(heightUnits_);
}

bool Menu::hasPictures() const
{
    return std::any_of(items_.begin(), items_.end(),
                       [](const auto &item) { return !item->picture.isNull(); });
}

ZrRect Menu::itemRect(int index) const
{
    if (!item(index)->visible)
        return ZrRect();
    int top = look_.borderWidth + unitsY(MarginUnits);
    for (int i = 0; i < index; ++i)
        if (item(i)->visible)
            top += itemHeight() + (item(i)->separatorBehind ? look_.splitterWidth : 0);
    return ZrRect(look_.borderWidth, top, width() - 2 * look_.borderWidth, itemHeight());
}

int Menu::itemAt(const ZrPoint &point) const
{
    for (int i = 0; i < count(); ++i)
        if (itemRect(i).contains(point))
            return i;
    return -1;
}

ZrSize Menu::sizeHint() const
{
    int widest = 0;
    int height = 2 * (look_.borderWidth + unitsY(MarginUnits));
    for (const auto &item : items_) {
        if (!item->visible)
            continue;
        widest = std::max(widest, textWidth(item->text, font(0)));
        height += itemHeight() + (item->separatorBehind ? look_.splitterWidth : 0);
    }
    const int pictures = hasPictures() ? fontUnits(PictureUnits) + unitsX(GapUnits) : 0;
    const int wanted = widest + pictures + 2 * unitsX(InsetUnits) + 2 * look_.borderWidth;
    return ZrSize(std::max(unitsX(widthUnits_), wanted), height);
}

void Menu::popup(const ZrPoint &global, Corner corner)
{
    const ZrSize size = sizeHint();
    const ZrRect screen = ZrApplication::instance()->desktopRect();
    const bool atRight = corner == Corner::TopRight || corner == Corner::BottomRight;
    const bool atBottom = corner == Corner::BottomLeft || corner == Corner::BottomRight;
    const int x = atRight ? global.x() - size.width() + 1 : global.x();
    const int y = atBottom ? global.y() - size.height() + 1 : global.y();
    const int farX = std::max(screen.left(), screen.right() - size.width() + 1);
    const int farY = std::max(screen.top(), screen.bottom() - size.height() + 1);
    setGeometry(ZrRect(
        ZrPoint(std::clamp(x, screen.left(), farX), std::clamp(y, screen.top(), farY)), size));
    show();
}

// --- choice ---

void Menu::setCurrent(int index)
{
    if (index >= 0 && !canChoose(index))
        index = -1;
    if (index == current_)
        return;
    for (const int row : {current_, index})
        if (row >= 0)
            update(itemRect(row));
    current_ = index;
}

bool Menu::walk(int direction)
{
    byKeys_ = true;
    int row = current_ < 0 && direction < 0 ? 0 : current_;
    for (int tries = 0; tries < count(); ++tries) {
        row = (row + direction + count()) % count();
        if (!canChoose(row))
            continue;
        setCurrent(row);
        return true;
    }
    return false;
}

void Menu::trigger(int index)
{
    triggered_ = item(index);
    // Gone before the slots run: they may open a window, and stay there.
    const ZrGuard<Menu> self(this);
    close();
    if (self)
        emit(this, &triggered);
}

void Menu::clickKey()
{
    if (current_ >= 0)
        trigger(current_);
}

// --- events ---

void Menu::mousePressEvent(ZrMouseEvent *event)
{
    CWidget::mousePressEvent(event); // closes for a press outside
    event->accept();
}

void Menu::mouseReleaseEvent(ZrMouseEvent *event)
{
    event->accept();
    const int row = itemAt(event->position());
    if (event->button() == Zr::LeftButton && isVisible() && row >= 0 && canChoose(row))
        trigger(row);
}

void Menu::mouseMoveEvent(ZrMouseEvent *event)
{
    byKeys_ = false;
    setCurrent(itemAt(event->position()));
}

void Menu::leaveEvent(ZrEvent *)
{
    if (!byKeys_)
        setCurrent(-1);
}

// --- painting ---

void Menu::paintEvent(ZrPaintEvent *event)
{
    ZrPainter painter(this);
    const int border = look_.borderWidth;
    painter.fillRect(rect(), look_.border);
    painter.fillRect(rect().adjusted(border, border, -border, -border), look_.background);
    painter.setFont(font(0));
    for (int i = 0; i < count(); ++i)
        if (item(i)->visible &&
            event->region().intersects(itemRect(i).adjusted(0, 0, 0, look_.splitterWidth)))
            paintItem(painter, i);
}

void Menu::paintItem(ZrPainter &painter, int index) const
{
    const MenuItem &shown = *item(index);
    const bool current = index == current_;
    const MenuLook::Item &look = look_.item[!shown.enabled       ? MenuLook::Disabled
                                            : current && byKeys_ ? MenuLook::Focus
                                            : current            ? MenuLook::Hover
                                                                 : MenuLook::Normal];
    const ZrRect place = itemRect(index);
    const int edge = look_.itemBorderWidth;
    painter.fillRect(place, look.border);
    painter.fillRect(place.adjusted(edge, edge, -edge, -edge), look.background);
    if (shown.separatorBehind)
        painter.fillRect(
            ZrRect(place.left(), place.bottom() + 1, place.width(), look_.splitterWidth),
            look_.splitter);
    if (shown.checked)
        painter.fillRect(ZrRect(place.left(), place.top(), unitsX(BarUnits), place.height()),
                         look_.bar);
    ZrRect room = place.adjusted(unitsX(InsetUnits), 0, -unitsX(InsetUnits), 0);
    if (hasPictures()) {
        const int side = fontUnits(PictureUnits);
        const ZrPixmap &drawn =
            current && !shown.hoverPicture.isNull() ? shown.hoverPicture : shown.picture;
        if (!drawn.isNull())
            drawPicture(painter,
                        ZrRect(room.left(), place.top() + (place.height() - side) / 2, side, side),
                        drawn);
        room.setLeft(room.left() + side + unitsX(GapUnits));
    }
    painter.setPen(look.foreground);
    painter.drawText(room, leadingAlignment(shown.text) | Zr::AlignVCenter,
                     ZrFontMetrics::elided(shown.text, font(0), room.width()));
}
