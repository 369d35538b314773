#include "link/appcalls.h"
#include "link/applink.h"
#include "link/deviceparams.h"
#include "link/deviceprofile.h"
#include "link/profiledefaults.h"
#include "link/rawpeer.h"
#include "link/startup.h"
#include "link/temporaryfile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <set>
#include <sstream>

namespace
{

using Bytes = std::vector<uint8_t>;

Bytes customOf(const std::string &text)
{
    const TemporaryFile file(text);
    Bytes custom(Profile::CustomSize);
    readCustomPart(ZrIniFile(file.path()), custom.data());
    return custom;
}

Bytes field(const Bytes &custom, const char *key)
{
    const Profile::Key *row = Profile::findKey(key);
    return {custom.begin() + long(row->offset), custom.begin() + long(row->offset + row->size())};
}

TEST(ProfileLayout, NoTwoFieldsShareAByteAndAllFit)
{
    std::vector<const char *> owner(Profile::CustomSize);
    std::set<std::string> names;
    const auto claim = [&](const Profile::Key &row) {
        EXPECT_TRUE(names.insert(row.key).second) << row.key;
        for (size_t i = row.offset; i < row.offset + row.size(); ++i) {
            ASSERT_LT(i, Profile::CustomSize) << row.key;
            EXPECT_EQ(owner[i], nullptr) << row.key << " over " << owner[i];
            owner[i] = row.key;
        }
    };
    for (auto row = Profile::keysBegin(); row != Profile::keysEnd(); ++row)
        claim(*row);
    claim(Profile::factoryMaskKey());
    // Where the rest of the system, and whoever else reads the record, looks.
    EXPECT_EQ(Profile::findKey("DevInfo/DevType")->offset, 0u);
    EXPECT_EQ(Profile::findKey("DevInfo/UpgradeType")->offset, DeviceCustomPart::OffsetUpgradeType);
    EXPECT_EQ(Profile::findKey("KeyPara/DevType")->offset, DeviceCustomPart::OffsetPanelKeys);
    EXPECT_EQ(Profile::findKey("KeyPara/IELogo")->offset, DeviceCustomPart::OffsetLogoVariant);
}

TEST(ProfileLayout, EveryKeyOfTheShippedFileIsReadAndEveryKeyIsInIt)
{
    const ZrIniFile file(ZR_SOURCE_DIR "/custom-config.ini");
    std::set<std::string> known = {"DeviceType/Type",
                                   "CustomFuncs/FactoryConfigMask",
                                   "DisplayOutputDef/ScreenSplitMode",
                                   "RecordSchedulDef/EnableMotionRecord",
                                   "RecordSchedulDef/EnableNormalRecord",
                                   "RecordSchedulDef/EnablePirRecord",
                                   "DDNSDefault/ServerAddr"};
    for (auto row = Profile::keysBegin(); row != Profile::keysEnd(); ++row)
        known.insert(row->key);
    for (auto row = ProfileDefaults::fieldsBegin(); row != ProfileDefaults::fieldsEnd(); ++row)
        known.insert(row->key);
    for (uint32_t chip = 0; chip < 20; ++chip) {
        for (auto key = Profile::colorKeysBegin(); key != Profile::colorKeysEnd(); ++key)
            known.insert(std::string(Profile::colorSection(chip)) + key->key);
    }
    for (const std::string &key : known)
        EXPECT_TRUE(file.contains(ZrString(key.c_str()))) << key << " is missing";
    for (auto entry = file.values().begin(); entry != file.values().end(); ++entry)
        EXPECT_EQ(known.count(entry.key().toUtf8().constData()), 1u)
            << entry.key().toUtf8().constData() << " is never read";
}

TEST(Profile, TheShippedFileFillsTheCustomPartAsItWasCheckedByHand)
{
    Bytes custom(Profile::CustomSize);
    EXPECT_TRUE(readCustomPart(ZrIniFile(ZR_SOURCE_DIR "/custom-config.ini"), custom.data()));
    std::ostringstream dump;
    for (auto row = Profile::keysBegin(); row != Profile::keysEnd(); ++row) {
        const Bytes bytes = field(custom, row->key);
        size_t used = bytes.size();
        while (used > 1 && bytes[used - 1] == 0)
            --used;
        dump << row->key << " @" << row->offset;
        for (size_t i = 0; i < used; ++i) {
            char hexadecimal[4];
            snprintf(hexadecimal, sizeof hexadecimal, " %02x", bytes[i]);
            dump << hexadecimal;
        }
        dump << '\n';
    }
    std::ostringstream expected;
    expected << std::ifstream(ZR_SOURCE_DIR "/tests/link/profile_dump.txt").rdbuf();
    if (dump.str() != expected.str())
        std::ofstream(ZR_BINARY_DIR "/profile_dump.txt") << dump.str();
    EXPECT_EQ(dump.str(), expected.str()) << "the new dump is " ZR_BINARY_DIR "/profile_dump.txt";
}

TEST(Profile, ConvertsEachKindOfValue)
{
    testing::internal::CaptureStdout();
    const Bytes custom = customOf("[DevInfo]\nDevType = 0x1234567890LLU\n"
                                  "[KeyPara]\nDevType = 0x80000001\n"
                                  "[NumberSetting]\nBigDvrfsBlkSize = 18446744073709551615\n"
                                  "AudioNum = 260\nSnapSaveNum = -2\n"
                                  "[FbConfig]\nFbConfigInit = \"longer than its field\"\n"
                                  "[DisplaySenceDef]\nUIColorDefaultVal = \"1, 2,3 ,4,300\"\n"
                                  "TVIColorDefaultValC = 1,2,3,4\n"
                                  "[DiskConfig]\nDiskNodes = \"/dev/a, /dev/b,\"\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "DevType: 0x1234567890\n");
    EXPECT_EQ(field(custom, "DevInfo/DevType"), (Bytes{0x90, 0x78, 0x56, 0x34, 0x12, 0, 0, 0}));
    EXPECT_EQ(field(custom, "KeyPara/DevType"), (Bytes{1, 0, 0, 0x80}));
    EXPECT_EQ(field(custom, "NumberSetting/BigDvrfsBlkSize"), Bytes(8, 0xFF));
    EXPECT_EQ(field(custom, "NumberSetting/AudioNum"), Bytes{4});
    EXPECT_EQ(field(custom, "NumberSetting/SnapSaveNum"), (Bytes{0xFE, 0xFF, 0xFF, 0xFF}));
    const Bytes text = field(custom, "FbConfig/FbConfigInit");
    EXPECT_EQ(std::string(text.begin(), text.end()), "longer than ");
    EXPECT_EQ(field(custom, "DisplaySenceDef/UIColorDefaultVal"), (Bytes{1, 2, 3, 4, 44}));
    EXPECT_EQ(field(custom, "DisplaySenceDef/TVIColorDefaultValC"), Bytes(5, 0));
    const Bytes nodes = field(custom, "DiskConfig/DiskNodes");
    EXPECT_EQ(std::string(nodes.begin(), nodes.begin() + 24),
              std::string("/dev/a\0\0\0\0\0\0/dev/b\0\0\0\0\0\0", 24));
}

TEST(Profile, AFileWithoutAModelCarriesOnlyItsMask)
{
    const Bytes custom = customOf("[DeviceType]\nType=1\nProductType=x\n[CustomFuncs]\n"
                                  "FactoryConfigMask=513\nEnableAlg=1\n");
    Bytes expected(Profile::CustomSize);
    expected[Profile::factoryMaskKey().offset] = 1;     // bit 0
    expected[Profile::factoryMaskKey().offset + 1] = 2; // bit 9
    EXPECT_EQ(custom, expected);
}

// In a child: the process ends, and with it all that a thread may hold.
using ProfileDeathTest = testing::Test;

TEST(ProfileDeathTest, IncompleteDiskListsEndTheProcess)
{
    std::string nodes33 = "/dev/x";
    for (int i = 1; i < 33; ++i)
        nodes33 += ",/dev/x";
    const std::string all = "[DiskConfig]\nMaxDiskNum=1\nDiskNodes=/dev/a\n";
    struct {
        std::string text;
        const char *line;
    } const rows[] = {
        {"[DiskConfig]\nMaxDiskNum=2\nDiskNodes=/dev/a\n",
         "DiskNodes configure incomplete: disk count(2), node count(1), please check "
         "custom-config.ini !!!\n"},
        {"[DiskConfig]\nMaxDiskNum=33\nDiskNodes=" + nodes33 + "\n",
         "DiskNodes configure incomplete: disk count(33), node count(33), please check "
         "custom-config.ini !!!\n"},
        {all + "MaxEsataNum=1\n",
         "EsataNodes configure incomplete: esata count(1), node count(0), please check "
         "custom-config.ini !!!\n"},
        {all + "MaxUsbNum=3\nusbNodes=\"/dev/b, /dev/c\"\n",
         "usbNodes configure incomplete: usb count(3), node count(2), please check "
         "custom-config.ini !!!\n"},
    };
    for (const auto &row : rows) {
        const TemporaryFile file(row.text);
        // The line goes to standard output, which death tests do not look at.
        const auto run = [&] {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            loadDeviceProfile(file.path());
        };
        std::string pattern;
        for (const char *c = row.line; *c; ++c)
            pattern +=
                *c == '(' || *c == ')' || *c == '.' ? std::string("\\") + *c : std::string(1, *c);
        EXPECT_EXIT(run(), testing::ExitedWithCode(1), pattern);
    }
    const TemporaryFile good(all + "MaxEsataNum=0\nMaxUsbNum=2\nusbNodes=/dev/b,/dev/c\n");
    EXPECT_EQ(checkDiskLists(ZrIniFile(good.path())), "");
}

TEST(Profile, OverlaysTheDefaultsOfTheFile)
{
    using namespace ProfileDefaults;
    const TemporaryFile file(
        "[SystemInfo]\nDefVideoFormat=1\n[GeneralSetting]\nLanguage=4\nLangMask=4294967295\n"
        "[MainStream]\nDefResolution=1\nDefAudioEnable=1\nDefBitrate=14\nVideoQuality=4\n"
        "[SubStream]\nDefaultFpsValue=12\nDefaultBitrateValue=99\nVideoQuality=2\n"
        "[NumberSetting]\nAudioNum=2\n[DisplayOutputDef]\nScreenSplitMode=11\n"
        "[DisplayOutput]\nDefVgaResolution=5\n[KeyPara]\nDevType=0xABCD\n"
        "[RecordSchedulDef]\nEnableMotionRecord=7\nEnableNormalRecord=0\nEnablePirRecord=1\n"
        "[DDNSDefault]\nServerAddr=ddns.example.com\n");
    Bytes parameters(Profile::ParametersSize, 0xEE);
    const auto word = [&](size_t offset) {
        return WireReader(parameters.data(), parameters.size()).u32(offset);
    };
    const auto half = [&](size_t offset) {
        return WireReader(parameters.data(), parameters.size()).u16(offset);
    };
    // Channel 3 has no bit rate of its own in either stream; all others have.
    const size_t main3 = OffsetMainStreams + 3 * StreamEntry::Size;
    const size_t sub3 = OffsetSubStreams + 3 * StreamEntry::Size;
    std::fill_n(parameters.begin() + long(main3 + StreamEntry::OffsetBitRate), 4, 0);
    std::fill_n(parameters.begin() + long(sub3 + StreamEntry::OffsetBitRate), 4, 0);
    overlay(ZrIniFile(file.path()), parameters.data());
    EXPECT_EQ(parameters[OffsetLanguage], 4);
    EXPECT_EQ(parameters[OffsetLanguageMark], 40);
    EXPECT_EQ(word(0), 0xABCDu);
    EXPECT_EQ(half(main3 + StreamEntry::OffsetWidth), 704);
    EXPECT_EQ(half(main3 + StreamEntry::OffsetHeight), 480);
    EXPECT_EQ(parameters[main3 + StreamEntry::OffsetFramesPerSecond], 30);
    EXPECT_EQ(parameters[main3 + StreamEntry::OffsetQuality], 4);
    EXPECT_EQ(word(main3 + StreamEntry::OffsetBitRate), 4096u);
    EXPECT_EQ(word(main3 + StreamEntry::Size + StreamEntry::OffsetBitRate), 0xEEEEEEEEu);
    EXPECT_EQ(half(sub3 + StreamEntry::OffsetHeight), 240);
    EXPECT_EQ(parameters[sub3 + StreamEntry::OffsetFramesPerSecond], 12);
    EXPECT_EQ(word(sub3 + StreamEntry::OffsetBitRate), 8192u); // the nearest in the list
    for (int channel = 0; channel < 32; ++channel)
        EXPECT_EQ(parameters[OffsetMainStreams + size_t(channel) * StreamEntry::Size +
                             StreamEntry::OffsetAudio],
                  channel < 2);
    EXPECT_EQ(word(OffsetScreenSplit), 0x0B0B0B0Bu);
    EXPECT_EQ(parameters[OffsetVgaResolution], 5);
    EXPECT_EQ(parameters[OffsetHdmiResolution], 5);
    EXPECT_EQ(parameters[OffsetOutputMode], 0);
    EXPECT_EQ(parameters[OffsetSchedules], RecordMotion | RecordPir);
    EXPECT_EQ(parameters[OffsetSchedules + 32 * ScheduleSize - 1], RecordMotion | RecordPir);
    EXPECT_EQ(parameters[OffsetSchedules + 32 * ScheduleSize], 0xEE);
    EXPECT_EQ(parameters.back(), 0xEE);
}

// What App gets, with a peer that answers 600/3 with 0x33 and 600/14 with 0x44.
struct Sent {
    Bytes profile, defaults;
    std::vector<std::pair<int, size_t>> order; // sub types and lengths
};

class ProfileSent : public testing::Test
{
protected:
    ProfileSent()
    {
        appUseLink(&link);
        link.start(nullptr);
        peer.accept();
    }
    ~ProfileSent() override
    {
        link.stop();
        appUseLink(nullptr);
    }
    Sent load(const char *path)
    {
        auto app = std::async(std::launch::async, [&] {
            Sent sent;
            for (int i = 0; i < 4; ++i) {
                const auto message = peer.receive();
                sent.order.emplace_back(message.head.subType, message.body.size());
                if (message.head.subType == 4)
                    sent.profile = message.body;
                else if (message.head.subType == 10)
                    sent.defaults = message.body;
                else if (message.head.subType == 3)
                    peer.reply(message, Bytes(Profile::ParametersSize, 0x33));
                else
                    peer.reply(message, Bytes(100000, 0x44)); // more than there is room for
            }
            return sent;
        });
        testing::internal::CaptureStdout();
        loadDeviceProfile(path);
        testing::internal::GetCapturedStdout();
        return app.get();
    }

    RawPeer peer;
    AppLink link{peer.path()};
};

TEST_F(ProfileSent, IsExchangedInTheSameOrderWhateverTheFileSays)
{
    const TemporaryFile noModel("[DeviceType]\nType=1\n[CustomFuncs]\nFactoryConfigMask=1\n");
    const std::vector<std::pair<int, size_t>> order = {{4, 613760}, {3, 0}, {14, 0}, {10, 611276}};
    struct {
        const char *path;
        bool overlays;
    } const rows[] = {{ZR_SOURCE_DIR "/custom-config.ini", true},
                      {noModel.path(), false},
                      {"/nonexistent/custom-config.ini", false}};
    for (const auto &row : rows) {
        const Sent sent = load(row.path);
        EXPECT_EQ(sent.order, order) << row.path;
        // The parameter part is empty in the first message, App's in the second.
        EXPECT_EQ(std::count(sent.profile.begin() + 2480, sent.profile.end(), 0), 611280);
        EXPECT_EQ(sent.defaults[ProfileDefaults::OffsetLanguageMark], row.overlays ? 40 : 0x33);
        EXPECT_EQ(sent.defaults[586200 - 2480 - 1], 0x33);
        EXPECT_EQ(sent.defaults[586200 - 2480], 0x44);
        EXPECT_EQ(sent.defaults.back(), 0x44);
        EXPECT_EQ(memcmp(deviceCustomPart().bytes, sent.profile.data(), 2480), 0);
    }
    EXPECT_EQ(std::count(deviceCustomPart().bytes, deviceCustomPart().bytes + 2480, 0), 2480);
}

TEST_F(ProfileSent, ColourDefaultsComeFromTheSectionOfTheChip)
{
    const TemporaryFile file("[Color_AHD_6134]\nNormalColorDefaultVal=1,2,3,4,5\n"
                             "CVI800WColorDefaultVal=\"6, 7, 8, 9, 10\"\n"
                             "TVI800WColorDefaultVal=1,2,3,4\n"
                             "[Color_NORMAL]\nNormalColorDefaultVal=9,9,9,9,9\n");
    loadColorDefaults(7, file.path());
    loadColorDefaults(1, file.path());
    const auto known = peer.receive(), other = peer.receive();
    EXPECT_EQ(known.head.subType, 11);
    Bytes expected(2480);
    for (size_t i = 0; i < 5; ++i) {
        expected[i] = uint8_t(1 + i);
        expected[85 + i] = uint8_t(6 + i);
    }
    EXPECT_EQ(known.body, expected);
    EXPECT_EQ(other.body[0], 9);
    EXPECT_STREQ(Profile::colorSection(3), "Color_TVI_2823/2853");
    EXPECT_STREQ(Profile::colorSection(17), "Color_TVI_2831");
    EXPECT_STREQ(Profile::colorSection(4), "Color_NORMAL");
}

TEST(Startup, TheResourcePathIsTakenAsItStands)
{
    const std::string root = testing::TempDir() + "zrroot" + std::to_string(getpid());
    std::filesystem::create_directories(root + "/tmp");
    setenv("ZR_ROOT", root.c_str(), 1);
    struct {
        const char *text; // null: no file
        size_t length;
        const char *relative;
    } const rows[] = {{nullptr, 0, "style/a.ini"},
                      {"", 0, "style/a.ini"},
                      {"/res", 4, "/res/style/a.ini"},
                      {"/res\0junk", 9, "/res/style/a.ini"},
                      {"/res\n", 5, "/res\n/style/a.ini"}};
    for (const auto &row : rows) {
        const std::string path = root + "/tmp/resourcesPath.txt";
        std::filesystem::remove(path);
        if (row.text)
            std::ofstream(path) << std::string(row.text, row.length);
        readResourcePath();
        EXPECT_EQ(resolveResourcePath("style/a.ini"), ZrString(row.relative));
        EXPECT_EQ(resolveResourcePath("/style/a.ini"), ZrString("/style/a.ini"));
    }
    unsetenv("ZR_ROOT");
    readResourcePath();
    std::filesystem::remove_all(root);
}

} // namespace
