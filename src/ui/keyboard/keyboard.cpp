#include "ui/keyboard/keyboard.h"

#include "ui/scale.h"

#include <algorithm>
#include <cstdlib>
#include <zrapplication>
#include <zrscreen>
#include <zrtextentry>

namespace
{

// Units.
constexpr float KeyGap = 4;
constexpr float Inset = 10;
constexpr float FieldGap = 6;
constexpr float ScreenEdge = 8;
constexpr float ColumnWidth = 64;

constexpr int RepeatDelayMs = 500;
constexpr int RepeatMs = 80;

bool repeats(const KeyboardKey &key)
{
    return key.action == KeyboardKey::Erase || key.action == KeyboardKey::Left ||
           key.action == KeyboardKey::Right;
}

} // namespace

Keyboard::Keyboard(ZrWidget *target) : target_(target)
{
    setWindowFlags(Popup);
    setFocusPolicy(AnyFocus);
    setAttribute(MouseTracking);
    connect(target, &target->destroyed, this, zrSlot<&Keyboard::targetGone>);
    target->installEventFilter(this);
    connect(&repeatTimer_, &repeatTimer_.timeout, this, zrSlot<&Keyboard::repeat>);
}

Keyboard::~Keyboard()
{
    tellServed(false);
}

void Keyboard::open()
{
    if (!target_)
        return;
    placeBesideTarget();
    tellServed(true);
    show();
}

void Keyboard::placeBesideTarget()
{
    const ZrRect field(target_->mapToGlobal(ZrPoint(0, 0)), target_->size());
    const ZrRect screen = ZrScreen::instance()->rect();
    const int gap = unitsY(FieldGap);
    const int below = screen.bottom() - field.bottom() - gap;
    const int above = field.top() - screen.top() - gap;
    const bool goesBelow = below >= height() || below >= above;
    const int y = goesBelow ? field.bottom() + 1 + gap : field.top() - gap - height();
    const int x = field.left() + (field.width() - width()) / 2;
    const int edge = unitsX(ScreenEdge);
    move(ZrPoint(std::clamp(x, edge, std::max(edge, screen.width() - width() - edge)),
                 std::clamp(y, 0, std::max(0, screen.height() - height()))));
}

void Keyboard::tellServed(bool served)
{
    if (auto *entry = dynamic_cast<ZrTextEntry *>(target_.get()))
        entry->setServed(served);
}

bool Keyboard::eventFilter(ZrObject *watched, ZrEvent *event)
{
    if (event->type() == ZrEvent::Hide && watched == target_.get())
        close();
    return CWidget::eventFilter(watched, event);
}

void Keyboard::targetGone()
{
    target_ = nullptr;
    close();
}

void Keyboard::hideEvent(ZrHideEvent *)
{
    repeatTimer_.stop();
    tellServed(false);
}

// --- keys ---

void Keyboard::setRows(std::vector<KeyboardRow> rows, float columns, int rowUnits)
{
    rows_ = std::move(rows);
    const int inset = unitsX(Inset);
    const int rowHeight = unitsY(float(rowUnits));
    resize(ZrSize(int(columns * float(unitsX(ColumnWidth))) + 2 * inset,
                  int(rows_.size()) * rowHeight + 2 * inset));
    placeKeys(columns, rowHeight);
    row_ = std::clamp(row_, 0, int(rows_.size()) - 1);
    // The row of words is empty while there is nothing to choose from.
    while (rows_[std::size_t(row_)].empty())
        row_ = (row_ + 1) % int(rows_.size());
    column_ = std::clamp(column_, 0, int(rows_[std::size_t(row_)].size()) - 1);
    wishedX_ = -1;
    hovered_ = Place();
    if (isVisible() && target_)
        placeBesideTarget();
    update();
}

