#include <zrpainter>

#include "gfx/lineclip.h"
#include "gfx/painterclip.h"

#include <zrimage>

#include <algorithm>
#include <cmath>

ZrPainter::ZrPainter(ZrPaintDevice *device)
{
    ZrPaintSetup setup;
    if (!device || !device->beginPaint(setup))
        return;
    canvas_ = setup.canvas;
    rect_ = setup.rect;
    paintRegion_ = setup.paintRegion & ZrRegion(setup.rect);
    effective_ = paintRegion_;
    originX_ = setup.originX;
    originY_ = setup.originY;
    state_.font = font_.fontAttr();
}

void ZrPainter::setPen(const ZrPen &pen)
{
    pen_ = pen;
    state_.penColor = pen.color().argb();
    state_.penWidth = pen.width();
}

void ZrPainter::setBrush(const ZrBrush &brush)
{
    brush_ = brush;
}

void ZrPainter::setFont(const ZrFont &font)
{
    font_ = font;
    state_.font = font.fontAttr();
}

void ZrPainter::setClipRegion(const ZrRegion &region)
{
    effective_ = paintRegion_ & region;
}

void ZrPainter::setClip(const ZrRect &rect)
{
    state_.clip = {rect.left() + originX_, rect.top() + originY_, rect.right() + originX_,
                   rect.bottom() + originY_};
}

// How far the pen reaches beyond the coordinates it is given.
int ZrPainter::penReach() const
{
    return (pen_.width() + 1) / 2 + (antialias_ ? 1 : 0);
}

void ZrPainter::fillRect(const ZrRect &rect, const ZrBrush &brush)
{
    if (canvas_ && brush.style() != ZrPaintStyle::None)
        fillSolid(rect, brush.color(), brush.style());
}

void ZrPainter::fillSolid(const ZrRegion &shape, const ZrColor &colour, ZrPaintStyle style)
{
    if (style == ZrPaintStyle::Raw) {
        canvas_->fillRegion((effective_ & shape).translated(originX_, originY_), colour);
        return;
    }
    for (const ZrRect &part : shape) {
        forEachClip(part, [&](const ZrRect &rect) {
            state_.brushColor = colour.argb();
            canvas_->fillRect(rect.translated(originX_, originY_));
        });
    }
}

void ZrPainter::drawRect(const ZrRect &rect)
{
    if (!canvas_)
        return;
    if (brush_.isSolidVisible())
        fillRect(rect, brush_);
    if (!pen_.isVisible())
        return;
    const int outside = pen_.width() / 2, inside = pen_.width() - outside;
    const ZrRect outer = rect.adjusted(-outside, -outside, outside, outside);
    const ZrRect inner = rect.adjusted(inside, inside, -inside, -inside);
    fillSolid(ZrRegion(outer) - ZrRegion(inner), pen_.color(), pen_.style());
}

void ZrPainter::drawRects(const ZrList<ZrRect> &rects)
{
    for (const ZrRect &rect : rects)
        drawRect(rect);
}

void ZrPainter::drawRoundedRect(const ZrRect &rect, int rx, int ry, const ZrBrush &brush)
{
    const int x = rect.x(), y = rect.y(), w = rect.width(), h = rect.height();
    const int right = x + w - 2 * rx, bottom = y + h - 2 * ry;
    // A pie's box of even size reaches one pixel less to the left than to the right.
    fillPie(right, y, 2 * rx, 2 * ry, 0, 90, brush);
    fillPie(x - 1, y, 2 * rx, 2 * ry, 90, 90, brush);
    fillPie(x - 1, bottom, 2 * rx, 2 * ry, 180, 90, brush);
    fillPie(right, bottom, 2 * rx, 2 * ry, 270, 90, brush);
    constexpr int kExtraRows = 2;
    fillRect(ZrRect(x + rx, y, w - 2 * rx, ry), brush);
    fillRect(ZrRect(x, y + ry, w, h - 2 * ry), brush);
    fillRect(ZrRect(x + rx, y + h - ry, w - 2 * rx, ry + kExtraRows), brush);
}

void ZrPainter::drawStraight(const ZrPoint &p1, const ZrPoint &p2,
                             void (ZrAbstractCanvas::*line)(qreal, qreal, qreal, qreal, zrargb),
                             int reach)
{
    const ZrRect span = ZrRect::fromEdges(std::min(p1.x(), p2.x()), std::min(p1.y(), p2.y()),
                                          std::max(p1.x(), p2.x()), std::max(p1.y(), p2.y()));
    forEachClip(span.adjusted(-reach, -reach, reach, reach), [&](const ZrRect &rect) {
        // The end pixel of a cut line is left out, so the far edges lie one pixel behind the
        // rectangle; the canvas cuts what is left over.
        LineClip cut{p1.x(), p1.y(), p2.x(), p2.y()};
        cut.clipTo(rect.left() - reach, rect.top() - reach, rect.right() + reach + 1,
                   rect.bottom() + reach + 1);
        if (cut.isZero())
            return;
        (canvas_->*line)(qreal(cut.x1 + originX_), qreal(cut.y1 + originY_),
                         qreal(cut.x2 + originX_), qreal(cut.y2 + originY_), state_.penColor);
    });
}

void ZrPainter::drawLine(const ZrPoint &p1, const ZrPoint &p2)
{
    if (pen_.style() == ZrPaintStyle::None)
        return;
    const int reach = pen_.width() / 2 + (antialias_ ? 1 : 0);
    drawStraight(p1, p2,
                 antialias_ ? &ZrAbstractCanvas::drawSmoothLine : &ZrAbstractCanvas::drawLine,
                 reach);
}

