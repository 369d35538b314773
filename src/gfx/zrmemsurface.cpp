#include <zrfbcanvas>
#include <zrmemsurface>
#include <zrscreen>

void ZrFbMemSurface::flush(const ZrRegion &region)
{
    canvas_ = ZrFbCanvas::backCanvas();
    if (!widget_->surfaceTranslucent())
        canvas_->fillRegion(region, background_);
    widget_->paintSurface(this, region.translated(-offset()));
}

ZrAbstractCanvas *ZrFbMemSurface::canvas() const
{
    return canvas_;
}

void ZrFbMemSurface::setBackground(const ZrColor &colour)
{
    if (background_ == colour)
        return;
    background_ = colour;
    screen_->updateWholeSurface(this);
}

void ZrFbMemSurface::updateFromClient(const ZrRegion &screenRegion)
{
    if (!screenRegion.isEmpty())
        screen_->updateSurface(this, screenRegion);
}
