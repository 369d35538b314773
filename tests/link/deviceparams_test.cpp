#include "link/app_messages.h"
#include "link/deviceparams.h"
#include "link/paramkinds.h"
#include "link/profilelayout.h"
#include "link/wirewriter.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

namespace
{

TEST(DeviceParams, EachQuestionHasItsOwnBytes)
{
    std::vector<const char *> owner(DeviceParamBlock::SwitchEnd);
    std::set<std::string> names;
    int switches = 0;
    for (auto row = deviceParamsBegin(); row != deviceParamsEnd(); ++row) {
        EXPECT_TRUE(names.insert(row->getter).second) << row->getter;
        switches += row->kind == DeviceParamRow::Kind::Switch;
        for (size_t i = row->offset; i < row->offset + row->width; ++i) {
            ASSERT_LT(i, owner.size()) << row->getter;
            EXPECT_EQ(owner[i], nullptr) << row->getter << " over " << owner[i];
            owner[i] = row->getter;
        }
        if (*row->profileKey) {
            EXPECT_NE(Profile::findKey(row->profileKey), nullptr) << row->profileKey;
        }
    }
    EXPECT_GE(switches, 145);
}

TEST(DeviceParams, GettersReadTheBytesTheyAreNamedAfter)
{
    DeviceParamBlock block;
    WireWriter out(block.bytes, sizeof block.bytes);
    out.u32(20, 1920).u32(24, 1080).u32(28, 57).text(48, 12, "/dev/fb12345");
    out.u8(72, 24).u8(74, 16).u8(77, 4).u8(141, 1).u8(248, 2);
    setDeviceParamBlock(block);
    EXPECT_EQ(displayWidth(), 1920u);
    EXPECT_EQ(displayHeight(), 1080u);
    EXPECT_EQ(deviceModelCode(), 57u);
    EXPECT_EQ(framebufferNode(), ZrString("/dev/fb12345")); // a full field has no zero
    EXPECT_EQ(channelCount(), 24);
    EXPECT_EQ(ipChannelCount(), 16);
    EXPECT_EQ(analogChannelCount(), 8);
    EXPECT_EQ(alarmInputCount(), 4);
    EXPECT_TRUE(usePersianDate());
    EXPECT_TRUE(isAiUsbStickEnabled());
    EXPECT_FALSE(isSpotOutputEnabled());
    EXPECT_TRUE(isDigitalSidePresent());
    EXPECT_EQ(channelListLimit(), 32);
    out.u8(74, 24).u8(245, 1);
    setDeviceParamBlock(block);
    EXPECT_FALSE(isDigitalSidePresent());
    EXPECT_EQ(channelListLimit(), 40);
    out.u8(74, 30).u8(144, 1);
    setDeviceParamBlock(block);
    EXPECT_EQ(analogChannelCount(), 0); // not below zero
    EXPECT_TRUE(isDigitalSidePresent());
    setDeviceParamBlock(DeviceParamBlock());
}

TEST(DeviceParams, LimitsTheFrameRateByResolutionAndMode)
{
    struct {
        int code, mode;
        bool ntsc;
        int limit;
    } const rows[] = {
        {62, 12, true, 10}, {0, 12, false, 10}, {62, 30, true, 15}, {66, 30, true, 15},
        {67, 30, true, 10}, {72, 30, true, 15}, {74, 30, true, 15}, {75, 30, true, 10},
        {82, 30, true, 15}, {83, 30, true, 15}, {84, 30, true, 10}, {86, 30, true, 15},
        {91, 30, true, 10}, {92, 30, true, 15}, {94, 30, true, 15}, {95, 30, true, 10},
        {62, 0, true, 10},  {86, 0, true, 10},  {92, 0, true, 15},  {61, 0, true, 5},
        {80, 1, true, 15},  {81, 7, false, 15}, {62, 7, true, 30},  {62, 7, false, 25},
    };
    for (const auto &row : rows)
        EXPECT_EQ(frameRateLimit(row.code, row.mode, row.ntsc), row.limit)
            << row.code << ' ' << row.mode;
}

TEST(ParamKinds, AreSortedAndFound)
{
    for (auto row = paramKindsBegin(); row != paramKindsEnd(); ++row) {
        EXPECT_EQ(findParamKind(row->kind), row);
        if (row != paramKindsBegin()) {
            EXPECT_LT(row[-1].kind, row->kind);
        }
    }
    EXPECT_EQ(paramKindsEnd() - paramKindsBegin(), 66);
    EXPECT_EQ(paramSize(74), 73736u);
    for (uint32_t none : {0u, 2u, 26u, 83u, 87u, 0xFFFFFFFFu})
        EXPECT_EQ(paramSize(none), 0u);
}

const char *kindName(DeviceParamRow::Kind kind)
{
    switch (kind) {
    case DeviceParamRow::Kind::Word:
        return "u32";
    case DeviceParamRow::Kind::Text:
        return "text";
    case DeviceParamRow::Kind::Number:
        return "u8";
    case DeviceParamRow::Kind::Switch:
        return "switch";
    case DeviceParamRow::Kind::Live:
        return "switch, asked each time";
    }
    return "";
}

const char *conversionName(Profile::Conversion conversion)
{
    const char *const names[] = {"decimal", "hexadecimal",     "hexadecimal, 64 bits",
                                 "text",    "names by commas", "five numbers",
                                 "mask"};
    return names[int(conversion)];
}

// The page that a porter reads, made of the tables.
std::string renderPage()
{
    std::ostringstream page;
    page << "# Device parameters\n\n"
            "Made from the tables in `src/link/devicetable.h` and `src/link/profilelayout.cpp`; a "
            "test keeps it so.\n\n"
            "## Device parameter block\n\n"
            "316 bytes, little-endian, App's answer to 1000/33. Bytes without a name are App's. "
            "Where a line of the profile is named, App fills the field from it.\n\n"
            "| Offset | Type | Getter | Meaning | Profile |\n|---|---|---|---|---|\n";
    for (auto row = deviceParamsBegin(); row != deviceParamsEnd(); ++row) {
        page << "| " << row->offset << " | " << kindName(row->kind) << " | `" << row->getter
             << "` | " << row->meaning << " | ";
        if (*row->profileKey)
            page << '`' << row->profileKey << '`';
        page << " |\n";
    }
    page << "\n## Custom part of the device profile\n\n"
            "2480 bytes, little-endian, the beginning of 600/4, in order of reading. What the keys "
            "mean stands in `custom-config.ini`.\n\n"
            "| Key | Value | Offset | Bytes |\n|---|---|---|---|\n";
    const auto line = [&](const Profile::Key &row) {
        page << "| `" << row.key << "` | " << conversionName(row.conversion) << " | " << row.offset
             << " | " << row.width;
        if (row.count > 1)
            page << " x " << row.count;
        page << " |\n";
    };
    line(Profile::factoryMaskKey());
    for (auto row = Profile::keysBegin(); row != Profile::keysEnd(); ++row)
        line(*row);
    return page.str();
}

TEST(DeviceParams, ThePageInTheDocumentsIsThatOfTheTables)
{
    std::ostringstream there;
    there << std::ifstream(ZR_SOURCE_DIR "/docs/device-parameters.md").rdbuf();
    const std::string page = renderPage();
    if (there.str() != page)
        std::ofstream(ZR_BINARY_DIR "/device-parameters.md") << page;
    EXPECT_TRUE(there.str() == page)
        << "docs/device-parameters.md is old; the new one is " ZR_BINARY_DIR
           "/device-parameters.md";
}

} // namespace