void ZrPainter::drawDotLine(const ZrPoint &p1, const ZrPoint &p2)
{
    if (pen_.style() == ZrPaintStyle::None)
        return;
    const int reach = pen_.width() / 2 + 1;
    const ZrRect span = ZrRect::fromEdges(std::min(p1.x(), p2.x()), std::min(p1.y(), p2.y()),
                                          std::max(p1.x(), p2.x()), std::max(p1.y(), p2.y()));
    // Never cut to a rectangle first: the dashes must start where the line does.
    forEachClip(span.adjusted(-reach, -reach, reach, reach), [&](const ZrRect &) {
        canvas_->drawDotLine(qreal(p1.x() + originX_), qreal(p1.y() + originY_),
                             qreal(p2.x() + originX_), qreal(p2.y() + originY_), state_.penColor);
    });
}

void ZrPainter::drawCircle(int cx, int cy, int radius)
{
    const int reach = radius + penReach();
    forEachClip(ZrRect::fromEdges(cx - reach, cy - reach, cx + reach, cy + reach),
                [&](const ZrRect &) {
                    const int x = cx + originX_, y = cy + originY_;
                    if (brush_.isSolidVisible())
                        canvas_->fillCircle(x, y, radius);
                    if (!pen_.isVisible())
                        return;
                    if (antialias_)
                        canvas_->drawArc(x - radius, y - radius, 2 * radius, 2 * radius, 0, 360);
                    else
                        canvas_->drawCircle(x, y, radius);
                });
}

void ZrPainter::drawEllipse(int cx, int cy, int rx, int ry)
{
    const int reachX = rx + penReach(), reachY = ry + penReach();
    forEachClip(ZrRect::fromEdges(cx - reachX, cy - reachY, cx + reachX, cy + reachY),
                [&](const ZrRect &) {
                    const int x = cx + originX_, y = cy + originY_;
                    if (brush_.isSolidVisible())
                        canvas_->fillEllipse(x, y, rx, ry);
                    if (!pen_.isVisible())
                        return;
                    if (antialias_)
                        canvas_->drawArc(x - rx, y - ry, 2 * rx, 2 * ry, 0, 360);
                    else
                        canvas_->drawEllipse(x, y, rx, ry);
                });
}

void ZrPainter::drawArc(int x, int y, int w, int h, int startAngle, int spanAngle)
{
    if (!pen_.isVisible())
        return;
    const int reach = penReach();
    forEachClip(ZrRect(x, y, w + 1, h + 1).adjusted(-reach, -reach, reach, reach),
                [&](const ZrRect &) {
                    canvas_->drawArc(x + originX_, y + originY_, w, h, startAngle, spanAngle);
                });
}

void ZrPainter::fillPie(int x, int y, int w, int h, int startAngle, int spanAngle,
                        const ZrBrush &brush)
{
    if (!brush.isSolidVisible())
        return;
    forEachClip(ZrRect(x, y, w + 1, h + 1), [&](const ZrRect &) {
        state_.brushColor = brush.color().argb();
        canvas_->fillArc(x + originX_, y + originY_, w, h, startAngle, spanAngle);
    });
}

void ZrPainter::drawPixmap(int x, int y, const ZrImage &image)
{
    drawPixmap(x, y, image.width(), image.height(), image);
}

void ZrPainter::drawPixmap(int x, int y, int w, int h, const ZrImage &image)
{
    if (image.isNull())
        return;
    const ZrRect target(x, y, std::min(w, image.width()), std::min(h, image.height()));
    forEachClip(target, [&](const ZrRect &rect) {
        canvas_->drawImage(rect.x() + originX_, rect.y() + originY_, rect.width(), rect.height(),
                           image, rect.x() - x, rect.y() - y, rect.width(), rect.height());
    });
}

void ZrPainter::drawTiledPixmap(int x, int y, int w, int h, const ZrImage &image)
{
    if (image.isNull())
        return;
    for (int top = 0; top < h; top += image.height()) {
        for (int left = 0; left < w; left += image.width())
            drawPixmap(x + left, y + top, w - left, h - top, image);
    }
}

void ZrPainter::drawScaledPixmap(const ZrRect &rect, const ZrImage &image)
{
    drawScaledPixmap(rect.x(), rect.y(), rect.width(), rect.height(), image, 0, 0, image.width(),
                     image.height());
}

namespace
{

// The part of the source that belongs to a stretch of the target, along one axis.
struct SourceSpan {
    int start, length;
    SourceSpan(int source, int sourceLength, int target, int targetLength, int cutStart,
               int cutLength)
    {
        const qreal scale = qreal(sourceLength) / qreal(targetLength);
        start = int(qreal(source) + qreal(cutStart - target) * scale + 0.5f);
        length = std::max(int(qreal(cutLength) * scale + 0.5f), 1);
    }
};

} // namespace

void ZrPainter::drawScaledPixmap(int x, int y, int w, int h, const ZrImage &image, int sx, int sy,
                                 int sw, int sh)
{
    if (image.isNull() || w <= 0 || h <= 0 || sw <= 0 || sh <= 0)
        return;
    forEachClip(ZrRect(x, y, w, h), [&](const ZrRect &rect) {
        const SourceSpan across(sx, sw, x, w, rect.x(), rect.width());
        const SourceSpan down(sy, sh, y, h, rect.y(), rect.height());
        canvas_->drawImage(rect.x() + originX_, rect.y() + originY_, rect.width(), rect.height(),
                           image, across.start, down.start, across.length, down.length);
    });
}
