#include <zrstyle>

#include "widgets/style/boxmodel.h"
#include "widgets/style/stylepainter.h"

#include <zrlabel>

const std::shared_ptr<ZrStyleOption> &ZrStyle::nothing()
{
    static const auto empty = std::make_shared<ZrStyleOption>();
    return empty;
}

ZrStyle::ZrStyle() : options_(nothing()) {}

ZrStyle::~ZrStyle() = default;

ZrStyle::ZrStyle(const ZrStyle &other) : options_(other.options_) {}

ZrStyle &ZrStyle::operator=(const ZrStyle &other)
{
    options_ = other.options_;
    own_ = false;
    return *this;
}

ZrStyle &ZrStyle::applicationStyle()
{
    static ZrStyle style = [] {
        ZrStyle own;
        own.options_ = std::make_shared<ZrStyleOption>();
        return own;
    }();
    return style;
}

void ZrStyle::drawWidget(ZrWidget *widget, const ZrWidgetOption *group) const
{
    if (!zrIsPaintable(widget))
        return;
    const ZrWidgetOption &option = group ? *group : this->widget();
    const ZrColor *background = option.background.get(zrIndex(ZrVisualState::Normal));
    if (!background)
        return;
    ZrPainter painter(widget);
    painter.fillRect(widget->rect(), *background);
}

void ZrStyle::drawFrame(ZrWidget *widget, const ZrFrameOption *group) const
{
    if (!zrIsPaintable(widget))
        return;
    ZrPainter painter(widget);
    BoxModel(*widget, group ? *group : frame()).draw(painter, widget->rect());
}

void ZrStyle::drawLabel(ZrWidget *widget, const ZrLabelOption *group) const
{
    const auto *label = zrPaintableAs<ZrLabel>(widget);
    if (!label)
        return;
    const BoxModel box(*widget, group ? *group : this->label());
    ZrPainter painter(widget);
    const ZrRect contents = box.draw(painter, widget->rect());
    if (!label->shownText().isEmpty() && box.prepareText(painter))
        painter.drawText(contents, label->alignment() | (label->wordWrap() ? Zr::TextWordWrap : 0),
                         label->shownText());
}
