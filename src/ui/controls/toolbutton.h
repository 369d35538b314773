// A button of a tool bar: a picture, and a bar under it while it is checked.
#pragma once

#include "ui/controls/iconbutton.h"

class ToolButton : public IconButton
{
    ZR_OBJECT(ToolButton, IconButton)
public:
    static constexpr float SideUnits = 44;

    explicit ToolButton(ZrWidget *parent = nullptr) : ToolButton(StatePictures(), parent) {}
    ToolButton(const StatePictures &pictures, ZrWidget *parent = nullptr);

    ZrSize sizeHint() const override;

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    ZrColor bar_;
};
