#include <gtest/gtest.h>

#include "cameras/camera_records.h"
#include "cameras/zrchannel.h"
#include "users/user.h"

#include <functional>
#include <string>
#include <zrapplication>

namespace
{

struct Listener : ZrObject {
    void customEvent(ZrEvent *event) override { log += std::to_string(event->type()) + " "; }
    std::string log;
};

} // namespace

TEST(Channels, EachChangeTellsListenersOnceByItsOwnNumber)
{
    ZrApplication application(0, nullptr);
    ZrChannel channel(2, true, nullptr);
    Listener listener, gone;
    channel.addListener(&listener);
    channel.addListener(&listener);
    channel.addListener(&gone);
    channel.removeListener(&gone);
    const struct {
        std::function<void()> act;
        const char *events;
    } rows[] = {
        {[&] { channel.setVideoStatus(4); }, ""}, // offline: stored only
        {[&] { channel.setConnectState(ZrChannel::Online); }, "1001 "},
        {[&] { channel.setVideoStatus(5); }, "1041 "},
        {[&] { channel.setRecordStatus(1); }, "1042 "},
        {[&] { channel.setRecording(true); }, "1002 "},
        {[&] { channel.setMotion(1); }, "1004 "},
        {[&] { channel.setMotion(9); }, ""}, // three bits wide: 9 is 1
        {[&] { channel.setInputAlarm(1); }, "1005 "},
        {[&] { channel.setPir(1); }, "1006 "},
        {[&] { channel.setIntelligent(0, 1); }, "1047 "},
        {[&] { channel.setIntelligent(5, 1); }, "1052 "},
        {[&] { channel.setIntelligent(6, 1); }, "1083 "},
        {[&] { channel.setIntelligent(7, 1); }, "1084 "},
        {[&] { channel.setIntelligent(8, 1); }, ""},
        {[&] { channel.setOsdPosition(ZrChannel::NoName); }, "1009 "},
        {[&] { channel.setName(ZrString("Gate"), ZrString()); }, "1010 "},
    };
    for (const auto &row : rows) {
        for (int twice = 0; twice < 2; ++twice) {
            listener.log.clear();
            row.act();
            application.processPending();
            EXPECT_EQ(listener.log, twice ? "" : row.events) << "row " << &row - rows;
        }
    }
    EXPECT_EQ(gone.log, "");
}

TEST(Channels, NamesCarryTheSignalFamilyOrTheLens)
{
    ZrApplication application(0, nullptr);
    const struct {
        bool isIp;
        int videoType, kind, subChannel;
        const char *name, *expected;
    } rows[] = {
        {false, 4, 0, 0, "Gate", "A-Gate"},  {false, 13, 0, 0, "Gate", "T-Gate"},
        {false, 19, 0, 0, "Gate", "C-Gate"}, {false, 17, 0, 0, "Gate", "A-Gate"},
        {false, 11, 0, 0, "Gate", "Gate"},   {false, 200, 0, 0, "Gate", "Gate"},
        {false, 0, 0, 0, "", "default"},     {true, 4, 0, 0, "Gate", "Gate"},
        {true, 0, 21, 1, "Gate", "Gate-2"},  {true, 0, 22, 0, "", "default-1"},
        {true, 0, 24, 1, "Gate", "Gate"},
    };
    for (const auto &row : rows) {
        ZrChannel channel(0, row.isIp, nullptr);
        channel.setVideoType(row.videoType);
        channel.setKind(row.kind, row.subChannel);
        channel.setName(ZrString(row.name), ZrString("default"));
        EXPECT_EQ(channel.displayNameWithSub(), ZrString(row.expected)) << row.expected;
    }
}

TEST(Channels, RecordsKeepEveryFieldAndForgiveShortOnes)
{
    cameras::IpCameraEntry entry;
    entry.name = ZrString("Yard");
    entry.defaultName = ZrString("IP camera 7");
    entry.address = 0x0101A8C0;
    entry.kind = 24;
    entry.osdPosition = 3;
    entry.valid = true;
    WireWriter writer(2 * cameras::IpCameraEntry::Size);
    entry.encode(writer, cameras::IpCameraEntry::Size);
    WireReader reader(writer.data(), writer.size());
    const auto back = cameras::IpCameraEntry::decode(reader, cameras::IpCameraEntry::Size);
    EXPECT_EQ(back.name, entry.name);
    EXPECT_EQ(back.defaultName, entry.defaultName);
    EXPECT_EQ(back.address, entry.address);
    EXPECT_EQ(back.kind, 24);
    EXPECT_EQ(back.osdPosition, 3);
    EXPECT_TRUE(back.valid);
    WireReader cut(writer.data(), 300);
    EXPECT_FALSE(cameras::IpCameraEntry::decode(cut, 0).valid);
}

TEST(Users, TheAdministratorMayEverythingTheOthersWhatTheRecordSays)
{
    constexpr int Channels = 40;
    User administrator(1, Channels, nullptr), guard(2, Channels, nullptr);
    EXPECT_TRUE(administrator.isEnabled() && administrator.canLive(39));
    EXPECT_TRUE(administrator.hasRight(User::AudioRight));
    EXPECT_FALSE(guard.isEnabled() || guard.canLive(0) || guard.hasRight(User::SequenceRight));

    users::AccountEntry entry;
    entry.enabled = false;
    entry.liveAllowed = true;
    entry.liveChannels = 1u << 5;
    entry.playbackChannels = 1u << 5; // but playback as a whole is not allowed
    entry.rights = 1u << User::SnapshotRight;
    administrator.take(entry, Channels);
    EXPECT_TRUE(administrator.isEnabled()) << "whatever the record says";
    guard.take(entry, Channels);
    EXPECT_FALSE(guard.isEnabled());
    EXPECT_TRUE(guard.canLive(5));
    EXPECT_FALSE(guard.canLive(4) || guard.canLive(-1) || guard.canLive(40));
    EXPECT_FALSE(guard.canPlayback(5));
    EXPECT_TRUE(guard.hasRight(User::SnapshotRight));
}
