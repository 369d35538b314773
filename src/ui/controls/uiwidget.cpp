#include "ui/controls/uiwidget.h"

#include "ui/stylefiles.h"

#include <zrpainter>
#include <zrtranslation>

UiWidget::UiWidget(ZrWidget *parent)
    : ZrWidget(parent),
      ground_(styleFile("style/uiwidget.ini").colorValue(ZrString("UiWidget/Background")))
{
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&UiWidget::retranslate>);
}

void UiWidget::setGround(const ZrColor &color)
{
    if (color == ground_)
        return;
    ground_ = color;
    update();
}

void UiWidget::paintEvent(ZrPaintEvent *)
{
    ZrPainter(this).fillRect(rect(), ground_);
}

void UiWidget::resizeEvent(ZrResizeEvent *)
{
    layOut();
}
