#include <zrfbcanvas>
#include <zrfontengine>
#include <zrimage>
#include <zrpainter>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <vector>

namespace
{

constexpr int kWidth = 90, kHeight = 70;
const ZrColor kRed(255, 0, 0), kNone(0, 0, 0, 0), kFaint(0, 200, 90, 110);
constexpr uint16_t kRedWord = 0xfc00, kBlackWord = 0x8000;

// A widget's part of the back buffer: what may be painted is given, the origin is not zero.
class Device : public ZrPaintDevice
{
public:
    static constexpr int kOriginX = 7, kOriginY = 5;

    Device()
    {
        ZrFbCanvas::setGeometry(kWidth, kHeight, kWidth * 2);
        canvas = std::make_unique<ZrFbCanvas>();
    }
    int devType() const override { return Widget; }
    bool beginPaint(ZrPaintSetup &setup) override
    {
        setup = {canvas.get(), region, rect, kOriginX, kOriginY};
        return isPainting;
    }
    uint16_t &at(int x, int y) { return canvas->data()[(y + kOriginY) * kWidth + x + kOriginX]; }
    std::vector<uint16_t> pixels() const
    {
        return std::vector<uint16_t>(canvas->data(), canvas->data() + kWidth * kHeight);
    }
    int count(uint16_t word) const
    {
        const std::vector<uint16_t> all = pixels();
        return int(std::count(all.begin(), all.end(), word));
    }

    std::unique_ptr<ZrFbCanvas> canvas;
    ZrRect rect = ZrRect(0, 0, 70, 60);
    ZrRegion region = rect;
    bool isPainting = true;
};

ZrImage gradient(int width, int height)
{
    ZrImage image(width, height);
    for (int i = 0; i < width * height; ++i) {
        image.bits()[4 * i] = uint8_t(i * 7);
        image.bits()[4 * i + 1] = uint8_t(255 - i * 3);
        image.bits()[4 * i + 3] = uint8_t(i % 5 == 0 ? 100 : i % 7 == 0 ? 0 : 255);
    }
    return image;
}

struct Glyphs {
    Glyphs()
    {
        for (int i = 0; i < 200; ++i)
            coverage[i] = uint8_t(i % 16 < 11 ? i * 23 : 0);
        list.append(&bitmap);
        list.append(&bitmap);
    }
    uint8_t coverage[16 * 12 + 16] = {};
    GlyphBitmap bitmap = {11, 12, 16, 1, 10, 2, 13, coverage};
    ZrVector<const GlyphBitmap *> list;
};

struct Scene {
    const char *name;
    std::function<void(ZrPainter &)> paint;
};

// All that must not depend on how the area is cut. (A slanting line is cut to whole pixels and a
// scaled picture to whole source pixels, so those two may differ by one.)
std::vector<Scene> scenes()
{
    static const Glyphs glyphs;
    std::vector<Scene> list;
    for (bool smooth : {false, true}) {
        for (int width : {1, 2, 5}) {
            const ZrPen pen(kRed, width), faint(kFaint, width);
            list.push_back({"shapes", [=](ZrPainter &p) {
                                p.setAntialiasing(smooth);
                                p.setPen(smooth ? faint : pen);
                                p.setBrush(kFaint);
                                p.drawCircle(30, 25, 20);
                                p.drawEllipse(35, 30, 30, 12);
                                p.drawArc(5, 5, 50, 40, 30, 250);
                                p.drawRect(ZrRect(3, 40, 40, 15));
                            }});
            list.push_back({"straight lines", [=](ZrPainter &p) {
                                p.setAntialiasing(smooth);
                                p.setPen(pen);
                                p.drawLine(2, 20, 65, 20);
                                p.drawLine(60, 55, 60, 1);
                                p.drawDotLine(ZrPoint(1, 30), ZrPoint(68, 33));
                            }});
        }
    }
    list.push_back({"fills", [](ZrPainter &p) {
                        p.fillRect(ZrRect(2, 2, 50, 20), ZrBrush(kFaint));
                        p.fillRect(ZrRect(20, 10, 20, 40), ZrBrush(kNone, ZrPaintStyle::Raw));
                        p.drawRoundedRect(ZrRect(4, 25, 50, 28), 9, 7, ZrBrush(kRed));
                        p.fillPie(10, 10, 41, 37, 20, 200, ZrBrush(kFaint));
                    }});
    list.push_back({"pictures", [](ZrPainter &p) {
                        p.drawPixmap(3, 4, gradient(30, 20));
                        p.drawPixmap(40, 4, 10, 50, gradient(30, 20));
                        p.drawTiledPixmap(5, 26, 50, 30, gradient(12, 9));
                        p.setFont(ZrFont(14, false, false, false, true));
                        p.drawGlyphs(8, 30, glyphs.list);
                    }});
    return list;
}

TEST(Painter, ClippedEqualsFull)
{
    constexpr unsigned kSeed = 3;
    SCOPED_TRACE(testing::Message() << "seed " << kSeed);
    std::mt19937 engine(kSeed);
    auto in = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(engine);
    };
    for (const Scene &scene : scenes()) {
        Device device;
        const std::vector<uint16_t> before = device.pixels();
        {
            ZrPainter painter(&device);
            scene.paint(painter);
        }
        const std::vector<uint16_t> full = device.pixels();
        EXPECT_NE(full, before) << scene.name;
        for (int round = 0; round < 60; ++round) {
            device.region = ZrRegion();
            for (int i = in(1, 4); i > 0; --i)
                device.region += ZrRect(in(-5, 69), in(-5, 59), in(1, 40), in(1, 40));
            device.region &= device.rect;
            // What is repainted starts as it was before the first painting.
            for (const ZrRect &rect : device.region)
                for (int y = rect.top(); y <= rect.bottom(); ++y)
                    for (int x = rect.left(); x <= rect.right(); ++x)
                        device.at(x, y) =
                            before[size_t((y + Device::kOriginY) * kWidth + x + Device::kOriginX)];
            ZrPainter painter(&device);
            scene.paint(painter);
            ASSERT_EQ(device.pixels(), full) << scene.name << " round " << round;
        }
    }
}

