#include <gtest/gtest.h>

#include "live/splitmodes.h"
#include "live/video.h"
#include "live/videolayout.h"
#include "live/zrvideoscreenlayoutmanager.h"

#include <memory>
#include <random>

using Merged = ZrVideoScreenLayoutManager::Merged;

namespace
{

ZrVideoScreenLayoutManager &modes()
{
    return *ZrVideoScreenLayoutManager::instance();
}

// Positions that the matrix accounts for: a plain cell for one, a block for all of its square.
int coveredPositions(const ZrVideoScreenLayout &layout)
{
    int rows = 0, columns = 0, covered = 0;
    layout.dimensions(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            covered += layout.spanAt(row, column) * layout.spanAt(row, column);
    }
    return covered;
}

} // namespace

TEST(SplitModes, EveryModeHasTheCellsItsNameSays)
{
    ASSERT_EQ(modes().count(), 23);
    for (int index = 0; index < modes().count(); ++index) {
        const ZrVideoScreenLayout &layout = *modes().layoutAt(index);
        int rows = 0, columns = 0;
        layout.dimensions(rows, columns);
        EXPECT_EQ(layout.cellCount(), std::atoi(live::SplitModes[index].name)) << index;
        EXPECT_EQ(layout.cellCount(), modes().splitCountAt(index)) << index;
        EXPECT_EQ(coveredPositions(layout), rows * columns) << index;
        EXPECT_EQ(modes().indexOfMode(modes().modeAt(index)), index);
    }
}

TEST(SplitModes, BadIndicesAndIdsFallBack)
{
    EXPECT_EQ(modes().layoutAt(-1), modes().layoutAt(0));
    EXPECT_EQ(modes().layoutAt(23), modes().layoutAt(0));
    EXPECT_EQ(modes().layoutOfMode(99), modes().layoutAt(0));
    EXPECT_EQ(modes().indexOfLayout(nullptr), -1);
    EXPECT_EQ(modes().splitCountAt(-1), 1);
    EXPECT_TRUE(modes().nameOfMode(23).isEmpty());
    EXPECT_EQ(live::neededChannels(23), 4);
}

TEST(SplitModes, TheBestModeIsTheFirstThatIsLargeEnough)
{
    const struct {
        int count;
        Merged merged;
        int mode;
    } rows[] = {{1, Merged::Refused, 0},   {5, Merged::Refused, 4},  {5, Merged::Allowed, 2},
                {9, Merged::Refused, 4},   {13, Merged::Allowed, 8}, {13, Merged::Refused, 11},
                {64, Merged::Allowed, 22}, {65, Merged::Allowed, 0}};
    for (const auto &row : rows)
        EXPECT_EQ(modes().bestModeFor(row.count, row.merged), row.mode) << row.count;
}

TEST(SplitModes, MenusEndAtTheFirstModeThatNeedsMoreChannels)
{
    const struct {
        int channels;
        int lastRegular; // mode id
        int unevenCount;
    } rows[] = {{4, 1, 0},   {8, 4, 2},    {10, 7, 4},  {12, 7, 4},
                {16, 11, 7}, {32, 18, 11}, {64, 22, 11}};
    for (const auto &row : rows) {
        const int offered = live::offeredRegularModes(row.channels);
        ASSERT_GT(offered, 0) << row.channels;
        EXPECT_EQ(live::RegularModes[offered - 1], row.lastRegular) << row.channels;
        EXPECT_EQ(live::offeredUnevenModes(row.channels), row.unevenCount) << row.channels;
    }
    EXPECT_EQ(live::offeredRegularModes(3), 0);
}

