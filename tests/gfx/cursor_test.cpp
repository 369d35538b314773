#include "gfx/board.h"

#include <zrimage>
#include <zrscreencursor>

#include <atomic>
#include <random>
#include <thread>

namespace
{

const ZrColor kRed(255, 0, 0), kGreen(0, 255, 0);
constexpr uint16_t kRedWord = 0xfc00, kGreenWord = 0x83e0;

// A square pointer, white but for one transparent corner at the bottom right.
ZrImage pointerImage(int side)
{
    ZrImage image(side, side, ZrColor(255, 255, 255));
    image.bits()[side * side * 4 - 1] = 0;
    return image;
}

// How many pixels of the screen are not the given one.
int differing(const Board &board, uint16_t word)
{
    int count = 0;
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x)
            count += board.pixel(x, y) != word;
    return count;
}

class Cursor : public testing::Test
{
protected:
    Cursor() : window(board.screen, ZrRect(0, 0, 64, 48), kRed)
    {
        board.settle();
        board.screen->setCursor(pointerImage(4), 0, 0);
        board.screen->moveCursor(10, 10);
    }

    Board board;
    PlainWindow window;
};

TEST_F(Cursor, IsAMaskOverWhatItKeeps)
{
    EXPECT_EQ(board.pixel(10, 10), kWhite);
    EXPECT_EQ(board.pixel(13, 13), kRedWord) << "transparent pixel";
    EXPECT_EQ(differing(board, kRedWord), 15);
    board.screen->moveCursor(20, 20);
    EXPECT_EQ(board.pixel(10, 10), kRedWord);
    EXPECT_EQ(differing(board, kRedWord), 15);
}

TEST_F(Cursor, ShowsOnlyWhatLiesOnTheScreen)
{
    struct Case {
        int x, y, pixels;
    };
    board.screen->setCursor(pointerImage(4), 2, 2);
    for (const Case &c : {Case{0, 0, 3}, Case{63, 47, 9}, Case{1, 30, 11}, Case{30, 47, 12},
                          Case{-9, 5, 0}, Case{30, 20, 15}}) {
        board.screen->moveCursor(c.x, c.y);
        EXPECT_EQ(differing(board, kRedWord), c.pixels) << c.x << ", " << c.y;
    }
    board.screen->cursor()->hide();
    EXPECT_EQ(differing(board, kRedWord), 0);
}

TEST_F(Cursor, FlushBeneathItIsKept)
{
    window.surface->setBackground(kGreen);
    board.settle();
    EXPECT_EQ(board.pixel(10, 10), kWhite);
    EXPECT_EQ(board.pixel(13, 13), kGreenWord);
    board.screen->moveCursor(40, 40);
    EXPECT_EQ(board.pixel(10, 10), kGreenWord);

    // Hidden meanwhile: what it comes back over is the newest picture.
    board.screen->cursor()->hide();
    window.surface->setBackground(kRed);
    board.settle();
    board.screen->cursor()->show();
    EXPECT_EQ(differing(board, kRedWord), 15);
    board.screen->moveCursor(2, 2);
    EXPECT_EQ(differing(board, kRedWord), 15);
}

TEST_F(Cursor, NewShapeKeepsTheTip)
{
    board.screen->setCursor(pointerImage(6), 3, 3);
    EXPECT_EQ(board.screen->cursor()->rect(), ZrRect(7, 7, 6, 6));
    EXPECT_EQ(differing(board, kRedWord), 35);
    board.screen->setCursor(ZrImage(), 0, 0);
    EXPECT_EQ(differing(board, kRedWord), 0) << "no image, no pointer";
    board.screen->setCursor(pointerImage(4), 0, 0);
    EXPECT_EQ(differing(board, kRedWord), 15);
}

TEST_F(Cursor, TimeoutsOfZeroAndBelowAreForGood)
{
    ZrScreenCursor &cursor = *board.screen->cursor();
    cursor.setTimeout(0);
    EXPECT_FALSE(cursor.isVisible());
    board.screen->moveCursor(5, 5);
    EXPECT_EQ(differing(board, kRedWord), 0);
    cursor.setTimeout(-1);
    EXPECT_EQ(differing(board, kRedWord), 15);
    EXPECT_EQ(cursor.rect(), ZrRect(5, 5, 4, 4));
}

TEST_F(Cursor, SleepsWhileTheScreenIsClosed)
{
    board.screen->close();
    board.screen->moveCursor(30, 30);
    ASSERT_TRUE(board.screen->open(ZrString(Board::device)));
    board.screen->markAllDirty();
    board.settle();
    EXPECT_EQ(differing(board, kRedWord), 0) << "shows at the next move";
    board.screen->moveCursor(30, 30);
    EXPECT_EQ(differing(board, kRedWord), 15);
}

// The mouse thread moves while flushes and holes go on everywhere: once both rest and the pointer
// is gone, no pixel of it and no stale one may be left.
TEST_F(Cursor, AndFlushesLeaveNothingBehind)
{
    constexpr unsigned kSeed = 11;
    SCOPED_TRACE(testing::Message() << "seed " << kSeed);
    std::atomic<bool> isDone{false};
    std::thread mouse([&] {
        std::mt19937 engine(kSeed);
        for (int i = 0; !isDone; ++i) {
            board.screen->moveCursor(int(engine() % 70), int(engine() % 54));
            if (i % 64 == 0)
                board.screen->cursor()->setVisible(i % 128 != 0);
        }
    });
    std::mt19937 engine(kSeed + 1);
    for (int i = 0; i < 30000; ++i) {
        window.holes = i % 3 ? ZrRegion() : ZrRegion(int(engine() % 60), int(engine() % 44), 8, 8);
        window.surface->setBackground(i % 2 ? kRed : kGreen);
        window.surface->updateFromClient(ZrRect(int(engine() % 60), int(engine() % 44), 12, 9));
        if (i % 50 == 0)
            board.screen->setCursor(pointerImage(3 + i % 7), i % 3, i % 2);
        board.settle();
    }
    isDone = true;
    mouse.join();
    board.screen->cursor()->hide();
    window.holes.clear();
    window.update();
    board.settle();
    EXPECT_EQ(differing(board, kRedWord), 0);

    board.screen->cursor()->show();
    board.screen->moveCursor(20, 20);
    board.screen->cursor()->hide();
    EXPECT_EQ(differing(board, kRedWord), 0);
}

} // namespace
