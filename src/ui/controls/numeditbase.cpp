#include "ui/controls/numeditbase.h"

#include "ui/keyboard/numkeyboard.h"

#include <algorithm>
#include <cstdlib>
#include <zrguard>
#include <zrstringlist>

NumEditBase::NumEditBase(std::vector<Number> numbers, ZrUcs2 separator, ZrWidget *parent)
    : KeyboardField(parent), separator_(separator)
{
    for (const Number &limits : numbers)
        numbers_.push_back({limits, std::max(0, limits.least)});
    showNumbers();
}

void NumEditBase::setNumberRange(int index, int least, int most)
{
    Entry &entry = numbers_[std::size_t(index)];
    entry.limits.least = least;
    entry.limits.most = std::max(least, most);
    entry.value = std::clamp(entry.value, least, entry.limits.most);
    showNumbers();
}

int NumEditBase::numberValue(int index) const
{
    const Entry &entry = numbers_[std::size_t(index)];
    return std::clamp(entry.empty ? 0 : entry.value, entry.limits.least, entry.limits.most);
}

void NumEditBase::setNumberValues(const std::vector<int> &values)
{
    for (std::size_t i = 0; i < std::min(values.size(), numbers_.size()); ++i) {
        Entry &entry = numbers_[i];
        entry.value = std::clamp(values[i], entry.limits.least, entry.limits.most);
        entry.empty = false;
    }
    typed_ = 0;
    showNumbers();
}

bool NumEditBase::readNumbers(const ZrString &text)
{
    const ZrStringList parts = text.split(separator_);
    if (parts.size() != count())
        return false;
    std::vector<int> values;
    for (int i = 0; i < count(); ++i) {
        bool isNumber = false;
        const int value = parts.at(i).toInt(&isNumber);
        if (!isNumber || value < number(i).least || value > number(i).most)
            return false;
        values.push_back(value);
    }
    setNumberValues(values);
    return true;
}

// --- text ---

ZrString NumEditBase::entryText(const Entry &entry) const
{
    if (entry.empty && !entry.limits.padded)
        return ZrString();
    return entry.limits.padded ? ZrString("%1").arg(entry.value, entry.limits.digits, 10, '0')
                               : ZrString::number(entry.value);
}

void NumEditBase::showNumbers()
{
    ZrString text;
    for (const Entry &entry : numbers_) {
        if (&entry != &numbers_.front())
            text += separator_;
        text += entryText(entry);
    }
    const ZrGuard<NumEditBase> self(this);
    setText(text);
    if (self)
        selectCurrent();
}

void NumEditBase::selectCurrent()
{
    int from = 0;
    for (int i = 0; i < current_; ++i)
        from += entryText(numbers_[std::size_t(i)]).size() + 1;
    const int to = from + entryText(numbers_[std::size_t(current_)]).size();
    if (isActive() && (typed_ == 0 || count() > 1))
        setSelection(from, to);
    else
        setCursorPosition(to);
}

bool NumEditBase::goTo(int index)
{
    if (index < 0 || index >= count())
        return false;
    const bool moved = index != current_;
    current_ = index;
    typed_ = 0;
    selectCurrent();
    return moved;
}

// --- keys ---

void NumEditBase::keyPressEvent(ZrKeyEvent *event)
{
    if (isReadOnly())
        return;
    switch (event->key()) {
    case Zr::Key_Left:
        event->setAccepted(goTo(current_ - 1));
        return;
    case Zr::Key_Right:
        event->setAccepted(goTo(current_ + 1));
        return;
    case Zr::Key_Backspace:
        event->accept();
        takeDigit();
        return;
    case Zr::Key_Enter:
        KeyboardField::keyPressEvent(event);
        return;
    default:
        break;
    }
    if (event->text().isEmpty())
        return;
    event->accept();
    noteTyped();
    const ZrString text = event->text();
    const ZrGuard<NumEditBase> self(this);
    for (int i = 0; i < text.size() && self; ++i)
        typeCharacter(text.at(i));
}

void NumEditBase::typeCharacter(ZrUcs2 unit)
{
    if (unit >= '0' && unit <= '9') {
        typeDigit(unit - '0');
    } else if (unit == '-' && number(current_).least < 0) {
        numbers_[std::size_t(current_)].value *= -1;
        showNumbers();
    } else if (unit == separator_ && typed_ > 0) {
        goTo(current_ + 1);
    }
}

void NumEditBase::typeDigit(int digit)
{
    const auto isTooMuch = [](const Number &limits, long long value) {
        return value > limits.most || value < std::min(0, limits.least);
    };
    const Entry &now = numbers_[std::size_t(current_)];
    const long long before = typed_ > 0 && !now.empty ? now.value : 0;
    long long value = before * 10 + (before < 0 ? -digit : digit);
    if (typed_ > 0 && (typed_ >= now.limits.digits || isTooMuch(now.limits, value))) {
        // The digit can only be meant for the next number.
        if (!goTo(current_ + 1))
            return;
        value = digit;
    }
    Entry &entry = numbers_[std::size_t(current_)];
    if (isTooMuch(entry.limits, value))
        return;
    entry.value = int(value);
    entry.empty = false;
    ++typed_;
    const bool isFull =
        typed_ >= entry.limits.digits || isTooMuch(entry.limits, entry.value * 10LL);
    if (isFull && current_ + 1 < count()) {
        ++current_;
        typed_ = 0;
    }
    showNumbers();
}

void NumEditBase::takeDigit()
{
    Entry &entry = numbers_[std::size_t(current_)];
    const bool isBare = entry.empty || (entry.value == 0 && (entry.limits.padded || count() > 1));
    if (isBare) {
        goTo(current_ - 1);
        return;
    }
    entry.empty = std::abs(entry.value) < 10 && !entry.limits.padded && count() == 1;
    entry.value /= 10;
    typed_ = std::max(1, typed_ - 1);
    showNumbers();
}

// What was typed last may be below the least.
void NumEditBase::settle()
{
    typed_ = 0;
    for (int i = 0; i < count(); ++i) {
        const int value = numberValue(i);
        numbers_[std::size_t(i)].value = value;
        numbers_[std::size_t(i)].empty = false;
    }
    showNumbers();
}

void NumEditBase::commit()
{
    const ZrGuard<NumEditBase> self(this);
    settle();
    if (self)
        KeyboardField::commit();
}

Keyboard *NumEditBase::makeKeyboard()
{
    const bool isSigned = number(0).least < 0;
    return new NumKeyboard(this, isSigned      ? ZrString("-")
                                 : count() > 1 ? ZrString(separator_)
                                               : ZrString()); // deletes itself
}

// --- pointer and focus ---

void NumEditBase::putCursor(const ZrPoint &at)
{
    const int position = positionAt(at);
    int index = 0;
    const ZrString all = text();
    for (int i = 0; i < position; ++i)
        index += all.at(i) == separator_ ? 1 : 0;
    goTo(std::min(index, count() - 1));
}

void NumEditBase::mouseMoveEvent(ZrMouseEvent *event)
{
    event->accept();
}

void NumEditBase::mouseDoubleClickEvent(ZrMouseEvent *event)
{
    mousePressEvent(event);
}

void NumEditBase::focusInEvent(ZrFocusEvent *event)
{
    KeyboardField::focusInEvent(event);
    selectCurrent();
}

void NumEditBase::focusOutEvent(ZrFocusEvent *event)
{
    KeyboardField::focusOutEvent(event);
    if (!isServed())
        settle();
}
