// The live view on the screen, and what a person does to it.
#include <gtest/gtest.h>

#include "e2e/recorder.h"
#include "link/app_messages.h"
#include "link/general_records.h"

#include <algorithm>

using live::PreviewRecord;
using zrtest::Recorder;
using zrtest::waitUntil;

namespace
{

// Colours of style/mainview.ini as the framebuffer has them.
constexpr std::uint16_t Selected = 0x8000 | 7 << 10 | 20 << 5 | 31;
constexpr std::uint16_t PointerRim = 0x8000 | 1 << 10 | 2 << 5 | 3;
constexpr std::uint16_t Plain = 0x8000 | 5 << 10 | 6 << 5 | 7;

std::string firstMismatch; // of the last look at a ring

bool ringIs(Recorder &recorder, const ZrRect &cell, int inset, std::uint16_t color)
{
    const ZrRect ring = cell.adjusted(inset, inset, -inset, -inset);
    const ZrRegion pixels = ZrRegion(ring) - ZrRegion(ring.adjusted(1, 1, -1, -1));
    for (const ZrRect &side : pixels) {
        for (int y = side.top(); y <= side.bottom(); ++y) {
            for (int x = side.left(); x <= side.right(); ++x) {
                if (recorder.pixel(x, y) == color)
                    continue;
                firstMismatch = "pixel " + std::to_string(x) + "," + std::to_string(y) + " is " +
                                std::to_string(recorder.pixel(x, y));
                return false;
            }
        }
    }
    return true;
}

bool isSelected(Recorder &recorder, const ZrRect &cell)
{
    return ringIs(recorder, cell, 0, Selected) && ringIs(recorder, cell, 1, Selected);
}

int opaquePixels(Recorder &recorder, const ZrRect &area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += recorder.isOpaque(x, y);
    }
    return count;
}

// Away from names, flags and the middle, where the state label stands.
ZrRect quietPart(const ZrRect &cell)
{
    return ZrRect(cell.left() + 4, cell.top() + 4, cell.width() / 2 - 20, cell.height() / 4);
}

class Live : public testing::Test
{
protected:
    void startAt(int width, int height)
    {
        DeviceOptions device;
        device.displayWidth = width;
        device.displayHeight = height;
        recorder = std::make_unique<Recorder>(device);
        ASSERT_TRUE(recorder->startLive()) << recorder->output();
        // Park the pointer where nothing is looked at.
        recorder->moveTo(width - 60, height - 60);
        ASSERT_TRUE(
            waitUntil([&] { return recorder->pixel(width - 60, height - 60) == PointerRim; }));
    }
    void SetUp() override { startAt(1920, 1080); }

    ZrPoint middle(int index) const
    {
        const ZrRect cell = recorder->cell(index);
        return ZrPoint(cell.left() + cell.width() / 2, cell.top() + cell.height() / 3);
    }

    std::unique_ptr<Recorder> recorder;
};

} // namespace

TEST_F(Live, PicturesTileTheDisplayAndTheHolesAgree)
{
    const PreviewRecord pictures = recorder->pictures();
    ASSERT_EQ(pictures.count, 16u);
    EXPECT_EQ(pictures.cellCount, 16u);
    ZrRegion covered;
    for (int i = 0; i < 16; ++i) {
        const ZrRect cell = recorder->cell(i);
        EXPECT_EQ(pictures.pictures[i].channel, std::uint32_t(i));
        EXPECT_FALSE(covered.intersects(cell)) << "cells overlap at " << i;
        covered += cell;
        // Between the border and the overlays the video shows, on the border it does not.
        EXPECT_EQ(opaquePixels(*recorder, quietPart(cell)), 0) << "cell " << i;
        EXPECT_TRUE(i == 0 ? isSelected(*recorder, cell) : ringIs(*recorder, cell, 0, Plain))
            << "cell " << i;
        if (i > 0) {
            EXPECT_FALSE(recorder->isOpaque(cell.left() + 1, cell.top() + 1)) << "cell " << i;
        }
    }
    EXPECT_EQ(covered.rectCount(), 1) << "the cells leave a gap";
}

TEST_F(Live, NamesStandInTheirCells)
{
    for (const int i : {0, 5, 8, 15}) {
        const ZrRect cell = recorder->cell(i);
        const ZrRect lowerLeft(cell.left() + 4, cell.bottom() - 60, cell.width() / 2, 56);
        EXPECT_TRUE(waitUntil([&] { return opaquePixels(*recorder, lowerLeft) > 100; }))
            << "cell " << i;
    }
}

