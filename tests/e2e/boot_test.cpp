// The start beside App: what crosses the link, in which order, at which length.
#include <gtest/gtest.h>

#include "e2e/recorder.h"
#include "link/parameters.h"

using zrtest::Recorder;

namespace
{

constexpr std::size_t AnyLength = std::size_t(-1);

struct Expected {
    int mainType, subType;
    std::size_t length;
    int kind; // of a parameter request, -1 otherwise
};

constexpr std::size_t Request = 12;

// In this order, nothing between.
const Expected Boot[] = {
    {1000, 0, 8, -1},      {600, 4, 613760, -1},  {600, 3, 0, -1},       {600, 14, 0, -1},
    {600, 10, 611276, -1}, {1000, 104, 0, -1},    {600, 11, 2480, -1},   {1000, 105, 0, -1},
    {1000, 33, 0, -1},     {600, 0, Request, 21},                        // the translation
    {600, 0, Request, 22},                                               // the accounts
    {1000, 41, 4, -1},     {1000, 27, 4, -1},     {600, 0, Request, 32}, // the cameras
    {600, 0, Request, 11}, {600, 0, Request, 24},                        // the live view
    {600, 0, Request, 12}, {600, 0, Request, 17}, {500, 1, 9, -1},       {100, 0, 820, -1},
    {600, 0, Request, 21}, // the general settings, with App's messages already becoming events
    {600, 0, Request, 21}, // and the language by them
    {600, 0, Request, 12}, {600, 0, Request, 50}, {1000, 4, 4, -1},      {600, 9, AnyLength, -1},
};

} // namespace

TEST(Boot, EveryMessageInItsOrderAtItsLength)
{
    Recorder recorder;
    recorder.start();
    ASSERT_TRUE(recorder.app().waitMessage(600, 9)) << recorder.output();
    const SimApp::Messages messages = recorder.app().received();
    ASSERT_GE(messages.size(), std::size(Boot));
    for (std::size_t i = 0; i < std::size(Boot); ++i) {
        const SimApp::Received &message = messages[i];
        SCOPED_TRACE("message " + std::to_string(i));
        EXPECT_EQ(message.head.mainType, Boot[i].mainType);
        EXPECT_EQ(message.head.subType, Boot[i].subType);
        if (Boot[i].length != AnyLength) {
            EXPECT_EQ(message.body.size(), Boot[i].length);
        }
        EXPECT_EQ(message.head.seqNumber, i + 1) << "one number each, from 1";
        EXPECT_EQ(message.head.headTag, 1u);
        EXPECT_EQ(message.head.headKind, 1);
        EXPECT_EQ(message.head.headFlag, 0);
        EXPECT_EQ(message.head.bodyCount, 1);
        if (Boot[i].kind >= 0) {
            WireReader body(message.body.data(), message.body.size());
            EXPECT_EQ(body.u32(ParamRequest::OffsetKind), std::uint32_t(Boot[i].kind));
            EXPECT_EQ(body.u8(ParamRequest::OffsetIsRead), 1);
        }
    }

    // The texts that App paints: 71 behind their offsets.
    const std::vector<std::uint8_t> &texts = messages[std::size(Boot) - 1].body;
    WireReader table(texts.data(), texts.size());
    constexpr std::size_t Area = 284;
    ASSERT_GT(table.size(), Area);
    EXPECT_EQ(table.u32(0), 0u);
    for (std::size_t i = 1; i < 71; ++i) {
        const std::size_t at = Area + table.u32(4 * i);
        ASSERT_LT(at, table.size());
        EXPECT_EQ(table.u8(at - 1), 0) << "each text ends where the next begins: " << i;
    }
    EXPECT_EQ(table.u8(table.size() - 1), 0);
    EXPECT_EQ(table.text(Area, 64), ZrString("Test message"));
}

TEST(Boot, NothingOfTheToolkitBeforeAppHasFinished)
{
    Recorder recorder;
    recorder.app().addRule({1000, 105, SimApp::Rule::Action::Silent});
    recorder.start();
    ASSERT_TRUE(recorder.app().waitMessage(1000, 105)) << recorder.output();
    EXPECT_EQ(recorder.output().find("FrameBuffer"), std::string::npos);
    EXPECT_EQ(recorder.app().received().back().head.subType, 105);
    recorder.app().send(1000, 3);
    EXPECT_TRUE(recorder.app().waitMessage(100, 0)) << recorder.output();
}

TEST(Boot, AFramebufferThatIsNotThereEndsItWithStatus1)
{
    Recorder recorder;
    ASSERT_EQ(unlink((recorder.root() + "/dev/fb0").c_str()), 0);
    recorder.start();
    EXPECT_EQ(recorder.waitExit(), 1);
    EXPECT_NE(recorder.output().find("[GUI-FRAMEWORK]: open (/dev/fb0) failed, set "
                                     "\"ZR_FBDEV_NODE\" env or call "
                                     "ZrApplication::setDisplayDevice() !!!\n"),
              std::string::npos)
        << recorder.output();
}
