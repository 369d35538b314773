// The base of composite widgets: drawn as one, and walked by the keys as one.
#pragma once

#include <zrwidget>

class CWidget : public ZrWidget
{
    ZR_OBJECT(CWidget, ZrWidget)
public:
    explicit CWidget(ZrWidget *parent = nullptr) : ZrWidget(parent) {}

    // The keys have come to the widget at a point of it, or have left it there.
    virtual void focusIn(const ZrPoint &) {}
    virtual void focusOut(const ZrPoint &) {}
    // True when the arrow moved something inside; otherwise the focus moves on.
    virtual bool leftKey() { return false; }
    virtual bool rightKey() { return false; }
    virtual bool upKey() { return false; }
    virtual bool downKey() { return false; }
    // Enter.
    virtual void clickKey() {}

protected:
    // Tells keys to the operations above.
    void keyPressEvent(ZrKeyEvent *event) override;
};