TEST_F(Live, AClickSelectsACellAndRepaintsOnlyTheRings)
{
    // Marks that any repaint of the inside of a cell would wipe out.
    std::vector<ZrPoint> marks;
    for (int i = 0; i < 16; ++i) {
        const ZrRect quiet = quietPart(recorder->cell(i));
        marks.push_back(ZrPoint(quiet.left() + 20, quiet.top() + 20));
        recorder->mark(marks.back().x(), marks.back().y(), 0x1234);
    }
    const ZrRect before = recorder->cell(0);
    const ZrRect after = recorder->cell(6);
    recorder->click(middle(6).x(), middle(6).y());
    ASSERT_TRUE(waitUntil([&] { return isSelected(*recorder, after); })) << recorder->output();
    EXPECT_TRUE(waitUntil([&] { return ringIs(*recorder, before, 0, Plain); }));
    EXPECT_FALSE(recorder->isOpaque(before.left() + 1, before.top() + 1));
    for (std::size_t i = 0; i < marks.size(); ++i)
        EXPECT_EQ(recorder->pixel(marks[i].x(), marks[i].y()), 0x1234) << "cell " << i;
    EXPECT_FALSE(recorder->app().waitMessage(100, 0, 2, std::chrono::milliseconds(0)))
        << "a selection moves no picture";
}

TEST_F(Live, ADoubleClickFillsTheScreenWithACellAndBack)
{
    recorder->doubleClick(middle(5).x(), middle(5).y());
    ASSERT_TRUE(recorder->app().waitMessage(100, 1)) << recorder->output();
    PreviewRecord full = recorder->pictures();
    EXPECT_EQ(full.count, 1u);
    EXPECT_EQ(full.pictures[0].channel, 5u);
    EXPECT_EQ(full.cellCount, 1u);
    EXPECT_EQ(recorder->cell(0), ZrRect(0, 0, 1920, 1080));
    EXPECT_TRUE(waitUntil([&] {
        return ringIs(*recorder, ZrRect(0, 0, 1920, 1080), 0, Plain) &&
               opaquePixels(*recorder, ZrRect(400, 200, 1100, 100)) == 0;
    }));

    recorder->doubleClick(960, 300);
    ASSERT_TRUE(recorder->app().waitMessage(100, 1, 2));
    EXPECT_EQ(recorder->pictures().count, 16u);
    EXPECT_TRUE(waitUntil([&] { return isSelected(*recorder, recorder->cell(5)); }))
        << firstMismatch;
}

TEST_F(Live, ThePointerFollowsTheStreamOnItsOwn)
{
    recorder->moveTo(700, 130);
    EXPECT_TRUE(waitUntil([&] { return opaquePixels(*recorder, ZrRect(700, 130, 36, 36)) > 50; }));
    EXPECT_EQ(opaquePixels(*recorder, ZrRect(1860, 1020, 36, 36)), 0) << "and leaves no trace";
}

TEST_F(Live, AppMovesThePointerToo)
{
    WireWriter body(12);
    body.u16(0, 960).u16(2, 540).u16(4, 350).u16(6, 65).u16(8, 1).u16(10, 0);
    recorder->app().send(1000, 134, std::vector<std::uint8_t>(body.data(), body.data() + 12));
    EXPECT_TRUE(waitUntil([&] { return opaquePixels(*recorder, ZrRect(700, 130, 36, 36)) > 50; }));
}

TEST_F(Live, ACameraThatGoesGetsItsTextAndAnOldOneItsSetAnew)
{
    const ZrRect cell = recorder->cell(3);
    const ZrRect center(cell.left() + cell.width() / 2 - 40, cell.top() + cell.height() / 2 - 16,
                        80, 32);
    ASSERT_EQ(opaquePixels(*recorder, center), 0);
    recorder->app().change(
        [](SimDevice &device) { device.channel(3).state = SimChannel::NoCamera; });
    EXPECT_TRUE(waitUntil([&] { return opaquePixels(*recorder, center) > 50; }));
    recorder->app().change([](SimDevice &device) { device.channel(3).state = SimChannel::Online; });
    EXPECT_TRUE(waitUntil([&] { return opaquePixels(*recorder, center) == 0; }));
}

TEST_F(Live, ALanguageChosenAtRunTimeReachesTheScreenAndApp)
{
    const ZrRect cell = recorder->cell(3);
    const ZrRect center(cell.left() + cell.width() / 2 - 80, cell.top() + cell.height() / 2 - 16,
                        160, 32);
    const auto label = [&] {
        std::vector<std::uint16_t> pixels;
        for (int y = center.top(); y <= center.bottom(); ++y) {
            for (int x = center.left(); x <= center.right(); ++x)
                pixels.push_back(recorder->pixel(x, y));
        }
        return pixels;
    };
    recorder->app().change(
        [](SimDevice &device) { device.channel(3).state = SimChannel::NoCamera; });
    ASSERT_TRUE(waitUntil([&] { return opaquePixels(*recorder, center) > 50; }));
    const std::vector<std::uint16_t> english = label();
    constexpr std::uint8_t Chinese = 0;
    recorder->app().changeParam(GeneralParams::Kind, [](std::vector<std::uint8_t> &record) {
        record[GeneralParams::OffsetLanguage] = Chinese;
    });
    EXPECT_TRUE(
        waitUntil([&] { return label() != english && opaquePixels(*recorder, center) > 50; }));
    // What App paints itself goes there anew.
    const auto table = recorder->app().waitMessage(600, 9, 2);
    ASSERT_TRUE(table) << recorder->output();
    WireReader texts(table->body.data(), table->body.size());
    constexpr std::size_t Area = 284;
    EXPECT_GE(texts.text(Area, 64).at(0), 0x4E00) << "a Chinese character";
}

