// A screen on a framebuffer file, with an application whose queue carries its flushes, and windows
// of plain rectangles.
#pragma once

#include "platform/framebufferdoor.h"

#include <gtest/gtest.h>

#include <zrapplication>
#include <zrfbcanvas>
#include <zrmemsurface>
#include <zrscreen>

#include <cstdint>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

constexpr uint16_t kClear = 0x0000;
constexpr uint16_t kBlack = 0x8000;
constexpr uint16_t kWhite = 0xffff;

class VirtualScreen
{
public:
    explicit VirtualScreen(int width = 64, int height = 48, int lineLength = 0)
        : path(testing::TempDir() + "zr_screen_" + std::to_string(getpid()) + ".fb"),
          application(0, nullptr)
    {
        resize(width, height, lineLength);
        screen = std::make_unique<ZrScreen>();
        screen->open(ZrString(path.c_str()));
    }
    ~VirtualScreen()
    {
        screen.reset();
        std::remove(path.c_str());
    }

    // Makes the file anew; for the next open. Its pixels start opaque.
    void resize(int width, int height, int lineLength = 0)
    {
        using namespace VirtualFramebuffer;
        const uint32_t line = uint32_t(lineLength ? lineLength : width * 2);
        std::string file(kHeaderSize, '\0');
        file.replace(0, 4, kMagic, 4);
        auto put = [&file](size_t offset, uint32_t value) {
            for (int i = 0; i < 4; ++i)
                file[offset + size_t(i)] = char(value >> 8 * i);
        };
        put(kOffsetVersion, kVersion);
        put(kOffsetWidth, uint32_t(width));
        put(kOffsetHeight, uint32_t(height));
        put(kOffsetLineLength, line);
        put(kOffsetLength, line * uint32_t(height));
        put(kOffsetPixels, kHeaderSize);
        file.append(size_t(line) * size_t(height), '\xff');
        std::ofstream(path, std::ios::binary) << file;
    }

    uint16_t at(int x, int y) const
    {
        return ZrFbCanvas::frontCanvas()->data()[y * int(ZrFbCanvas::lineLength() / 2) + x];
    }
    // Runs what is posted; returns how many flushes that were, by what is dirty before.
    void run() { application.processPending(); }

    const std::string path;
    ZrApplication application;
    std::unique_ptr<ZrScreen> screen;
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
