// A screen without widgets: its windows are plain rectangles.
#pragma once

#include "support/virtualscreen.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>
#include <zrgraphics>
#include <zrmemsurface>
#include <zrscreen>

constexpr uint16_t kClear = 0x0000;
constexpr uint16_t kBlack = 0x8000;
constexpr uint16_t kWhite = 0xffff;

class Board : public zrtest::VirtualScreen
{
public:
    explicit Board(int width = 64, int height = 48, int lineLength = 0)
        : VirtualScreen(withoutPointer(width), height, lineLength), screen(ZrScreen::instance())
    {
    }

    ZrScreen *const screen;

private:
    static int withoutPointer(int width)
    {
        zrInstallGraphics();
        ZrApplication::parts().makePointer = nullptr;
        return width;
    }
};

// A window without widgets: it fills what it is asked to paint with its colour.
class PlainWindow : public ZrSurfaceClient
{
public:
    PlainWindow(ZrScreen *owner, const ZrRect &rect, const ZrColor &fill)
        : geometry(rect), colour(fill), screen(owner), surface(owner->createSurface(this))
    {
        surface->setBackground(fill);
    }
    ~PlainWindow() override { screen->destroySurface(surface); }

    ZrRect surfaceGeometry() const override { return geometry; }
    bool surfaceHidden() const override { return isHidden; }
    bool surfaceVisible() const override { return !isHidden; }
    bool surfaceTranslucent() const override { return isTranslucent; }
    void subtractHoles(ZrRegion &area) const override { area -= shownHoles(); }
    void addHoles(ZrRegion &sum) const override { sum += shownHoles(); }
    void paintSurface(ZrMemSurface *painted, const ZrRegion &localRegion) override
    {
        paints.push_back(localRegion.translated(geometry.topLeft()));
        if (paint)
            paint(painted, localRegion);
    }
    ZrObject *surfaceObject() override { return &object; }
    ZrRegion shownHoles() const { return isHidden ? ZrRegion() : holes; }
    void update() { screen->updateWholeSurface(surface); }

    ZrRect geometry;
    ZrColor colour;
    ZrRegion holes; // in screen coordinates
    bool isHidden = false;
    bool isTranslucent = false;
    std::function<void(ZrMemSurface *, const ZrRegion &)> paint;
    std::vector<ZrRegion> paints; // what was asked for, in screen coordinates
    ZrObject object;
    ZrScreen *screen;
    ZrMemSurface *surface;
};