void Keyboard::placeKeys(float columns, int rowHeight)
{
    const float unit = float(unitsX(ColumnWidth));
    const int gap = unitsX(KeyGap);
    int y = unitsX(Inset);
    for (KeyboardRow &row : rows_) {
        float used = 0;
        for (const KeyboardKey &key : row)
            used += key.columns;
        float x = float(unitsX(Inset)) + (columns - used) * unit / 2;
        for (KeyboardKey &key : row) {
            const int left = int(x + 0.5f);
            x += key.columns * unit;
            key.rect = ZrRect::fromEdges(left + gap / 2, y + gap / 2, int(x + 0.5f) - 1 - gap / 2,
                                         y + rowHeight - 1 - gap / 2);
        }
        y += rowHeight;
    }
}

const KeyboardKey *Keyboard::keyAt(const Place &place) const
{
    if (place.row < 0 || place.row >= int(rows_.size()))
        return nullptr;
    const KeyboardRow &row = rows_[std::size_t(place.row)];
    return place.column >= 0 && place.column < int(row.size()) ? &row[std::size_t(place.column)]
                                                               : nullptr;
}

Keyboard::Place Keyboard::placeAt(const ZrPoint &at) const
{
    for (int row = 0; row < int(rows_.size()); ++row)
        for (int column = 0; column < int(rows_[std::size_t(row)].size()); ++column)
            if (rows_[std::size_t(row)][std::size_t(column)].rect.contains(at))
                return {row, column};
    return {};
}

void Keyboard::updateKey(const Place &place)
{
    if (const KeyboardKey *key = keyAt(place))
        update(key->rect);
}

void Keyboard::setPlace(Place &which, const Place &place)
{
    if (which == place)
        return;
    updateKey(which);
    which = place;
    updateKey(which);
}

void Keyboard::setCurrent(int row, int column)
{
    updateKey({row_, column_});
    row_ = row;
    column_ = column;
    wishedX_ = -1;
    updateKey({row_, column_});
}

bool Keyboard::press(int row, int column)
{
    const KeyboardKey *key = keyAt({row, column});
    if (!key)
        return false;
    const ZrGuard<Keyboard> self(this);
    const KeyboardKey copy = *key; // its row may be replaced
    act(copy);
    return bool(self);
}

void Keyboard::act(const KeyboardKey &key)
{
    switch (key.action) {
    case KeyboardKey::Type:
        typed(key.text);
        break;
    case KeyboardKey::Erase:
        erase();
        break;
    case KeyboardKey::Left:
        send(Zr::Key_Left);
        break;
    case KeyboardKey::Right:
        send(Zr::Key_Right);
        break;
    case KeyboardKey::Done: {
        // The field is told first, while it still looks served: Enter then ends the entry.
        const ZrGuard<Keyboard> self(this);
        if (send(Zr::Key_Enter) && self)
            close();
        break;
    }
    default:
        break;
    }
}

void Keyboard::typed(const ZrString &text)
{
    send(0, text);
}

void Keyboard::erase()
{
    send(Zr::Key_Backspace);
}

bool Keyboard::send(int key, const ZrString &text)
{
    if (!target_)
        return false;
    ZrKeyEvent event(ZrEvent::KeyPress, key, text);
    ZrApplication::notify(target_.get(), &event);
    return bool(target_);
}

// --- arrows ---

bool Keyboard::leftKey()
{
    walk(0, -1);
    return true;
}

bool Keyboard::rightKey()
{
    walk(0, 1);
    return true;
}

bool Keyboard::upKey()
{
    walk(-1, 0);
    return true;
}

bool Keyboard::downKey()
{
    walk(1, 0);
    return true;
}

void Keyboard::clickKey()
{
    press(row_, column_);
}

int Keyboard::nearestColumn(int row, int x) const
{
    const KeyboardRow &keys = rows_[std::size_t(row)];
    const auto away = [x](const KeyboardKey &key) {
        return x < key.rect.left() ? key.rect.left() - x : std::max(0, x - key.rect.right());
    };
    const auto nearest = std::min_element(
        keys.begin(), keys.end(), [&away](const KeyboardKey &left, const KeyboardKey &right) {
            return away(left) < away(right);
        });
    return int(nearest - keys.begin());
}

