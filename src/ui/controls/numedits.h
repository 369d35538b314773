// The numeric fields.
#pragma once

#include "ui/controls/numeditbase.h"

#include <zrtime>

// A number of a fixed count of digits, with zeros before it.
class NumFixedEdit : public NumEditBase
{
    ZR_OBJECT(NumFixedEdit, NumEditBase)
public:
    // 1 to 9 digits.
    explicit NumFixedEdit(int digits, ZrWidget *parent = nullptr);

    int value() const { return numberValue(0); }
    void setValue(int value) { setNumberValues({value}); }
};

// A number of a range. What is typed may be below it until the field is left.
class ZrNumEdit : public NumEditBase
{
    ZR_OBJECT(ZrNumEdit, NumEditBase)
public:
    explicit ZrNumEdit(ZrWidget *parent = nullptr);

    int minimum() const { return number(0).least; }
    int maximum() const { return number(0).most; }
    void setRange(int minimum, int maximum);
    int value() const { return numberValue(0); }
    void setValue(int value) { setNumberValues({value}); }
};

// An IPv4 address.
class ZrIpEdit : public NumEditBase
{
    ZR_OBJECT(ZrIpEdit, NumEditBase)
public:
    explicit ZrIpEdit(ZrWidget *parent = nullptr);

    ZrString address() const { return text(); }
    // False, and nothing changed, for what is no address.
    bool setAddress(const ZrString &address) { return readNumbers(address); }
    bool isNull() const;
};

class ZrTimeEdit : public NumEditBase
{
    ZR_OBJECT(ZrTimeEdit, NumEditBase)
public:
    enum Form { HoursAndMinutes, WithSeconds };
    explicit ZrTimeEdit(Form form = HoursAndMinutes, ZrWidget *parent = nullptr);

    ZrTime time() const;
    // An invalid one changes nothing.
    void setTime(const ZrTime &time);
};
