#include <zrstyle>

#include <zrlabel>
#include <zrpainter>
#include <zrwidget>

ZrStyle::ZrStyle() = default;

ZrStyle::~ZrStyle() = default;

ZrStyle &ZrStyle::applicationStyle()
{
    static ZrStyle style;
    return style;
}

ZrWidgetOption &ZrStyle::writable(std::shared_ptr<ZrWidgetOption> &group)
{
    if (this == &applicationStyle())
        return *group;
    if (group.use_count() > 1)
        group = std::make_shared<ZrWidgetOption>(*group);
    own_ = true;
    return *group;
}

ZrWidgetOption &ZrStyle::widgetOption()
{
    return writable(groups_.widget);
}

ZrWidgetOption &ZrStyle::labelOption()
{
    return writable(groups_.label);
}

void ZrStyle::drawWidget(ZrWidget *widget) const
{
    const ZrColor *background = groups_.widget->background.get(Zr::Normal);
    if (!background)
        return;
    ZrPainter painter(widget);
    painter.fillRect(widget->rect(), *background);
}

void ZrStyle::drawLabel(ZrLabel *label) const
{
    const int state = label->isEnabled() ? Zr::Normal : Zr::DisabledState;
    const ZrColor *background = groups_.label->background.get(state);
    const ZrColor *foreground = groups_.label->foreground.get(state);
    if (!foreground)
        foreground = groups_.label->foreground.get(Zr::Normal);
    ZrPainter painter(label);
    if (background)
        painter.fillRect(label->rect(), *background);
    if (!foreground || label->text().isEmpty())
        return;
    painter.setPen(*foreground);
    painter.setFont(label->font(0));
    painter.drawText(label->rect(), label->alignment(), label->text());
}