TEST(Painter, StaysWithinRegionAndClip)
{
    Device device;
    device.region = ZrRegion(5, 5, 20, 20) - ZrRegion(10, 10, 4, 4);
    ZrPainter painter(&device);
    painter.setClipRegion(ZrRegion(8, 8, 100, 100));
    painter.fillRect(ZrRect(-50, -50, 300, 300), ZrBrush(kRed));
    EXPECT_EQ(device.count(kRedWord), 17 * 17 - 16);
    EXPECT_EQ(device.at(8, 8), kRedWord);
    EXPECT_EQ(device.at(12, 12), 0);

    device.isPainting = false;
    ZrPainter idle(&device);
    EXPECT_FALSE(idle.isActive());
    idle.fillRect(device.rect, ZrBrush(kNone, ZrPaintStyle::Raw));
    idle.drawRect(device.rect);
    idle.drawLine(0, 0, 9, 9);
    EXPECT_EQ(device.count(kRedWord), 17 * 17 - 16);
}

TEST(Painter, TransparencyByBrush)
{
    struct Case {
        const char *what;
        ZrBrush brush;
        uint16_t before, after;
    };
    const Case cases[] = {
        {"no brush", ZrBrush(), kRedWord, kRedWord},
        {"solid clear", ZrBrush(kNone), kRedWord, kRedWord},
        {"raw clear punches through", ZrBrush(kNone, ZrPaintStyle::Raw), kRedWord, 0},
        {"raw faint is opaque", ZrBrush(ZrColor(255, 0, 0, 1), ZrPaintStyle::Raw), 0, kRedWord},
        {"solid", ZrBrush(kRed), 0, kRedWord},
        {"faint keeps a clear pixel clear", ZrBrush(ZrColor(255, 0, 0, 128)), 0, 0x3c00},
        {"faint keeps an opaque one opaque", ZrBrush(ZrColor(255, 0, 0, 128)), kBlackWord, 0xbc00},
    };
    for (const Case &c : cases) {
        Device device;
        device.at(3, 3) = c.before;
        ZrPainter(&device).fillRect(ZrRect(3, 3, 1, 1), c.brush);
        EXPECT_EQ(device.at(3, 3), c.after) << c.what;
    }
    ZrImage image(2, 1, kRed);
    ZrPainter(&image).fillRect(ZrRect(0, 0, 2, 1), ZrBrush(kNone, ZrPaintStyle::Raw));
    EXPECT_EQ(image.bits()[3], 255) << "an image knows no raw writes";
}

