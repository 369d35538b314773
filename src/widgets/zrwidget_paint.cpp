// Visibility, surfaces, dirty areas, holes and the paint walk.
#include <zrwidget>

#include "widgets/zrdesktop.h"

#include <algorithm>

#include <zrapplication>
#include <zrguard>
#include <zrmemsurface>
#include <zrscreen>

void ZrWidget::create()
{
    if (isWindow() && !surface_ && ZrScreen::instance()) {
        surface_ = ZrScreen::instance()->createSurface(this);
        surface_->setBackground(background_);
    }
    setAttribute(Created);
}

void ZrWidget::destroySurface()
{
    if (surface_ && ZrScreen::instance())
        ZrScreen::instance()->destroySurface(surface_);
    surface_ = nullptr;
    setAttribute(Created, false);
}

void ZrWidget::setVisible(bool visible)
{
    if (visible)
        showByRequest();
    else if (!isHidden())
        hideByRequest();
}

void ZrWidget::showByRequest()
{
    const ZrWidget *parent = parentWidget();
    const bool wasHiddenChild = parent && isHidden();
    setAttribute(HiddenByRequest, false);
    if (isVisible())
        return;
    if (!testAttribute(Created))
        create();
    activateLayouts();
    if (wasHiddenChild)
        updateGeometry(true);
    const ZrGuard<ZrWidget> self(this); // against the handlers of show events
    if (isWindow()) {
        if (isPopup() && surface_)
            ZrScreen::instance()->raiseSurface(surface_);
        showTree(size());
        if (!self)
            return;
        if (surface_)
            ZrScreen::instance()->updateWholeSurface(surface_);
        ZrDesktop::setActiveWindow(this);
    } else if (parent && parent->isVisible()) {
        showTree(size());
        if (self)
            update();
    }
}

void ZrWidget::hideByRequest()
{
    if (!isWindow())
        update(); // while it still counts as visible
    setAttribute(HiddenByRequest);
    const ZrGuard<ZrWidget> self(this);
    hideTree();
    if (self)
        ZrDesktop::widgetHidden(this);
    if (!self)
        return;
    if (ZrWidget *parent = parentWidget()) {
        askForLayout(parent);
        return;
    }
    if (surface_)
        ZrScreen::instance()->updateWholeSurface(surface_);
    ZrDesktop::setActiveWindow(nullptr);
}

// `shownSize` is the size of the widget on which the show began: a child that gets its first size
// here is told of that one, and reads its own from itself.
void ZrWidget::showTree(const ZrSize &shownSize)
{
    if (isHidden() || isVisible())
        return;
    if (hasNoSizeYet()) {
        const ZrSize hint = sizeHint();
        width_ = std::max(hint.width(), 0);
        height_ = std::max(hint.height(), 0);
        geometry_ = ZrRect::fromEdges(geometry_.left(), geometry_.top(),
                                      geometry_.left() + width_ - 1, geometry_.top() + height_ - 1);
        ZrResizeEvent resized(shownSize, ZrSize(-1, -1));
        ZrApplication::notify(this, &resized);
    }
    setAttribute(Visible);
    const ZrGuard<ZrWidget> self(this);
    ZrShowEvent shown;
    ZrApplication::notify(this, &shown);
    if (self)
        forEachChildWidget([&shownSize](ZrWidget &child) { child.showTree(shownSize); });
}

void ZrWidget::hideTree()
{
    if (!isVisible())
        return;
    setAttribute(Visible, false);
    const ZrGuard<ZrWidget> self(this);
    ZrHideEvent hidden;
    ZrApplication::notify(this, &hidden);
    if (self)
        forEachChildWidget([](ZrWidget &child) { child.hideTree(); });
}

bool ZrWidget::close()
{
    const ZrGuard<ZrWidget> self(this);
    ZrCloseEvent closing;
    ZrApplication::notify(this, &closing);
    if (!self)
        return true;
    if (!closing.isAccepted())
        return false;
    if (testAttribute(DeleteOnClose))
        deleteLater();
    setVisible(false);
    return true;
}

void ZrWidget::raise()
{
    if (ZrWidget *parent = parentWidget()) {
        parent->raiseChild(this);
        update();
    } else if (surface_) {
        ZrScreen::instance()->raiseSurface(surface_);
    }
}

