#include "workbench/simapp/simapp.h"

#include "link/appcalls.h"
#include "link/applink.h"
#include "link/deviceparams.h"
#include "link/parameters.h"
#include "link/paramkinds.h"
#include "link/profilelayout.h"
#include "link/startup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace
{

std::string socketPath()
{
    static int count = 0;
    return testing::TempDir() + "zrsim" + std::to_string(getpid()) + "." + std::to_string(++count);
}

// A simulated App and a link to it in this process.
class SimAppTest : public testing::Test
{
protected:
    SimAppTest() : app(options()), link(path_)
    {
        appUseLink(&link);
        link.setRepeatDelay(200);
        EXPECT_TRUE(app.start());
    }
    ~SimAppTest() override
    {
        link.stop();
        appUseLink(nullptr);
    }
    SimApp::Options options()
    {
        SimApp::Options options;
        options.socketPath = path_ = socketPath();
        return options;
    }

    std::string path_;
    SimApp app;
    AppLink link;
};

TEST_F(SimAppTest, AnswersABootWithWhatTheProfileSays)
{
    const auto folder = std::filesystem::current_path();
    std::filesystem::current_path(ZR_SOURCE_DIR); // where custom-config.ini is
    testing::internal::CaptureStdout();
    appLinkStart(nullptr);
    announceInterface();
    configureApp();
    waitForApp();
    std::filesystem::current_path(folder);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "GUI: UI is running, tell App ...\n"
              "GUI: App is running, configurate default parameter for app ...\n"
              "DevType: 0x100\n"
              "GUI: Waiting App finish init work ...\n"
              "GUI: App init OK, now do everything we want to do !!\n");
    const auto received = app.received();
    ASSERT_EQ(received.size(), 9u);
    WireReader running(received[0].body.data(), 8);
    EXPECT_EQ(running.u32(0), 32u);
    EXPECT_EQ(running.u32(4), 613760u);
    // What App filled from the profile comes back as answers.
    EXPECT_EQ(channelCount(), 16);
    EXPECT_EQ(analogChannelCount(), 8);
    EXPECT_EQ(displayWidth(), 1920u);
    EXPECT_EQ(framebufferNode(), ZrString("/dev/fb0"));
    EXPECT_EQ(audioCount(), 4);
    EXPECT_TRUE(isCoaxEnabled());
    EXPECT_FALSE(usePersianDate());
    EXPECT_EQ(panelKeyTable(), 0x7FFFFFFFu);
}

TEST_F(SimAppTest, HasARecordOfEveryKindAndKeepsWhatIsWritten)
{
    appLinkStart(nullptr);
    for (auto row = paramKindsBegin(); row != paramKindsEnd(); ++row) {
        std::vector<uint8_t> record(row->size, 0x55), again(row->size);
        ZrGetParam(row->kind, record.data(), row->size);
        ASSERT_EQ(record, app.param(row->kind)) << "kind " << row->kind;
        record.back() ^= 0x5A;
        ZrSetParam(row->kind, record.data(), row->size);
        ZrGetParam(row->kind, again.data(), row->size);
        ASSERT_EQ(again, record);
        ZrGetParam(row->kind, again.data(), row->size, true);
        ASSERT_NE(again, record); // the default stays
    }
}

TEST_F(SimAppTest, AWriteIsMadeOnlyIfItDiffersAndIsEchoed)
{
    appLinkStart(nullptr);
    ParamRecord record(ParamKind::general);
    record.read();
    EXPECT_FALSE(record.writeIfChanged());
    record.writer().u8(2, 3);
    EXPECT_TRUE(record.writeIfChanged());
    EXPECT_FALSE(record.writeIfChanged());
    // The whole record went out once, behind the one read.
    ASSERT_TRUE(app.waitMessage(600, 0, 2));
    record.read();
    EXPECT_EQ(record.reader().u8(2), 3);
    const auto received = app.received();
    EXPECT_EQ(received.size(), 3u);
    EXPECT_EQ(received[1].body.size(), 12 + 168u);
    EXPECT_EQ(received[1].body[9], 0);
    testing::internal::CaptureStdout();
    ZrSetParam(ParamKind::general, nullptr, 168);
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(printed.find("\033[0;31m[ZrSetParam "), 0u);
    EXPECT_NE(printed.find("]Parameter pointer error!\033[0;39m\n"), std::string::npos);
    record.read();
    EXPECT_EQ(app.received().size(), 4u); // nothing but this read followed
}

TEST_F(SimAppTest, AnImportIsToldAsOneListOfKinds)
{
    appLinkStart(nullptr);
    appSend(AppMain::parameters, AppParameter::importParams);
    // Without a receiver the link notes the sum of main and sub type, which this waits for.
    appWaitState(uint32_t(AppMain::parameters + AppParameter::paramsReloaded) - 1000u);
}

TEST_F(SimAppTest, RulesMakeAnswersLongShortLateOrNone)
{
    appLinkStart(nullptr);
    using Action = SimApp::Rule::Action;
    uint8_t record[168];
    app.addRule({600, 0, Action::Resized, 3, 1});
    ZrGetParam(ParamKind::general, record, sizeof record);
    EXPECT_EQ(record[0], app.param(ParamKind::general)[0]);
    EXPECT_EQ(std::count(record + 3, record + sizeof record, 0), long(sizeof record) - 3);
    app.addRule({600, 0, Action::Resized, 5000, 1});
    ZrGetParam(ParamKind::general, record, sizeof record);
    EXPECT_EQ(memcmp(record, app.param(ParamKind::general).data(), sizeof record), 0);
    testing::internal::CaptureStdout(); // the repeats are told there
    testing::internal::CaptureStderr();
    for (const Action action : {Action::Silent, Action::Late, Action::Dropped}) {
        app.forgetReceived();
        app.addRule({600, 0, action, 400, 1});
        memset(record, 0, sizeof record);
        ZrGetParam(ParamKind::general, record, sizeof record);
        EXPECT_EQ(memcmp(record, app.param(ParamKind::general).data(), sizeof record), 0);
        EXPECT_GE(app.received().size(), 2u); // it was asked again
    }
    testing::internal::GetCapturedStderr();
    EXPECT_NE(testing::internal::GetCapturedStdout().find("BlockWaiting"), std::string::npos);
    EXPECT_EQ(app.connections(), 2);
}

TEST_F(SimAppTest, RequestsThatKeepTheInterfaceWaitingAllHaveAnAnswer)
{
    appLinkStart(nullptr);
    const uint16_t requests[] = {20,  24,  30,  33,  62,  104, 119, 157, 158, 161, 164, 169, 202,
                                 203, 204, 205, 206, 211, 213, 216, 217, 218, 219, 226, 232, 234,
                                 235, 236, 237, 240, 247, 269, 275, 276, 277, 278, 282, 283};
    for (uint16_t sub : requests)
        EXPECT_TRUE(appRequest(1000, sub)) << sub;
    EXPECT_TRUE(appRequest(300, 30));
    EXPECT_TRUE(appRequest(300, 54));
    EXPECT_TRUE(appRequest(300, 33));
    EXPECT_TRUE(appRequest(100, 15));
    EXPECT_EQ(channelSupportInfo(3).width, 1920u);
    EXPECT_EQ(app.received().size(), std::size(requests) + 5); // none was asked twice
}

} // namespace
