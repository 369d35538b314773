// The live view on the screen, and what a person does to it.
#include <gtest/gtest.h>

#include "e2e/recorder.h"
#include "link/app_messages.h"
#include "link/general_records.h"

#include <algorithm>

using live::PreviewRecord;
using zrtest::Recorder;

namespace
{

// Colours of style/mainview.ini as the framebuffer has them.
constexpr std::uint16_t Selected = 0x8000 | 7 << 10 | 20 << 5 | 31;
constexpr std::uint16_t PointerRim = 0x8000 | 1 << 10 | 2 << 5 | 3;
constexpr std::uint16_t Plain = 0x8000 | 5 << 10 | 6 << 5 | 7;

bool ringIs(Recorder &recorder, const ZrRect &cell, int inset, std::uint16_t color)
{
    const ZrRect ring = cell.adjusted(inset, inset, -inset, -inset);
    const ZrRegion sides = ZrRegion(ring) - ZrRegion(ring.adjusted(1, 1, -1, -1));
    return std::all_of(sides.begin(), sides.end(), [&](const ZrRect &side) {
        const auto pixels = recorder.pixels(side);
        return std::count(pixels.begin(), pixels.end(), color) == std::ptrdiff_t(pixels.size());
    });
}

bool isSelected(Recorder &recorder, const ZrRect &cell)
{
    return ringIs(recorder, cell, 0, Selected) && ringIs(recorder, cell, 1, Selected);
}

// A border, and video within.
bool isPlain(Recorder &recorder, const ZrRect &cell)
{
    return ringIs(recorder, cell, 0, Plain) && !recorder.isOpaque(cell.left() + 1, cell.top() + 1);
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
            eventually([&] { return recorder->pixel(width - 60, height - 60) == PointerRim; }));
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
        EXPECT_EQ(recorder->opaquePixels(quietPart(cell)), 0) << "cell " << i;
        EXPECT_TRUE(eventually([&] {
            return i == 0 ? isSelected(*recorder, cell) : isPlain(*recorder, cell);
        })) << "cell "
            << i;
        const ZrRect name(cell.left() + 4, cell.bottom() - 60, cell.width() / 2, 56);
        EXPECT_TRUE(eventually([&] { return recorder->opaquePixels(name) > 100; })) << "cell " << i;
    }
    EXPECT_EQ(covered.rectCount(), 1) << "the cells leave a gap";
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
    ASSERT_TRUE(eventually([&] { return isSelected(*recorder, after); })) << recorder->output();
    EXPECT_TRUE(eventually([&] { return isPlain(*recorder, before); }));
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
    EXPECT_TRUE(eventually([&] {
        return ringIs(*recorder, ZrRect(0, 0, 1920, 1080), 0, Plain) &&
               recorder->opaquePixels(ZrRect(400, 200, 1100, 100)) == 0;
    }));

    recorder->doubleClick(960, 300);
    ASSERT_TRUE(recorder->app().waitMessage(100, 1, 2));
    EXPECT_EQ(recorder->pictures().count, 16u);
    EXPECT_TRUE(eventually([&] { return isSelected(*recorder, recorder->cell(5)); }));
}

TEST_F(Live, ThePointerFollowsTheStreamAndApp)
{
    recorder->moveTo(700, 130);
    EXPECT_TRUE(eventually([&] { return recorder->opaquePixels(ZrRect(700, 130, 36, 36)) > 50; }));
    EXPECT_EQ(recorder->opaquePixels(ZrRect(1860, 1020, 36, 36)), 0) << "and leaves no trace";

    WireWriter body(12); // at 200,65 of a screen of half the size
    body.u16(0, 960).u16(2, 540).u16(4, 200).u16(6, 65).u16(8, 1).u16(10, 0);
    recorder->app().send(1000, 134, std::vector<std::uint8_t>(body.data(), body.data() + 12));
    EXPECT_TRUE(eventually([&] { return recorder->opaquePixels(ZrRect(400, 130, 36, 36)) > 50; }));
}

TEST_F(Live, ACameraThatGoesGetsItsTextInTheLanguageChosen)
{
    const ZrRect cell = recorder->cell(3);
    const ZrRect label(cell.left() + cell.width() / 2 - 80, cell.top() + cell.height() / 2 - 16,
                       160, 32);
    const auto becomes = [&](SimChannel::State state) {
        recorder->app().change([&](SimDevice &device) { device.channel(3).state = state; });
    };
    ASSERT_EQ(recorder->opaquePixels(label), 0);
    becomes(SimChannel::NoCamera);
    ASSERT_TRUE(eventually([&] { return recorder->opaquePixels(label) > 50; }));
    const std::vector<std::uint16_t> english = recorder->pixels(label);
    constexpr std::uint8_t Chinese = 0;
    recorder->app().changeParam(GeneralParams::Kind, [](std::vector<std::uint8_t> &record) {
        record[GeneralParams::OffsetLanguage] = Chinese;
    });
    EXPECT_TRUE(eventually(
        [&] { return recorder->pixels(label) != english && recorder->opaquePixels(label) > 50; }));
    // What App paints itself goes there anew.
    const auto table = recorder->app().waitMessage(600, 9, 2);
    ASSERT_TRUE(table) << recorder->output();
    WireReader texts(table->body.data(), table->body.size());
    constexpr std::size_t Area = 284;
    EXPECT_GE(texts.text(Area, 64).at(0), 0x4E00) << "a Chinese character";
    becomes(SimChannel::Online);
    EXPECT_TRUE(eventually([&] { return recorder->opaquePixels(label) == 0; }));
}

TEST_F(Live, NonsenseOrSilenceOfAppCostsAConnectionAndNothingElse)
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
    recorder->doubleClick(middle(9).x(), middle(9).y());
    const auto moved = recorder->app().waitMessage(100, 1);
    ASSERT_TRUE(moved) << recorder->output();
    EXPECT_EQ(moved->connection, 2);

    // Gone for good: the interface lives.
    recorder->app().stopListening();
    recorder->app().dropConnection();
    EXPECT_TRUE(eventually([&] {
        return recorder->output().find("client connect error,exit thread") != std::string::npos;
    }));
    recorder->moveTo(100, 100);
    EXPECT_TRUE(eventually([&] { return recorder->opaquePixels(ZrRect(100, 100, 36, 36)) > 50; }));
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
        EXPECT_TRUE(ZrRect(0, 0, 1280, 720).contains(covered.boundingRect())) << mode;
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
    EXPECT_TRUE(eventually(isSignShown)) << recorder->output();
    EXPECT_TRUE(eventually([&] { return !isSignShown(); })) << recorder->output();
}
