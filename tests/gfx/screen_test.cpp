#include "gfx/board.h"

#include <zrcanvas>
#include <zrfbcanvas>
#include <zrimage>
#include <zrscreencursor>

#include <random>

namespace
{

const ZrColor kRed(255, 0, 0), kGreen(0, 255, 0), kBlue(0, 0, 255);
constexpr uint16_t kRedWord = 0xfc00, kGreenWord = 0x83e0, kBlueWord = 0x801f;

TEST(Screen, OpensTransparentAndClosesBlack)
{
    Board board(40, 30, 96);
    EXPECT_EQ(board.screen->rect(), ZrRect(0, 0, 40, 30));
    EXPECT_EQ(board.pixel(0, 0), kClear);
    EXPECT_EQ(board.pixel(39, 29), kClear);
    EXPECT_TRUE(board.screen->open(ZrString("/no/such/node"))) << "open already";
    board.screen->close();
    EXPECT_FALSE(board.screen->isOpen());
    board.screen->update(ZrRect(0, 0, 5, 5));
    EXPECT_TRUE(board.screen->dirtyRegion().isEmpty());

    std::ifstream file(board.framebufferPath(), std::ios::binary);
    file.seekg(VirtualFramebuffer::kHeaderSize + 29 * 96 + 39 * 2);
    char pixel[2];
    file.read(pixel, 2);
    EXPECT_EQ(uint8_t(pixel[1]) << 8 | uint8_t(pixel[0]), kBlack);
    EXPECT_FALSE(board.screen->open(ZrString("/no/such/node")));
}

TEST(Screen, UpdatesOfOneBatchFlushOnce)
{
    Board board;
    PlainWindow window(board.screen, ZrRect(0, 0, 64, 48), kRed);
    board.settle();
    window.paints.clear();
    window.surface->updateFromClient(ZrRect(1, 1, 4, 4));
    window.surface->updateFromClient(ZrRect(20, 20, 4, 4));
    board.settle();
    ASSERT_EQ(window.paints.size(), 1u);
    EXPECT_EQ(window.paints[0], ZrRegion(1, 1, 4, 4) + ZrRegion(20, 20, 4, 4));
    EXPECT_TRUE(board.screen->dirtyRegion().isEmpty());
    board.settle();
    EXPECT_EQ(window.paints.size(), 1u);
}

TEST(Screen, OpaqueSurfacesHideAndTranslucentOnesDoNot)
{
    Board board;
    PlainWindow low(board.screen, ZrRect(0, 0, 40, 40), kRed);
    PlainWindow high(board.screen, ZrRect(10, 10, 20, 20), kGreen);
    board.settle();
    EXPECT_EQ(low.paints.back(), ZrRegion(0, 0, 40, 40) - ZrRegion(10, 10, 20, 20));

    low.surface->updateFromClient(ZrRect(12, 12, 5, 5));
    EXPECT_TRUE(board.screen->dirtyRegion().isEmpty()) << "wholly hidden";

    high.isTranslucent = true;
    low.paints.clear();
    high.paints.clear();
    low.surface->updateFromClient(ZrRect(12, 12, 5, 5));
    board.settle();
    EXPECT_EQ(low.paints.size(), 1u);
    EXPECT_EQ(high.paints.size(), 1u) << "paints over what the lower one painted";
    EXPECT_EQ(board.pixel(13, 13), kRedWord) << "no background of its own";
}

TEST(Screen, RaisingAndLoweringExposeWhatChanges)
{
    Board board;
    PlainWindow a(board.screen, ZrRect(0, 0, 20, 20), kRed);
    PlainWindow b(board.screen, ZrRect(10, 10, 20, 20), kGreen);
    board.settle();
    board.screen->raiseSurface(a.surface);
    EXPECT_EQ(board.screen->dirtyRegion(), ZrRegion(10, 10, 10, 10));
    board.settle();
    board.screen->lowerSurface(a.surface);
    EXPECT_EQ(board.screen->dirtyRegion(), ZrRegion(10, 10, 10, 10));
    board.settle();
    a.isHidden = true;
    board.screen->raiseSurface(a.surface);
    EXPECT_TRUE(board.screen->dirtyRegion().isEmpty());
    EXPECT_EQ(board.screen->surfaces().last(), a.surface);
}

TEST(Screen, DisabledInterfaceIsBlack)
{
    Board board;
    PlainWindow window(board.screen, ZrRect(0, 0, 64, 48), kRed);
    board.screen->setGuiEnabled(false);
    board.settle();
    EXPECT_EQ(board.pixel(3, 3), kBlack);
    EXPECT_TRUE(window.paints.empty());
    board.screen->setGuiEnabled(true);
    board.settle();
    EXPECT_EQ(board.pixel(3, 3), kRedWord);
}

TEST(Screen, ReopensAtAnotherSize)
{
    Board board;
    PlainWindow window(board.screen, ZrRect(0, 0, 64, 48), kRed);
    board.settle();
    board.screen->close();
    board.replaceFramebuffer(100, 80);
    ASSERT_TRUE(board.screen->open(ZrString(Board::device)));
    EXPECT_EQ(board.screen->rect(), ZrRect(0, 0, 100, 80));
    EXPECT_EQ(board.pixel(3, 3), kClear);
    board.screen->markAllDirty();
    board.settle();
    EXPECT_EQ(board.pixel(3, 3), kRedWord);
    EXPECT_EQ(board.pixel(99, 79), kClear);
}

TEST(Screen, BlitWritesStraightToTheFramebuffer)
{
    struct Case {
        bool skipTransparent;
        ZrRect source;
        ZrPoint to;
        uint16_t first, second; // at (0, 0) and (1, 0)
    };
    Board board;
    ZrImage image(2, 1);
    image.bits()[0] = 255; // transparent red
    image.bits()[5] = 255; // faint green
    image.bits()[7] = 1;
    const Case cases[] = {
        {true, ZrRect(0, 0, 2, 1), ZrPoint(0, 0), kBlueWord, kGreenWord},
        {false, ZrRect(0, 0, 2, 1), ZrPoint(0, 0), 0x7c00, kGreenWord},
        {false, ZrRect(0, 0, 3, 1), ZrPoint(0, 0), kBlueWord, kBlueWord}, // exceeds the image
        {true, ZrRect(0, 0, 2, 1), ZrPoint(-1, 0), kGreenWord, kBlueWord},
        {true, ZrRect(1, 0, 1, 1), ZrPoint(1, 0), kBlueWord, kGreenWord},
    };
    for (const Case &c : cases) {
        board.screen->fillRegion(ZrRect(0, 0, 64, 48), kBlue);
        board.screen->blit(image, c.to, c.source, c.skipTransparent);
        EXPECT_EQ(board.pixel(0, 0), c.first);
        EXPECT_EQ(board.pixel(1, 0), c.second);
    }
}

// Random stacks of windows and holes: after every flush the framebuffer shows, at each pixel, what
// the topmost window that is not hidden has there.
TEST(Screen, RandomStacksShowTheTopmost)
{
    constexpr unsigned kSeed = 7;
    SCOPED_TRACE(testing::Message() << "seed " << kSeed);
    std::mt19937 engine(kSeed);
    auto in = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(engine);
    };
    auto rect = [&] { return ZrRect(in(-5, 50), in(-5, 40), in(1, 40), in(1, 30)); };
    Board board;
    std::unique_ptr<PlainWindow> windows[6];
    const auto create = [&](int i) {
        windows[i].reset();
        windows[i] =
            std::make_unique<PlainWindow>(board.screen, rect(), ZrColor(i * 40, 255 - i * 40, 80));
    };
    for (int i = 0; i < 6; ++i)
        create(i);
    for (int step = 0; step < 400; ++step) {
        const int index = in(0, 5);
        if (in(0, 5) == 0)
            create(index);
        PlainWindow &window = *windows[index];
        window.update();
        switch (in(0, 4)) {
        case 0:
            window.isHidden = !window.isHidden;
            break;
        case 1:
            window.geometry = rect();
            break;
        case 2:
            window.holes = in(0, 1) ? ZrRegion(rect() & window.geometry) : ZrRegion();
            break;
        case 3:
            board.screen->raiseSurface(window.surface);
            break;
        default:
            board.screen->lowerSurface(window.surface);
        }
        if (window.shownHoles().isEmpty() || !window.geometry.contains(window.holes.boundingRect()))
            window.holes &= window.geometry;
        window.update();
        board.settle();
        for (int y = 0; y < 48; y += 3) {
            for (int x = 0; x < 64; x += 3) {
                uint16_t expected = kClear;
                for (ZrMemSurface *surface : board.screen->surfaces()) {
                    const auto *shown = static_cast<PlainWindow *>(surface->client());
                    if (shown->isHidden || !shown->geometry.contains(x, y))
                        continue;
                    expected = shown->holes.contains(ZrPoint(x, y))
                                   ? kClear
                                   : ZrFbCanvas::word(shown->colour.argb());
                }
                ASSERT_EQ(board.pixel(x, y), expected) << x << ", " << y << " step " << step;
            }
        }
    }
}

} // namespace
