// An on-screen keyboard: a popup that works for one widget and sends it what is typed as key
// events. Pointer: press a key. Arrows walk over the keys, Enter presses, Backspace deletes, Escape
// closes. Text of a real keyboard, or the digits of a remote, passes through, and puts the ring on
// the key that ends the entry: Enter there ends it.
//
// It deletes itself when it is closed, and closes when its widget goes or hides. Nothing that is
// typed is kept. Widget thread only.
#pragma once

#include "ui/controls/cwidget.h"
#include "ui/keyboard/keyboardkey.h"
#include "ui/keyboard/keyboardlook.h"

#include <zrguard>
#include <zrtimer>

class Keyboard : public CWidget
{
    ZR_OBJECT(Keyboard, CWidget)
public:
    explicit Keyboard(ZrWidget *target);
    ~Keyboard() override;

    // Below the widget that it works for, or above where there is more room; always whole on the
    // screen.
    void open();
    ZrWidget *target() const { return target_.get(); }

    const std::vector<KeyboardRow> &rows() const { return rows_; }
    // As a finger on it would; true when it was still there.
    bool press(int row, int column);
    int currentRow() const { return row_; }
    int currentColumn() const { return column_; }

    bool eventFilter(ZrObject *watched, ZrEvent *event) override;
    bool leftKey() override;
    bool rightKey() override;
    bool upKey() override;
    bool downKey() override;
    void clickKey() override;

protected:
    // Takes the rows and places the keys in `columns` key widths; a row that is shorter is centred.
    // The current key stays at its place.
    void setRows(std::vector<KeyboardRow> rows, float columns, int rowUnits);
    void setCurrent(int row, int column);
    const KeyboardLook &look() const { return look_; }
    // Last in its handler: the keyboard may close.
    virtual void act(const KeyboardKey &key);
    virtual void typed(const ZrString &text);
    virtual void erase();
    // To the widget; false when it is gone.
    bool send(int key, const ZrString &text = ZrString());

    void paintEvent(ZrPaintEvent *event) override;
    void keyPressEvent(ZrKeyEvent *event) override;
    void mousePressEvent(ZrMouseEvent *event) override;
    void mouseReleaseEvent(ZrMouseEvent *event) override;
    void mouseMoveEvent(ZrMouseEvent *event) override;
    void leaveEvent(ZrEvent *event) override;
    void hideEvent(ZrHideEvent *event) override;

private:
    struct Place {
        int row = -1;
        int column = -1;
        bool operator==(const Place &other) const
        {
            return row == other.row && column == other.column;
        }
        bool operator!=(const Place &other) const { return !(*this == other); }
    };

    const KeyboardKey *keyAt(const Place &place) const;
    Place placeAt(const ZrPoint &at) const;
    void updateKey(const Place &place);
    void setPlace(Place &which, const Place &place);
    void walk(int rows, int columns);
    void typedOnKeyboard(const ZrString &text);
    void goToDone();
    int nearestColumn(int row, int x) const;
    void placeBesideTarget();
    void placeKeys(float columns, int rowHeight);
    KeyboardLook::State stateOf(const Place &place) const;
    void pressedOutside(const ZrPoint &at);
    void repeat();
    void targetGone();
    void tellServed(bool served);

    ZrGuard<ZrWidget> target_;
    KeyboardLook look_;
    std::vector<KeyboardRow> rows_;
    ZrTimer repeatTimer_;
    int row_ = 0;
    int column_ = 0;
    int wishedX_ = -1; // where Up and Down would like to go
    Place pressed_;
    Place hovered_;
};
