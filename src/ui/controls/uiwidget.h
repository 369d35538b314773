// The base of the top-level screens: the common ground, and the moments at which a screen lays
// itself out and sets its texts.
#pragma once

#include <zrwidget>

class UiWidget : public ZrWidget
{
    ZR_OBJECT(UiWidget, ZrWidget)
public:
    explicit UiWidget(ZrWidget *parent = nullptr);

    const ZrColor &ground() const { return ground_; }
    void setGround(const ZrColor &color);

protected:
    // The size has changed: place the children.
    virtual void layOut() {}
    // The language has changed: set all texts. The constructor of a screen calls it itself.
    virtual void retranslate() {}

    void paintEvent(ZrPaintEvent *event) override;
    void resizeEvent(ZrResizeEvent *event) override;

private:
    ZrColor ground_;
};
