// The base of the numeric fields: numbers of fixed ranges with a separator between them, such as
// the four of an IPv4 address. The text always has that shape.
//
// One number is current and shown as selected. The first digit typed into it replaces it, the next
// ones are appended; a number that can take no more digits passes the turn to the next one. Left,
// Right and the separator change the current number too; Backspace takes digits away and then goes
// back.
#pragma once

#include "ui/controls/keyboardfield.h"

#include <vector>

class NumEditBase : public KeyboardField
{
    ZR_OBJECT(NumEditBase, KeyboardField)
public:
    void putCursor(const ZrPoint &at) override;

protected:
    struct Number {
        int least;
        int most;
        int digits;  // that can be typed
        bool padded; // with zeros, to as many digits
    };

    NumEditBase(std::vector<Number> numbers, ZrUcs2 separator, ZrWidget *parent);

    int count() const { return int(numbers_.size()); }
    const Number &number(int index) const { return numbers_[std::size_t(index)].limits; }
    void setNumberRange(int index, int least, int most);
    // Within the range, also while something else is being typed.
    int numberValue(int index) const;
    void setNumberValues(const std::vector<int> &values);
    // Reads numbers with this field's separators; false, and nothing changed, for anything else.
    bool readNumbers(const ZrString &text);

    Keyboard *makeKeyboard() override;
    void commit() override;
    void keyPressEvent(ZrKeyEvent *event) override;
    void mouseMoveEvent(ZrMouseEvent *event) override;
    void mouseDoubleClickEvent(ZrMouseEvent *event) override;
    void focusInEvent(ZrFocusEvent *event) override;
    void focusOutEvent(ZrFocusEvent *event) override;

private:
    struct Entry {
        Number limits;
        int value;
        bool empty = false;
    };

    ZrString entryText(const Entry &entry) const;
    void showNumbers();
    void selectCurrent();
    bool goTo(int index);
    void typeCharacter(ZrUcs2 unit);
    void typeDigit(int digit);
    void takeDigit();
    void settle();

    std::vector<Entry> numbers_;
    ZrUcs2 separator_;
    int current_ = 0;
    int typed_ = 0; // digits typed into the current number since it became current
};
