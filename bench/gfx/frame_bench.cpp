// From a widget's update to the framebuffer: flushes of a screen, of parts of it, and of 64 cells
// with border, label and icon.
#include "bench_pixels.h"

#include "platform/framebufferdoor.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <string>
#include <unistd.h>
#include <zrapplication>
#include <zrmemsurface>
#include <zrpainter>
#include <zrscreen>

namespace
{

constexpr int kColumns = 8, kRows = 8, kLabelGlyphs = 12;
constexpr int kCellWidth = kScreenWidth / kColumns, kCellHeight = kScreenHeight / kRows;
constexpr ZrRect kScreen(0, 0, kScreenWidth, kScreenHeight);
constexpr ZrRect kDirty(333, 200, 400, 300);
constexpr ZrRect kCell(3 * kCellWidth, 3 * kCellHeight, kCellWidth, kCellHeight);

// A window whose paint walk is one function.
class Window : public ZrSurfaceClient, public ZrPaintDevice
{
public:
    ZrRect surfaceGeometry() const override { return kScreen; }
    bool surfaceHidden() const override { return false; }
    bool surfaceVisible() const override { return true; }
    bool surfaceTranslucent() const override { return isTranslucent; }
    void subtractHoles(ZrRegion &) const override {}
    void addHoles(ZrRegion &) const override {}
    void paintSurface(ZrMemSurface *, const ZrRegion &region) override
    {
        painted_ = region;
        if (paint)
            paint(*this, region);
    }
    ZrObject *surfaceObject() override { return nullptr; }
    int devType() const override { return Widget; }
    bool beginPaint(ZrPaintSetup &setup) override
    {
        setup = {ZrFbCanvas::backCanvas(), painted_, kScreen, 0, 0};
        return true;
    }

    std::function<void(Window &, const ZrRegion &)> paint;
    bool isTranslucent = false;

private:
    ZrRegion painted_;
};

// A screen on a framebuffer file in memory, with one window that has been shown.
class Screen
{
public:
    Screen() : path_("/dev/shm/zr_bench_" + std::to_string(getpid()) + ".fb"), application_(0, nullptr)
    {
        using namespace VirtualFramebuffer;
        std::string file(kHeaderSize, '\0');
        std::memcpy(&file[0], kMagic, 4);
        const uint32_t fields[] = {kVersion,         kScreenWidth,
                                   kScreenHeight,    kScreenWidth * 2,
                                   kScreenWidth * kScreenHeight * 2, kHeaderSize};
        std::memcpy(&file[kOffsetVersion], fields, sizeof fields);
        file.append(size_t(kScreenWidth) * kScreenHeight * 2, '\0');
        std::ofstream(path_, std::ios::binary) << file;
        screen_.open(ZrString(path_.c_str()));
        surface_ = screen_.createSurface(&window);
        surface_->setBackground(ZrColor(8, 8, 8));
        application_.processPending();
    }
    ~Screen() { std::remove(path_.c_str()); }

    void flush(const ZrRect &rect)
    {
        surface_->updateFromClient(rect);
        application_.processPending();
    }
    // Copies alone: a translucent window fills nothing.
    void copyOnly() { window.isTranslucent = true; }

    Window window;

private:
    std::string path_;
    ZrApplication application_;
    ZrScreen screen_;
    ZrMemSurface *surface_;
};

void flush(benchmark::State &state, ZrRect rect)
{
    Screen screen;
    screen.copyOnly();
    for (auto _ : state) {
        screen.flush(rect);
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(flush, dirty, kDirty);
BENCHMARK_CAPTURE(flush, screen, kScreen);
BENCHMARK_CAPTURE(flush, tiny, ZrRect(5, 5, 1, 1));

// The yardsticks work on the memory that the flush works on.
void copyRows(const ZrRect &rect)
{
    uint16_t *to = ZrFbCanvas::frontCanvas()->data();
    const uint16_t *from = ZrFbCanvas::backCanvas()->data();
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const size_t at = size_t(y) * kScreenWidth + size_t(rect.left());
        std::memcpy(to + at, from + at, size_t(rect.width()) * 2);
    }
}

void fillRows(const ZrRect &rect)
{
    uint16_t *to = ZrFbCanvas::backCanvas()->data();
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        std::memset(to + size_t(y) * kScreenWidth + size_t(rect.left()), 1, size_t(rect.width()) * 2);
}

void memcpyRows(benchmark::State &state, ZrRect rect)
{
    Screen screen;
    for (auto _ : state) {
        copyRows(rect);
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(memcpyRows, dirty, kDirty);

void memcpyScreen(benchmark::State &state)
{
    Screen screen;
    for (auto _ : state) {
        std::memcpy(ZrFbCanvas::frontCanvas()->data(), ZrFbCanvas::backCanvas()->data(),
                    size_t(kScreenWidth) * kScreenHeight * 2);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(memcpyScreen);

void paintCells(Window &window, const ZrRegion &region)
{
    static const BenchGlyphs label(kLabelGlyphs);
    static const ZrImage flag = pictureImage(16, 16, Alpha::Mixed);
    for (int i = 0; i < kColumns * kRows; ++i) {
        const ZrRect cell(i % kColumns * kCellWidth, i / kColumns * kCellHeight, kCellWidth,
                          kCellHeight);
        if (!region.intersects(cell))
            continue;
        ZrPainter painter(&window);
        painter.setPen(ZrPen(ZrColor::fromArgb(kColour), 2));
        painter.drawRect(cell.adjusted(1, 1, -1, -1));
        painter.drawGlyphs(cell.left() + 40, cell.top() + 60, label.list);
        painter.drawPixmap(cell.left() + 8, cell.bottom() - 24, flag);
    }
}

void cells(benchmark::State &state, ZrRect rect)
{
    Screen screen;
    screen.window.paint = paintCells;
    for (auto _ : state) {
        screen.flush(rect);
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(cells, all, kScreen);
BENCHMARK_CAPTURE(cells, one, kCell);

void memsetMemcpy(benchmark::State &state, ZrRect rect)
{
    Screen screen;
    for (auto _ : state) {
        fillRows(rect);
        copyRows(rect);
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(memsetMemcpy, one, kCell);

void memsetMemcpyScreen(benchmark::State &state)
{
    constexpr size_t kBytes = size_t(kScreenWidth) * kScreenHeight * 2;
    Screen screen;
    for (auto _ : state) {
        std::memset(ZrFbCanvas::backCanvas()->data(), 1, kBytes);
        std::memcpy(ZrFbCanvas::frontCanvas()->data(), ZrFbCanvas::backCanvas()->data(), kBytes);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(memsetMemcpyScreen);

[[maybe_unused]] const bool aims[] = {
    zrbench::atMost("flush 400x300 / memcpy", "flush/dirty", "memcpyRows/dirty", 1.1),
    zrbench::atMost("flush 1920x1080 / memcpy", "flush/screen", "memcpyScreen", 1.1),
    zrbench::atMost("64 cells / memset and memcpy", "cells/all", "memsetMemcpyScreen", 2.5),
    zrbench::atMost("one cell / memset and memcpy", "cells/one", "memsetMemcpy/one", 2.5),
};

} // namespace
