#include "link/profilelayout.h"

#include <cstring>
#include <iterator>

namespace Profile
{
namespace
{

constexpr Key kFactoryMask = {"CustomFuncs/FactoryConfigMask", Conversion::Mask, 8, 8};

constexpr Key kKeys[] = {
    {"DeviceType/ProductType", Conversion::Text, 228, 24},
    {"DeviceType/HardVersion", Conversion::Text, 252, 16},
    {"DeviceType/ParamDevType", Conversion::Text, 268, 16},
    {"DeviceType/FtpProductType", Conversion::Text, 284, 32},
    {"DeviceType/DeviceType", Conversion::Text, 316, 16},
    {"CustomFuncs/EnableAlg", Conversion::Number, 112, 1},
    {"CustomFuncs/EnableSmartSearch", Conversion::Number, 113, 1},
    {"CustomFuncs/EnableSerial", Conversion::Number, 114, 1},
    {"CustomFuncs/EnableInstantPlayback", Conversion::Number, 115, 1},
    {"CustomFuncs/EnableHdmiVgaHomol", Conversion::Number, 116, 1},
    {"CustomFuncs/HdmiEnable", Conversion::Number, 117, 1},
    {"CustomFuncs/VgaEnable", Conversion::Number, 118, 1},
    {"CustomFuncs/VoutEnable", Conversion::Number, 119, 1},
    {"CustomFuncs/VspotEnable", Conversion::Number, 120, 1},
    {"CustomFuncs/VSpotDevice", Conversion::Number, 121, 1},
    {"CustomFuncs/AlarmEnable", Conversion::Number, 122, 1},
    {"CustomFuncs/AlarmLinkagePtzEnable", Conversion::Number, 123, 1},
    {"CustomFuncs/EnablePowerPassword", Conversion::Number, 124, 1},
    {"CustomFuncs/PreRecordTimeMode", Conversion::Number, 125, 1},
    {"CustomFuncs/RecordDelayTimeMode", Conversion::Number, 126, 1},
    {"CustomFuncs/EnableRECflagForIE", Conversion::Number, 127, 1},
    {"CustomFuncs/EnablePromptSystem", Conversion::Number, 128, 1},
    {"CustomFuncs/EnableViDetectAuto", Conversion::Number, 129, 1},
    {"CustomFuncs/EnableNrahd20orOtherfps", Conversion::Number, 130, 1},
    {"CustomFuncs/EnableDemo", Conversion::Number, 131, 1},
    {"CustomFuncs/EnableSpotPoll", Conversion::Number, 132, 1},
    {"CustomFuncs/PushSwitch", Conversion::Number, 133, 1},
    {"CustomFuncs/UsePersianDate", Conversion::Number, 134, 1},
    {"CustomFuncs/EnableSZStream", Conversion::Number, 135, 1},
    {"CustomFuncs/KeyBoardEnble", Conversion::Number, 136, 1},
    {"CustomFuncs/CoaxEnable", Conversion::Number, 137, 1},
    {"FbConfig/FbConfigInit", Conversion::Text, 332, 12},
    {"FbConfig/VgaFbDevNode", Conversion::Text, 344, 12},
    {"DecChnAudioNum/DecChnAudioNum", Conversion::Number, 138, 1},
    {"NumberSetting/AudioNum", Conversion::Number, 139, 1},
    {"NumberSetting/AlarmInputNum", Conversion::Number, 140, 1},
    {"NumberSetting/AlarmOutputNum", Conversion::Number, 141, 1},
    {"NumberSetting/DecodeNum", Conversion::Number, 142, 1},
    {"NumberSetting/AduioAiDevNum", Conversion::Number, 143, 1},
    {"NumberSetting/AiTalkDevNum", Conversion::Number, 144, 1},
    {"NumberSetting/AudioAoDevNum", Conversion::Number, 145, 1},
    {"NumberSetting/AudioHdmiAoDevNum", Conversion::Number, 146, 1},
    {"NumberSetting/AudioClockDevNum", Conversion::Number, 147, 1},
    {"NumberSetting/TalkAudioInputChnId", Conversion::Number, 148, 1},
    {"NumberSetting/ViDevNum", Conversion::Number, 149, 1},
    {"NumberSetting/OutputDevNum", Conversion::Number, 150, 1},
    {"NumberSetting/AudioDevNum", Conversion::Number, 151, 1},
    {"NumberSetting/SnapSaveNum", Conversion::Number, 40, 4},
    {"NumberSetting/BigDvrfsBlkSize", Conversion::Number, 16, 8},
    {"NumberSetting/BigDvrfsHoldSec", Conversion::Number, 44, 4},
    {"NumberSetting/BigDvrfsMaxBlkNum", Conversion::Number, 48, 4},
    {"NumberSetting/BigDvrfsMinBlkNum", Conversion::Number, 52, 4},
    {"NumberSetting/SmallDvrfsBlkSize", Conversion::Number, 24, 8},
    {"NumberSetting/SmallDvrfsHoldSec", Conversion::Number, 56, 4},
    {"NumberSetting/SmallDvrfsMaxBlkNum", Conversion::Number, 60, 4},
    {"NumberSetting/SmallDvrfsMinBlkNum", Conversion::Number, 64, 4},
    {"NumberSetting/TalkDvrfsBlkSize", Conversion::Number, 32, 8},
    {"NumberSetting/TalkDvrfsHoldSec", Conversion::Number, 68, 4},
    {"NumberSetting/TalkDvrfsMinBlkNum", Conversion::Number, 72, 4},
    {"NumberSetting/TalkDvrfsMaxBlkNum", Conversion::Number, 76, 4},
    {"NumberSetting/MaxPictureScreenNum", Conversion::Number, 152, 1},
    {"NumberSetting/MaxChipNum", Conversion::Number, 153, 1},
    {"NumberSetting/SnapFileSize", Conversion::Number, 80, 4},
    {"NumberSetting/MtdbLockDevFile", Conversion::Text, 356, 16},
    {"NumberSetting/P2PKeyParameter", Conversion::Text, 372, 16},
    {"FuncSwitch/Support960HEnable", Conversion::Number, 154, 1},
    {"FuncSwitch/EsataEnable", Conversion::Number, 155, 1},
    {"FuncSwitch/RtspEnable", Conversion::Number, 156, 1},
    {"FuncSwitch/FtpEnable", Conversion::Number, 157, 1},
    {"FuncSwitch/EncodeEnable", Conversion::Number, 158, 1},
    {"FuncSwitch/EamilTestEnable", Conversion::Number, 159, 1},
    {"FuncSwitch/EmailScheduleEnable", Conversion::Number, 160, 1},
    {"FuncSwitch/OrvaneBankEnable", Conversion::Number, 161, 1},
    {"FuncSwitch/FtpAutoUpgradeEnable", Conversion::Number, 162, 1},
    {"FuncSwitch/Moudles3GEnable", Conversion::Number, 163, 1},
    {"FuncSwitch/MoudlesPPoeEnable", Conversion::Number, 164, 1},
    {"FuncSwitch/HsMoblieCrlEnable", Conversion::Number, 165, 1},
    {"FuncSwitch/LogEnable", Conversion::Number, 166, 1},
    {"FuncSwitch/LthttpAlarmEnable", Conversion::Number, 167, 1},
    {"FuncSwitch/ZarelCloudStorage", Conversion::Number, 168, 1},
    {"FuncSwitch/UsePolygonPirArea", Conversion::Number, 169, 1},
    {"DebugFuncSwitch/RunOnNfsEnable", Conversion::Number, 170, 1},
    {"DebugFuncSwitch/DebugOnNfsEnable", Conversion::Number, 171, 1},
    {"DebugFuncSwitch/NoWatchDogEnable", Conversion::Number, 172, 1},
    {"DDNSSwitch/Provider1", Conversion::Number, 173, 1},
    {"DDNSSwitch/Provider2", Conversion::Number, 174, 1},
    {"DDNSSwitch/Provider3", Conversion::Number, 175, 1},
    {"DDNSSwitch/Provider4", Conversion::Number, 176, 1},
    {"DDNSSwitch/Provider5", Conversion::Number, 177, 1},
    {"DDNSSwitch/Provider6", Conversion::Number, 178, 1},
    {"DDNSSwitch/Provider7", Conversion::Number, 179, 1},
    {"DDNSSwitch/Provider8", Conversion::Number, 180, 1},
    {"FS8816/SclGroup", Conversion::Number, 181, 1},
    {"FS8816/SclNum", Conversion::Number, 182, 1},
    {"FS8816/SdaGroup", Conversion::Number, 183, 1},
    {"FS8816/SdaNum", Conversion::Number, 184, 1},
    {"Upgrade/UpgradePacketPreFix", Conversion::Text, 388, 64},
    {"VantorCustom/FrameAuto", Conversion::Number, 185, 1},
    {"VantorCustom/SubStreamFpsPal", Conversion::Number, 186, 1},
    {"VantorCustom/SubStreamFpsNtsc", Conversion::Number, 187, 1},
    {"OrvaneCustom/OrvaneZrspEnable", Conversion::Number, 188, 1},
    {"GPIO/HddLedGroup", Conversion::Number, 189, 1},
    {"GPIO/HddLedBIt", Conversion::Number, 190, 1},
    {"DecodeBuf/DecodeBufLen", Conversion::Number, 84, 4},
    {"BlockLen/ReadBlockLen", Conversion::Number, 88, 4},
    {"SoftVersion/AppDisplayVer", Conversion::Text, 452, 32},
    {"SoftVersion/AppUpdataVer", Conversion::Text, 484, 16},
    {"SoftVersion/LogoVersion", Conversion::Text, 512, 16},
    {"SoftVersion/IEVersion", Conversion::Text, 528, 16},
    {"SoftVersion/AgentUpdataVer", Conversion::Text, 544, 16},
    {"P2pType/P2pPushEnable", Conversion::Number, 191, 1},
    {"FPS/FpsTotalPal", Conversion::Number, 104, 2},
    {"FPS/FpsTotalNtsc", Conversion::Number, 106, 2},
    {"FPS/D1FpsTotalPal", Conversion::Number, 108, 2},
    {"FPS/D1FpsTotalNts", Conversion::Number, 110, 2},
    {"FPS/LimitFpsSourceEnable", Conversion::Number, 192, 1},
    {"FPS/FpsReal720PEnable", Conversion::Number, 193, 1},
    {"FPS/FpsReal1080PEnable", Conversion::Number, 194, 1},
    {"FPS/FpsReal3mpEnable", Conversion::Number, 195, 1},
    {"FPS/FpsReal4mpEnable", Conversion::Number, 196, 1},
    {"FPS/SupportResolutionMode", Conversion::Number, 197, 1},
    {"DevInfo/DevType", Conversion::HexLong, 0, 8},
    {"DevInfo/UpgradeType", Conversion::Number, 511, 1},
    {"DevInfo/SerialNum", Conversion::Number, 92, 4},
    {"DevInfo/AIAnalyzeCap", Conversion::Number, 96, 4},
    {"DevInfo/AIAnalyzeChannels", Conversion::Number, 100, 4},
    {"DevInfo/ResolutioFrameFix", Conversion::Number, 198, 1},
    {"DevInfo/PreviewOff", Conversion::Number, 199, 1},
    {"DevInfo/VideoCoverNum", Conversion::Number, 200, 1},
    {"DevInfo/SubStreamMin", Conversion::Number, 201, 1},
    {"DevInfo/SubStreamMax", Conversion::Number, 202, 1},
    {"DevInfo/SubStreamRestrict", Conversion::Number, 203, 1},
    {"DevInfo/MotionMode", Conversion::Number, 204, 1},
    {"DevInfo/MaxPreviewNum", Conversion::Number, 205, 1},
    {"KeyPara/DevType", Conversion::Hex, 628, 4},
    {"KeyPara/IECustom", Conversion::Number, 206, 1},
    {"KeyPara/IELogo", Conversion::Number, 2432, 1},
    {"SubStream/DefaultFps", Conversion::Number, 207, 1},
    {"SubStream/SubFpsLimitEnable", Conversion::Number, 208, 1},
    {"PlayBack/TimeRange", Conversion::Number, 209, 1},
    {"UserInfoDef/DefDeviceName", Conversion::Text, 560, 36},
    {"DisplaySenceDef/UIColorDefaultVal", Conversion::Quintet, 210, 5},
    {"DisplaySenceDef/TVIColorDefaultValC", Conversion::Quintet, 215, 5},
    {"DisplaySenceDef/ColorMode", Conversion::Number, 220, 1},
    {"DisplaySenceDef/EnableSharpness", Conversion::Number, 221, 1},
    {"DiskConfig/DiskGroupEnable", Conversion::Number, 222, 1},
    {"DiskConfig/MaxDiskNum", Conversion::Number, 223, 1},
    {"DiskConfig/MaxEsataNum", Conversion::Number, 224, 1},
    {"DiskConfig/MaxUsbNum", Conversion::Number, 225, 1},
    {"DiskConfig/DiskNodes", Conversion::Nodes, 632, 12, 32},
    {"DiskConfig/EsataNodes", Conversion::Nodes, 1016, 12, 32},
    {"DiskConfig/usbNodes", Conversion::Nodes, 1400, 32, 32},
};

struct ColorSection {
    uint32_t chipCode;
    const char *section;
};

constexpr ColorSection kColorSections[] = {
    {2, "Color_AHD_6124B"},  {3, "Color_TVI_2823/2853"}, {7, "Color_AHD_6134"},
    {8, "Color_AHD_6134C"},  {9, "Color_TVI_2826"},      {10, "Color_TVI_2827"},
    {11, "Color_TVI_2827C"}, {12, "Color_AHD_6158"},     {13, "Color_AHD_6158C"},
    {14, "Color_TVI_2829"},  {15, "Color_TVI_2828"},     {16, "Color_TVI_2830"},
    {17, "Color_TVI_2831"},
};

constexpr ColorKey kColorKeys[] = {
    {"/NormalColorDefaultVal", 0},    {"/AHD720PColorDefaultVal", 5},
    {"/AHD1080PColorDefaultVal", 10}, {"/AHD300WColorDefaultVal", 15},
    {"/AHD400WColorDefaultVal", 20},  {"/AHD500WColorDefaultVal", 25},
    {"/AHD800WColorDefaultVal", 30},  {"/TVI720PColorDefaultVal", 35},
    {"/TVI1080PColorDefaultVal", 40}, {"/TVI300WColorDefaultVal", 45},
    {"/TVI400WColorDefaultVal", 50},  {"/TVI500WColorDefaultVal", 55},
    {"/TVI800WColorDefaultVal", 60},  {"/CVI720PColorDefaultVal", 65},
    {"/CVI1080PColorDefaultVal", 70}, {"/CVI300WColorDefaultVal", 75},
    {"/CVI400WColorDefaultVal", 80},  {"/CVI800WColorDefaultVal", 85},
};

} // namespace

const Key *keysBegin()
{
    return std::begin(kKeys);
}

const Key *keysEnd()
{
    return std::end(kKeys);
}

const Key &factoryMaskKey()
{
    return kFactoryMask;
}

const Key *findKey(const char *name)
{
    for (const Key &row : kKeys) {
        if (strcmp(row.key, name) == 0)
            return &row;
    }
    return strcmp(kFactoryMask.key, name) == 0 ? &kFactoryMask : nullptr;
}

const char *colorSection(uint32_t chipCode)
{
    for (const ColorSection &row : kColorSections) {
        if (row.chipCode == chipCode)
            return row.section;
    }
    return "Color_NORMAL";
}

const ColorKey *colorKeysBegin()
{
    return std::begin(kColorKeys);
}

const ColorKey *colorKeysEnd()
{
    return std::end(kColorKeys);
}

} // namespace Profile
