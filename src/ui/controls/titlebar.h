// The header line of a panel: a title, and a line below it.
#pragma once

#include <zrlabel>

class TitleBar : public ZrLabel
{
    ZR_OBJECT(TitleBar, ZrLabel)
public:
    static constexpr float HeightUnits = 40;

    explicit TitleBar(const ZrString &title = ZrString(), ZrWidget *parent = nullptr);

    ZrSize sizeHint() const override;

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    ZrColor line_;
    int lineUnits_;
};