TEST(SplitModes, AMergeThatDoesNotFitChangesNothing)
{
    ZrVideoScreenLayout layout(4, 4, nullptr);
    for (const auto &merge : {live::SplitMerge{2, 2, 3}, live::SplitMerge{4, 0, 2},
                              live::SplitMerge{0, 0, 5}, live::SplitMerge{0, 0, 1}}) {
        layout.merge(merge.row, merge.column, merge.span);
        EXPECT_EQ(layout.cellCount(), 16);
        EXPECT_EQ(coveredPositions(layout), 16);
    }
    layout.merge(1, 1, 2);
    EXPECT_EQ(layout.cellCount(), 13);
    layout.merge(1, 1, 3); // grows the block
    EXPECT_EQ(layout.cellCount(), 8);
    EXPECT_EQ(layout.spanAt(1, 1), 3);
    EXPECT_EQ(layout.spanAt(3, 3), 0);
    layout.merge(0, 0, 2); // meets the block: the matrix stays
    EXPECT_EQ(coveredPositions(layout), 16);
    EXPECT_EQ(layout.spanAt(0, 0), 1);
}

TEST(VideoGrid, RoundingGoesToTheNearestHalvesUpward)
{
    const struct {
        float value;
        int rounded;
    } rows[] = {{0, 0},     {0.49f, 0},   {0.5f, 1},   {1.5f, 2},   {-0.25f, 0},
                {-0.5f, 0}, {-0.75f, -1}, {-1.5f, -1}, {-2.0f, -2}, {-2.6f, -3}};
    for (const auto &row : rows)
        EXPECT_EQ(roundHalfUp(row.value), row.rounded) << row.value;
}

TEST(VideoGrid, LinesAreAlignedGrowAndStayInside)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const ZrSize sizes[] = {ZrSize(1280, 720), ZrSize(1920, 1080), ZrSize(1280, 1024),
                            ZrSize(1024, 768), ZrSize(3840, 2160)};
    for (int run = 0; run < 2000; ++run) {
        VideoGridMetrics metrics;
        metrics.displaySize = sizes[random() % 5];
        metrics.screenSize = sizes[random() % 4];
        metrics.positionAlign = 1 << (random() % 3);
        metrics.sizeAlign = metrics.positionAlign << (random() % 3);
        const int count = int(random() % 8) + 1;
        const int extent = metrics.screenSize.width();
        const float scale = float(extent) / float(metrics.displaySize.width());
        const GridLines lines = gridLines(0, extent, count, scale, metrics);
        ASSERT_EQ(lines.display.size(), count + 1);
        for (int i = 0; i <= count; ++i) {
            EXPECT_EQ(lines.display.at(i) % metrics.positionAlign, 0);
            EXPECT_GE(lines.display.at(i), 0);
            EXPECT_LE(lines.display.at(i), metrics.displaySize.width());
            EXPECT_LE(lines.framebuffer.at(i), extent);
            if (i > 0) {
                EXPECT_GT(lines.display.at(i), lines.display.at(i - 1));
                EXPECT_GT(lines.framebuffer.at(i), lines.framebuffer.at(i - 1));
            }
        }
    }
}

TEST(VideoGrid, InnerLinesGoToTheNearestAndTheLastOneDown)
{
    const struct {
        int positionAlign, sizeAlign;
        std::vector<int> lines;
    } rows[] = {
        // 341.5, 683 and 1024.5 go down to a multiple of 4; 1366 goes to 1364, which stands.
        {4, 8, {0, 340, 680, 1024, 1364}},
        {16, 16, {0, 336, 688, 1024, 1360}},
        // 1364 is no multiple of 16: up would be outside.
        {16, 8, {0, 352, 688, 1024, 1360}},
    };
    for (const auto &row : rows) {
        VideoGridMetrics metrics;
        metrics.displaySize = metrics.screenSize = ZrSize(1366, 768);
        metrics.positionAlign = row.positionAlign;
        metrics.sizeAlign = row.sizeAlign;
        const GridLines lines = gridLines(0, 1366, 4, 1.0f, metrics);
        EXPECT_EQ(std::vector<int>(lines.display.begin(), lines.display.end()), row.lines)
            << row.positionAlign << ' ' << row.sizeAlign;
    }
}
