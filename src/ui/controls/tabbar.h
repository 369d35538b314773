// A row of tabs. It draws them itself.
//
// Left and Right move the ring, Enter makes the tab under it the current one; so does a press.
#pragma once

#include "ui/controls/cwidget.h"

class ZrIniFile;
class ZrPainter;

class TabBar : public CWidget
{
    ZR_OBJECT(TabBar, CWidget)
public:
    explicit TabBar(ZrWidget *parent = nullptr);

    ZrSignal currentChanged; // for any reason; read currentIndex()

    // The first tab becomes the current one.
    int addTab(const ZrString &text, int data = 0);
    void setTabText(int index, const ZrString &text);
    void setTabEnabled(int index, bool enabled);
    void clear();
    int count() const { return tabs_.size(); }
    const ZrString &tabText(int index) const { return tabs_.at(index).text; }
    int tabData(int index) const { return tabs_.at(index).data; }

    // -1: none.
    int currentIndex() const { return current_; }
    // Ignored out of range, and for a disabled tab.
    void setCurrentIndex(int index);
    // The tab with the ring while the bar has the focus.
    int focusedTab() const { return focused_; }

    // Units of the narrowest tab and of the text; tabs that do not fit become narrower together.
    void setTabUnits(float narrowest, float font);
    // Whether the ground of what it stands on shows between and behind plain tabs.
    void setClear(bool clear);
    ZrRect tabRect(int index) const;
    ZrSize sizeHint() const override;

    void focusIn(const ZrPoint &point) override;
    bool leftKey() override { return moveFocus(-1); }
    bool rightKey() override { return moveFocus(1); }
    void clickKey() override { setCurrentIndex(focused_); }

protected:
    void paintEvent(ZrPaintEvent *event) override;
    void mousePressEvent(ZrMouseEvent *event) override;
    void mouseMoveEvent(ZrMouseEvent *event) override;
    void leaveEvent(ZrEvent *event) override;
    void focusInEvent(ZrFocusEvent *event) override;
    void focusOutEvent(ZrFocusEvent *event) override;
    void resizeEvent(ZrResizeEvent *event) override;

private:
    enum Look { Normal, Hover, Focus, Disabled, Current, Looks };
    struct Tab {
        ZrString text;
        int data;
        bool enabled;
        int left; // pixels, as laid out
        int width;
    };
    void readStyle(const ZrIniFile &file);
    bool moveFocus(int direction);
    void setHovered(int index);
    void setFocused(int index);
    void updateTab(int index);
    void layTabs();
    int tabAt(const ZrPoint &point) const;
    ZrFont tabFont() const;
    int wantedWidth(const Tab &tab) const;
    void paintTab(ZrPainter &painter, int index) const;

    ZrList<Tab> tabs_;
    int current_ = -1;
    int focused_ = -1;
    int hovered_ = -1;
    bool clear_ = false;
    float narrowestUnits_ = 104;
    float fontUnits_ = 17;
    ZrColor ground_;
    ZrColor foreground_[Looks];
    ZrColor background_[Looks];
    ZrColor ring_;
    ZrColor currentLine_;
    ZrColor bottomLine_;
    int ringUnits_ = 0;
    int currentLineUnits_ = 0;
    int bottomLineUnits_ = 0;
};
