// A menu that pops up. It draws its rows itself.
//
// By pointer: hover and click. By keys: Up and Down walk, round the ends; Enter chooses; Escape
// closes. A choice closes the menu, and then emits `triggered`. Made with `new`, shown by popup(),
// a menu deletes itself once it is closed.
#pragma once

#include "ui/controls/cwidget.h"
#include "ui/controls/menuitem.h"
#include "ui/controls/menulook.h"

#include <memory>
#include <vector>

class ZrPainter;

class Menu : public CWidget
{
    ZR_OBJECT(Menu, CWidget)
public:
    Menu();

    ZrSignal triggered; // read triggeredItem()

    // The menu owns its items; change them before it is shown, or call update() after.
    MenuItem *addItem(int action, int textId);
    MenuItem *addItem(int action, const ZrString &text);
    // A line behind the last item.
    void addSeparator();
    int count() const { return int(items_.size()); }
    MenuItem *item(int index) const { return items_[std::size_t(index)].get(); }
    // Null when there is none with that number.
    MenuItem *itemByAction(int action) const;
    const MenuItem *triggeredItem() const { return triggered_; }

    void setLook(const MenuLook &look);
    // Units; the width is a lower limit, texts may need more.
    void setItemUnits(float width, float height);

    // Which corner of the menu stands at the point.
    enum class Corner { TopLeft, TopRight, BottomLeft, BottomRight };
    // Shows it there, or as near as the screen allows.
    void popup(const ZrPoint &global, Corner corner = Corner::TopLeft);

    // The row under the pointer or chosen by keys; -1: none.
    int currentRow() const { return current_; }
    ZrRect itemRect(int index) const; // empty for one that does not show
    ZrSize sizeHint() const override;

    bool upKey() override { return walk(-1); }
    bool downKey() override { return walk(1); }
    void clickKey() override;

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void mousePressEvent(ZrMouseEvent *event) override;
    void mouseReleaseEvent(ZrMouseEvent *event) override;
    void mouseMoveEvent(ZrMouseEvent *event) override;
    void leaveEvent(ZrEvent *event) override;

private:
    bool walk(int direction);
    void setCurrent(int index);
    void trigger(int index);
    void retranslate();
    int itemAt(const ZrPoint &point) const;
    int itemHeight() const;
    bool canChoose(int index) const { return item(index)->visible && item(index)->enabled; }
    bool hasPictures() const;
    void paintItem(ZrPainter &painter, int index) const;

    std::vector<std::unique_ptr<MenuItem>> items_;
    const MenuItem *triggered_ = nullptr;
    MenuLook look_;
    float widthUnits_ = 120;
    float heightUnits_ = 44;
    int current_ = -1;
    bool byKeys_ = false; // the current row was chosen by keys, and has the ring
};
