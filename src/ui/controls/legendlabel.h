// An entry of a chart's legend: a square in the colour, and what it stands for.
#pragma once

#include <zrlabel>

class LegendLabel : public ZrLabel
{
    ZR_OBJECT(LegendLabel, ZrLabel)
public:
    LegendLabel(const ZrColor &color, const ZrString &text, ZrWidget *parent = nullptr);

    const ZrColor &color() const { return color_; }
    void setColor(const ZrColor &color);

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    ZrColor color_;
};
