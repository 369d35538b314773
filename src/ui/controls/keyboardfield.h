// The base of the recorder's fields: Enter and a click open a keyboard on the screen, whose Enter
// then ends the entry. So does Enter after text that came straight from a real keyboard or from the
// digits of a remote.
#pragma once

#include <zrlineedit>

class Keyboard;

class KeyboardField : public ZrLineEdit
{
    ZR_OBJECT(KeyboardField, ZrLineEdit)
public:
    explicit KeyboardField(ZrWidget *parent = nullptr);

    // What was entered is wrong: the border tells. The reason stands beside the field.
    bool hasError() const { return error_; }
    void setError(bool error);

    ZrSize sizeHint() const override;

protected:
    // A new keyboard for this field; it deletes itself.
    virtual Keyboard *makeKeyboard() = 0;
    // For fields that take keys themselves: tells of one that carries text.
    void noteTyped() { typedHere_ = !isServed(); }
    void commit() override;
    void clicked() override;
    int trailingRoom() const override;
    void paintEvent(ZrPaintEvent *event) override;
    void keyPressEvent(ZrKeyEvent *event) override;
    void focusOutEvent(ZrFocusEvent *event) override;

private:
    void openKeyboard();

    bool error_ = false;
    bool typedHere_ = false; // since the field got the focus, without the keyboard on the screen
};