void Keyboard::walk(int rows, int columns)
{
    const Place before{row_, column_};
    if (columns != 0) {
        const int count = int(rows_[std::size_t(row_)].size());
        column_ = (column_ + columns + count) % count;
        wishedX_ = -1;
    } else {
        if (wishedX_ < 0)
            wishedX_ = keyAt(before)->rect.center().x();
        const int count = int(rows_.size());
        do
            row_ = (row_ + rows + count) % count;
        while (rows_[std::size_t(row_)].empty());
        column_ = nearestColumn(row_, wishedX_);
    }
    updateKey(before);
    updateKey({row_, column_});
}

void Keyboard::goToDone()
{
    for (int row = 0; row < int(rows_.size()); ++row)
        for (int column = 0; column < int(rows_[std::size_t(row)].size()); ++column)
            if (rows_[std::size_t(row)][std::size_t(column)].action == KeyboardKey::Done)
                setCurrent(row, column);
}

// --- painting ---

KeyboardLook::State Keyboard::stateOf(const Place &place) const
{
    if (place == pressed_)
        return KeyboardLook::On;
    if (place == Place{row_, column_})
        return KeyboardLook::Focus;
    return place == hovered_ ? KeyboardLook::Hover : KeyboardLook::Normal;
}

void Keyboard::paintEvent(ZrPaintEvent *event)
{
    ZrPainter painter(this);
    look_.drawGround(painter, rect());
    for (int row = 0; row < int(rows_.size()); ++row)
        for (int column = 0; column < int(rows_[std::size_t(row)].size()); ++column) {
            const KeyboardKey &key = rows_[std::size_t(row)][std::size_t(column)];
            if (event->region().intersects(key.rect))
                look_.drawKey(painter, key, stateOf({row, column}));
        }
}

// --- events ---

void Keyboard::keyPressEvent(ZrKeyEvent *event)
{
    if (event->key() == Zr::Key_Escape)
        close();
    else if (event->key() == Zr::Key_Backspace)
        erase();
    else if (event->text().isEmpty())
        CWidget::keyPressEvent(event);
    else
        typedOnKeyboard(event->text());
    event->accept();
}

// Enter then ends the entry.
void Keyboard::typedOnKeyboard(const ZrString &text)
{
    const ZrGuard<Keyboard> self(this);
    typed(text);
    if (self)
        goToDone();
}

void Keyboard::mousePressEvent(ZrMouseEvent *event)
{
    event->accept();
    if (!rect().contains(event->position()))
        return pressedOutside(event->globalPosition());
    if (event->button() != Zr::LeftButton)
        return;
    const Place at = placeAt(event->position());
    const KeyboardKey *key = keyAt(at);
    if (!key)
        return;
    setPlace(pressed_, at);
    setCurrent(at.row, at.column);
    if (!repeats(*key))
        return;
    repeatTimer_.start(RepeatDelayMs);
    press(at.row, at.column);
}

// In the field it moves the cursor.
void Keyboard::pressedOutside(const ZrPoint &at)
{
    auto *entry = dynamic_cast<ZrTextEntry *>(target_.get());
    if (entry && ZrRect(target_->mapToGlobal(ZrPoint(0, 0)), target_->size()).contains(at))
        entry->putCursor(target_->mapFromGlobal(at));
    else
        close();
}

void Keyboard::mouseReleaseEvent(ZrMouseEvent *event)
{
    if (event->button() != Zr::LeftButton)
        return;
    event->accept();
    repeatTimer_.stop();
    const Place was = pressed_;
    setPlace(pressed_, Place());
    const KeyboardKey *key = keyAt(was);
    if (key && !repeats(*key) && placeAt(event->position()) == was)
        press(was.row, was.column);
}

void Keyboard::mouseMoveEvent(ZrMouseEvent *event)
{
    setPlace(hovered_, placeAt(event->position()));
}

void Keyboard::leaveEvent(ZrEvent *)
{
    setPlace(hovered_, Place());
}

void Keyboard::repeat()
{
    const KeyboardKey *key = keyAt(pressed_);
    if (!key || !repeats(*key)) {
        repeatTimer_.stop();
        return;
    }
    repeatTimer_.start(RepeatMs);
    press(pressed_.row, pressed_.column);
}