TEST_F(Live, AnAppThatVanishesAndReturnsIsReconnectedOnce)
{
    recorder->app().dropConnection();
    EXPECT_TRUE(recorder->app().waitConnections(2));
    // The link goes on with its numbers: a double click still reaches App.
    recorder->doubleClick(middle(3).x(), middle(3).y());
    const auto moved = recorder->app().waitMessage(100, 1);
    ASSERT_TRUE(moved) << recorder->output();
    EXPECT_EQ(moved->connection, 2);
    EXPECT_GT(moved->head.seqNumber, 25u);

    // Gone for good: no second attempt, no exit, the interface lives.
    recorder->app().stopListening();
    recorder->app().dropConnection();
    EXPECT_TRUE(waitUntil([&] {
        return recorder->output().find("client connect error,exit thread") != std::string::npos;
    }));
    EXPECT_TRUE(recorder->isRunning());
    recorder->moveTo(100, 100);
    EXPECT_TRUE(waitUntil([&] { return opaquePixels(*recorder, ZrRect(100, 100, 36, 36)) > 50; }));
}

TEST_F(Live, NonsenseFromAppCostsAConnectionAndNothingElse)
{
    AppMsgHead head;
    head.mainType = 1000;
    head.subType = 19;
    head.bodyLength = 0xFFFFFFFF;
    std::uint8_t bytes[AppMsgHead::Size];
    head.encode(bytes);
    recorder->app().sendBytes(std::vector<std::uint8_t>(bytes, bytes + sizeof bytes));
    EXPECT_TRUE(recorder->app().waitConnections(2));
    // Short and empty records of every routed message change nothing and end nothing.
    for (const int sub : {19, 48, 56, 80, 94})
        recorder->app().send(1000, std::uint16_t(sub), {1, 2, 3});
    recorder->app().send(600, 0, {});
    recorder->app().send(600, 7, {});
    recorder->app().send(100, 0, {});
    recorder->app().announceStates();
    recorder->click(middle(9).x(), middle(9).y());
    EXPECT_TRUE(waitUntil([&] { return isSelected(*recorder, recorder->cell(9)); }));
    EXPECT_TRUE(recorder->isRunning());
}

TEST(LiveSizes, OtherScreensAndModesAgreeToo)
{
    for (const int mode : {0, 1, 8, 17}) {
        DeviceOptions device;
        device.displayWidth = 1280;
        device.displayHeight = 720;
        device.splitMode = mode;
        Recorder recorder(device);
        ASSERT_TRUE(recorder.startLive()) << recorder.output();
        const PreviewRecord pictures = recorder.pictures();
        ZrRegion covered;
        for (std::uint32_t i = 0; i < pictures.count; ++i)
            covered += recorder.cell(int(i));
        EXPECT_TRUE(ZrRect(0, 0, 1280, 720)
                        .contains(ZrPoint(covered.boundingRect().right(),
                                          covered.boundingRect().bottom())));
        EXPECT_EQ(pictures.count, std::min<std::uint32_t>(pictures.cellCount, 16)) << mode;
    }
}

TEST_F(Live, ASlowAnswerShowsASignUntilItComes)
{
    const int x = recorder->screen().width() / 2;
    const int y = recorder->screen().height() / 2;
    const auto isSignShown = [&] {
        // Cells meet in the middle: what stands there is borders, or the sign over them.
        return recorder->isOpaque(x - 30, y - 5) && recorder->isOpaque(x + 30, y + 5);
    };
    ASSERT_FALSE(isSignShown());
    constexpr std::size_t Late = 2500;
    recorder->app().addRule(
        {AppMain::parameters, AppParameter::paramAccess, SimApp::Rule::Action::Late, Late, 1});
    recorder->app().changeParam(GeneralParams::Kind, [](std::vector<uint8_t> &) {});
    EXPECT_TRUE(waitUntil(isSignShown)) << recorder->output();
    EXPECT_TRUE(waitUntil([&] { return !isSignShown(); })) << recorder->output();
}