void ZrWidget::lower()
{
    if (ZrWidget *parent = parentWidget()) {
        parent->lowerChild(this);
        update();
    } else if (surface_) {
        ZrScreen::instance()->lowerSurface(surface_);
    }
}

void ZrWidget::update()
{
    if (isVisible())
        update(ZrRegion(rect()));
}

void ZrWidget::update(const ZrRect &area)
{
    update(ZrRegion(area));
}

void ZrWidget::update(const ZrRegion &area)
{
    const ZrWidget *top = window();
    if (!isVisible() || !top->surface_)
        return;
    ZrRegion region = area;
    for (const ZrWidget *widget = this;; widget = widget->parentWidget()) {
        // Width and height as right and bottom edge: one pixel more than the widget has.
        region &= ZrRect::fromEdges(0, 0, widget->width_, widget->height_);
        region.translate(widget->geometry_.left(), widget->geometry_.top());
        if (widget == top)
            break;
    }
    if (!region.isEmpty())
        ZrScreen::instance()->updateSurface(top->surface_, region);
}

void ZrWidget::setBackgroundColor(const ZrColor &color)
{
    if (color == background_)
        return;
    background_ = color;
    if (!surface_)
        return;
    surface_->setBackground(color);
    update();
}

void ZrWidget::setHoleRegion(const ZrRegion &region)
{
    // Pixels inside both the old and the new hole are clear already and stay so.
    const ZrRegion changed = holeRegion_.eor(region);
    if (changed.isEmpty())
        return;
    holeRegion_ = region;
    setFlag(HasHole, !region.isEmpty());
    if (!region.isEmpty())
        noteHoles();
    update(changed);
}

// Each flush asks every window for its holes; few widgets have one. Not taken back: whoever has had
// a hole is likely to have one again.
void ZrWidget::noteHoles()
{
    for (ZrWidget *widget = this; widget; widget = widget->parentWidget())
        widget->setFlag(HolesWithin, true);
}

// The widget's own hole on the screen, cut to the widget and, as its painting is, to its parents.
ZrRegion ZrWidget::holeOnScreen() const
{
    if (!(widgetFlags_ & HasHole))
        return ZrRegion();
    ZrRegion hole = holeRegion_;
    for (const ZrWidget *widget = this; widget; widget = widget->parentWidget()) {
        hole &= widget->rect();
        hole.translate(widget->geometry_.left(), widget->geometry_.top());
    }
    return hole;
}

void ZrWidget::subtractHoles(ZrRegion &area) const
{
    if (!(widgetFlags_ & HolesWithin) || !isVisible() || area.isEmpty())
        return;
    area -= holeOnScreen();
    forEachChildWidget([&area](ZrWidget &child) { child.subtractHoles(area); });
}

void ZrWidget::addHoles(ZrRegion &holes) const
{
    if (!(widgetFlags_ & HolesWithin) || !isVisible())
        return;
    holes += holeOnScreen();
    forEachChildWidget([&holes](ZrWidget &child) { child.addHoles(holes); });
}

void ZrWidget::paintSurface(ZrMemSurface *, const ZrRegion &localRegion)
{
    paintTree(localRegion);
}

void ZrWidget::paintTree(const ZrRegion &region)
{
    paintRegion_ = region;
    ZrPaintEvent painted(region);
    ZrApplication::notify(this, &painted);
    // Of thousands of children, as in a long table, few may be in sight.
    const ZrRect bounds = region.boundingRect();
    forEachChildWidget([&region, &bounds](ZrWidget &child) {
        if (!child.isVisible() || !bounds.intersects(child.geometry_))
            return;
        ZrRegion part = region;
        part &= child.geometry_;
        if (part.isEmpty())
            return;
        part.translate(-child.geometry_.left(), -child.geometry_.top());
        child.paintTree(part);
    });
    paintRegion_ = ZrRegion();
}

bool ZrWidget::beginPaint(ZrPaintSetup &setup)
{
    const ZrWidget *top = window();
    if (!top->surface_ || !top->surface_->canvas())
        return false;
    const ZrPoint inWindow = mapToWindow(ZrPoint(0, 0));
    const ZrPoint corner = top->surface_->offset();
    setup.canvas = top->surface_->canvas();
    setup.paintRegion = paintRegion_;
    setup.rect = rect();
    setup.originX = corner.x() + inWindow.x();
    setup.originY = corner.y() + inWindow.y();
    return true;
}
