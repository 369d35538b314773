// What the painter makes of the primitives, as pictures compared pixel by pixel with
// tests/gfx/golden. One that differs is written beside the golden one as NAME.new.png; to accept
// it, move it over. canvas_test.cpp holds the canvas against its formulas.
#include "gfx/encode.h"

#include <zrfbcanvas>
#include <zrimage>
#include <zrpainter>

#include <cstring>
#include <fstream>
#include <functional>

namespace
{

constexpr int kWidth = 160, kHeight = 100;
const std::string kFolder = ZR_SOURCE_DIR "/tests/gfx/golden/";
const ZrColor kInk(250, 200, 40), kGlass(60, 120, 250, 140);

struct Golden {
    const char *name;
    std::function<void(ZrPainter &)> paint;
};

ZrImage icon()
{
    constexpr int kSide = 24;
    ZrImage image(kSide, kSide);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const int d = (x - 12) * (x - 12) + (y - 12) * (y - 12);
            const uint8_t pixel[4] = {uint8_t(x * 10), uint8_t(y * 10), 128,
                                      uint8_t(d < 80    ? 255
                                              : d < 144 ? 400 - d * 2 - 15
                                                        : 0)};
            std::memcpy(image.bits() + 4 * (y * kSide + x), pixel, 4);
        }
    }
    return image;
}

const Golden kGoldens[] = {
    {"lines",
     [](ZrPainter &p) {
         p.drawLine(5, 5, 150, 30);
         p.drawDotLine(ZrPoint(5, 15), ZrPoint(150, 45));
         p.setAntialiasing(true);
         p.drawLine(150, 60, 5, 30);
         p.setPen(ZrPen(kGlass, 4));
         p.drawDotLine(ZrPoint(40, 95), ZrPoint(60, 5));
         p.drawLine(5, 90, 150, 70);
     }},
    {"circles",
     [](ZrPainter &p) {
         for (int radius = 0; radius < 32; ++radius)
             p.drawCircle(2 + radius * 5, 30, radius);
         p.setBrush(kGlass);
         p.drawCircle(40, 65, 30);
         p.setPen(ZrPen(kGlass, 5));
         p.drawCircle(110, 60, 34);
     }},
    {"ellipses",
     [](ZrPainter &p) {
         p.setBrush(kGlass);
         p.drawEllipse(50, 30, 45, 20);
         p.drawEllipse(120, 50, 12, 45);
         p.setPen(ZrPen(kInk, 3));
         p.drawEllipse(50, 75, 30, 18);
         p.setAntialiasing(true);
         p.drawEllipse(110, 50, 40, 25);
     }},
    {"arcs",
     [](ZrPainter &p) {
         // More than are kept, and the same ones smooth.
         for (bool smooth : {false, true}) {
             p.setAntialiasing(smooth);
             for (int i = 0; i < 40; ++i)
                 p.drawArc(4 + i * 3, smooth ? 40 : 2, 2 * i, i + 8, i * 50 - 400, 400 - i * 21);
         }
         p.setPen(ZrPen(kInk, 3));
         for (int i = 0; i < 3; ++i)
             p.drawArc(4 + i * 52, 54, 48, 40, 30 + i * 60, -80 - i * 90);
     }},
    {"pies",
     [](ZrPainter &p) {
         for (int i = 0; i < 6; ++i)
             p.fillPie(4 + i * 26, 5, 25, 40, i * 50, 40 + i * 50, ZrBrush(kGlass));
         p.fillPie(4, 50, 60, 45, 0, 360, ZrBrush(kGlass));
         p.fillPie(70, 50, 60, 45, 200, -300, ZrBrush(kInk));
     }},
    {"rects",
     [](ZrPainter &p) {
         p.setBrush(kGlass);
         p.drawRect(ZrRect(8, 8, 40, 30));
         p.setPen(ZrPen(kInk, 4));
         p.drawRect(ZrRect(60, 8, 40, 30));
         p.setPen(ZrPen(ZrColor(0, 0, 0, 0), 6, ZrPaintStyle::Raw));
         p.fillRect(ZrRect(112, 8, 40, 30), ZrBrush(ZrColor(0, 0, 0, 0), ZrPaintStyle::Raw));
         p.drawRoundedRect(ZrRect(8, 50, 60, 40), 12, 8, ZrBrush(kInk));
         p.drawRoundedRect(ZrRect(80, 50, 60, 40), 20, 20, ZrBrush(kGlass));
     }},
    {"pictures",
     [](ZrPainter &p) {
         p.drawPixmap(4, 4, icon());
         p.drawTiledPixmap(34, 4, 60, 40, icon());
         p.drawScaledPixmap(ZrRect(100, 4, 55, 90), icon());
         p.drawScaledPixmap(4, 50, 80, 45, icon(), 6, 6, 12, 12);
     }},
};

// What a monitor shows over a grey video plane.
uint32_t shown(uint16_t word)
{
    if (!(word & 0x8000))
        return 0xff606060u;
    auto eight = [](int five) { return uint32_t(five << 3 | five >> 2); };
    return 0xff000000u | eight(word & 31) << 16 | eight(word >> 5 & 31) << 8 |
           eight(word >> 10 & 31);
}

// The left half opaque, the right half open to the video, as most primitives meet both.
std::vector<uint32_t> painted(const Golden &golden)
{
    ZrFbCanvas::setGeometry(kWidth, kHeight, kWidth * 2);
    ZrFbCanvas canvas;
    canvas.fillRegion(ZrRegion(0, 0, kWidth / 2, kHeight), ZrColor(40, 60, 50));
    ZrPainter painter(&canvas);
    painter.setPen(ZrPen(kInk));
    golden.paint(painter);
    std::vector<uint32_t> pixels;
    for (int i = 0; i < kWidth * kHeight; ++i)
        pixels.push_back(shown(canvas.data()[i]));
    return pixels;
}

TEST(Golden, Primitives)
{
    for (const Golden &golden : kGoldens) {
        const std::vector<uint32_t> pixels = painted(golden);
        const std::string path = kFolder + golden.name + ".png";
        const ZrImage expected(path.c_str());
        const bool isEqual = expected.width() == kWidth && expected.height() == kHeight &&
                             std::memcmp(expected.bits(), pixels.data(), pixels.size() * 4) == 0;
        EXPECT_TRUE(isEqual) << path;
        if (!isEqual)
            std::ofstream(kFolder + golden.name + ".new.png", std::ios::binary)
                << encodePng(pixels, kWidth, kHeight);
    }
}

} // namespace
