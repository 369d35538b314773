#include <zrtiplabel>

#include "widgets/style/boxmodel.h"

#include <algorithm>
#include <zrfontmetrics>
#include <zrscreen>

namespace
{

constexpr int PointerHeight = 24; // pixels; what the pointer's picture covers below its tip
constexpr int WidestPart = 3;     // of the screen's width

ZrRect screenRect()
{
    return ZrScreen::instance() ? ZrScreen::instance()->rect() : ZrRect();
}

} // namespace

ZrTipLabel::ZrTipLabel(ZrWidget *parent) : ZrWidget(parent)
{
    setAttribute(MouseTransparent);
    setAttribute(StayOnTop);
}

void ZrTipLabel::setText(const ZrString &text)
{
    if (text == text_)
        return;
    text_ = text;
    adjustSize();
    update();
}

void ZrTipLabel::showAt(const ZrPoint &global)
{
    const ZrRect screen = screenRect();
    const ZrSize size = sizeHint();
    const int below = global.y() + PointerHeight;
    const bool fitsBelow = below + size.height() <= screen.height();
    const int y = fitsBelow ? below : global.y() - size.height();
    const int x = std::min(global.x(), screen.width() - size.width());
    setGeometry(ZrRect(std::max(0, x), std::max(0, y), size.width(), size.height()));
    show();
    raise();
}

ZrSize ZrTipLabel::sizeHint() const
{
    const BoxModel box(*this, style().toolTip());
    const ZrSize around = box.surplus();
    const int widest = std::max(1, screenRect().width() / WidestPart - around.width());
    ZrFontMetrics text(text_, box.font(), widest);
    text.setWorpWrap(true);
    return ZrSize(text.sizeHint().width() + around.width(),
                  text.sizeHint().height() + around.height());
}

void ZrTipLabel::paintEvent(ZrPaintEvent *)
{
    const BoxModel box(*this, style().toolTip());
    ZrPainter painter(this);
    const ZrRect contents = box.draw(painter, rect());
    if (box.prepareText(painter))
        painter.drawText(contents, Zr::AlignLeft | Zr::AlignVCenter | Zr::TextWordWrap, text_);
}
