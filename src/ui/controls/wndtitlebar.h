// The header of a window: its picture, its title, a hint, and the button that closes it. Tabs may
// stand between title and button.
#pragma once

#include "ui/controls/uiwidget.h"

#include <zrpixmap>

class IconButton;

class WndTitleBar : public UiWidget
{
    ZR_OBJECT(WndTitleBar, UiWidget)
public:
    static constexpr float HeightUnits = 52;

    explicit WndTitleBar(ZrWidget *parent = nullptr);

    ZrSignal closeClicked;

    const ZrString &title() const { return title_; }
    void setTitle(const ZrString &title);
    // Stands behind the title, smaller and dimmer.
    const ZrString &hint() const { return hint_; }
    void setHint(const ZrString &hint);
    // Path relative to the resources.
    void setPicture(const char *path);
    IconButton *closeButton() const { return closeButton_; }
    // What title and button leave free, in own coordinates.
    ZrRect freeRect() const;

    ZrSize sizeHint() const override;

protected:
    void layOut() override;
    void paintEvent(ZrPaintEvent *event) override;

private:
    void closeWasClicked();
    ZrRect pictureRect() const;
    ZrRect titleRect() const;
    ZrRect hintRect() const;

    IconButton *closeButton_;
    ZrPixmap picture_;
    ZrString title_;
    ZrString hint_;
    ZrColor titleColor_;
    ZrColor hintColor_;
    ZrColor lineColor_;
    int titleUnits_;
    int hintUnits_;
    int lineUnits_;
};