TEST(Painter, FrameLiesAcrossTheEdge)
{
    Device device;
    ZrPainter painter(&device);
    painter.setPen(ZrPen(kRed, 3));
    painter.drawRect(ZrRect(10, 10, 20, 10));
    EXPECT_EQ(device.at(9, 9), kRedWord);
    EXPECT_EQ(device.at(8, 10), 0);
    EXPECT_EQ(device.at(11, 11), kRedWord);
    EXPECT_EQ(device.at(12, 12), 0) << "nothing inside without a brush";
    EXPECT_EQ(device.count(kRedWord), 22 * 12 - 16 * 6);
}

TEST(Painter, PicturesAreCutNotScaled)
{
    Device device;
    const ZrImage image(10, 8, kRed);
    ZrPainter(&device).drawPixmap(5, 5, 4, 20, image);
    EXPECT_EQ(device.count(kRedWord), 4 * 8);
    Device tiled;
    ZrPainter(&tiled).drawTiledPixmap(2, 2, 33, 21, image);
    EXPECT_EQ(tiled.count(kRedWord), 33 * 21);
    Device scaled;
    ZrPainter(&scaled).drawScaledPixmap(1, 1, 30, 40, ZrImage(1, 1, kRed), 0, 0, 1, 1);
    EXPECT_EQ(scaled.count(kRedWord), 30 * 40);
}

// A scaled picture painted in pieces lies within one source pixel of the whole one.
TEST(Painter, ScaledPiecesStayAligned)
{
    ZrImage ramp(64, 1);
    for (int x = 0; x < 64; ++x) {
        ramp.bits()[4 * x] = uint8_t(x * 4);
        ramp.bits()[4 * x + 3] = 255;
    }
    Device whole, pieces;
    ZrPainter(&whole).drawScaledPixmap(0, 0, 70, 8, ramp, 0, 0, 64, 1);
    for (int x = 0; x < 70; x += 7) {
        pieces.region = ZrRegion(x, 0, 7, 8);
        ZrPainter(&pieces).drawScaledPixmap(0, 0, 70, 8, ramp, 0, 0, 64, 1);
    }
    for (int x = 0; x < 70; ++x)
        EXPECT_NEAR(whole.at(x, 3) >> 10 & 31, pieces.at(x, 3) >> 10 & 31, 1) << x;
}

// So that who keeps the scaled image may paint it in pieces.
TEST(Painter, AScaledImageIsWhatDrawingScaledGives)
{
    for (const ZrSize &from : {ZrSize(1, 1), ZrSize(1, 9), ZrSize(20, 3), ZrSize(24, 24)})
        for (const ZrSize &to : {ZrSize(1, 1), ZrSize(16, 16), ZrSize(24, 24), ZrSize(57, 2)}) {
            const ZrImage image = gradient(from.width(), from.height());
            Device drawn, kept;
            ZrPainter(&drawn).drawScaledPixmap(ZrRect(ZrPoint(2, 3), to), image);
            ZrPainter(&kept).drawPixmap(2, 3, to.width(), to.height(),
                                        image.scaled(to.width(), to.height()));
            EXPECT_EQ(drawn.pixels(), kept.pixels()) << from.width() << "->" << to.width();
        }
    EXPECT_TRUE(ZrImage().scaled(4, 4).isNull());
    EXPECT_TRUE(gradient(4, 4).scaled(0, 4).isNull());
    EXPECT_TRUE(gradient(4, 4).scaled(4, ZrImage::maxSide + 1).isNull());
}

TEST(Painter, ImagesBeyondTheDeviceAreNamed)
{
    Device device;
    const ZrImage image(4, 4, kRed);
    ZrCanvasState state;
    device.canvas->setState(&state);
    testing::internal::CaptureStderr();
    device.canvas->drawImage(kWidth, 0, 4, 4, image, 0, 0, 4, 4);
    EXPECT_EQ(testing::internal::GetCapturedStderr().rfind("Exceed the device region\n", 0), 0u);
    testing::internal::CaptureStderr();
    device.canvas->drawImage(0, 0, 4, 4, image, 4, 0, 4, 4);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
