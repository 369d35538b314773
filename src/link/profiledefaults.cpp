#include "link/profiledefaults.h"

#include "link/wirereader.h"
#include "link/wirewriter.h"

#include <algorithm>
#include <iterator>

namespace ProfileDefaults
{
namespace
{

constexpr Field kFields[] = {
    {"KeyPara/DevType", true, 0, 4},
    {"KeyPara/IELangMask", false, 4, 4},
    {"KeyPara/ExtendIELangMask", false, 8, 4},
    {"KeyPara/IELanguage", false, 12, 1},
    {"SystemInfo/DefVideoFormat", false, 13, 1},
    {"HddManage/Overwite", false, 14, 1},
    {"HddManage/OverWritePeriod", false, 28, 4},
    {"GeneralSetting/Language", false, OffsetLanguage, 1},
    {"GeneralSetting/LangMask", false, 20, 4},
    {"GeneralSetting/ExtendLangMask", false, 24, 4},
    {"MainStream/DefResolutionMode", false, 32, 1},
    {"MainStream/DefResolution", false, 33, 1},
    {"MainStream/DefAudioEnable", false, 34, 1},
    {"MainStream/DefBitrate", false, 35, 1},
    {"MainStream/VideoQuality", false, 36, 1},
    {"SubStream/DefaultFpsValue", false, 37, 1},
    {"SubStream/DefaultBitrateValue", false, 38, 1},
    {"SubStream/VideoQuality", false, 39, 1},
    {"DisplayOutput/DefVgaResolution", false, OffsetVgaResolution, 1},
    {"DisplayOutput/DefVgaResolution", false, OffsetHdmiResolution, 1},
    {"DDNS/DDNSUseFlag", false, 47, 1},
    {"DDNS/ExtendDDNSFlag", false, 48, 4},
};

struct Resolution {
    uint16_t width;
    uint16_t height;
};

// By index of the resolution keys; the first entries follow the lines of the video format.
constexpr Resolution kMainPal[] = {{352, 288},   {704, 576},   {960, 576},
                                   {1280, 720},  {1920, 1080}, {2304, 1296},
                                   {2560, 1440}, {2592, 1944}, {3840, 2160}};
constexpr Resolution kMainNtsc[] = {{352, 240},   {704, 480},   {960, 480},
                                    {1280, 720},  {1920, 1080}, {2304, 1296},
                                    {2560, 1440}, {2592, 1944}, {3840, 2160}};
constexpr Resolution kSubPal[] = {{352, 288}, {640, 360}, {704, 576}};
constexpr Resolution kSubNtsc[] = {{352, 240}, {640, 360}, {704, 480}};

constexpr uint32_t kBitRates[] = {32,  48,   64,   96,   128,  192,  256,  384,  512,
                                  768, 1024, 1536, 2048, 3072, 4096, 5120, 6144, 8192};

// An index outside the list takes its nearest end.
template <typename T, size_t N>
const T &entry(const T (&list)[N], int index)
{
    return list[std::clamp(index, 0, int(N) - 1)];
}

struct Stream {
    size_t table;
    Resolution resolution;
    int framesPerSecond;
    int quality;
    int bitRateIndex;
};

void overlayStream(const Stream &stream, int channel, WireWriter *out, WireReader *defaults)
{
    const size_t base = stream.table + size_t(channel) * StreamEntry::Size;
    out->u16(base + StreamEntry::OffsetWidth, stream.resolution.width)
        .u16(base + StreamEntry::OffsetHeight, stream.resolution.height)
        .u8(base + StreamEntry::OffsetFramesPerSecond, uint8_t(stream.framesPerSecond))
        .u8(base + StreamEntry::OffsetQuality, uint8_t(stream.quality));
    if (defaults->u32(base + StreamEntry::OffsetBitRate) == 0)
        out->u32(base + StreamEntry::OffsetBitRate, entry(kBitRates, stream.bitRateIndex));
}

void overlayStreams(const ZrIniFile &file, WireWriter *out, WireReader *defaults)
{
    const bool isPal = file.intValue("SystemInfo/DefVideoFormat") == 0;
    const int resolution = file.intValue("MainStream/DefResolution");
    const Stream main = {OffsetMainStreams,
                         isPal ? entry(kMainPal, resolution) : entry(kMainNtsc, resolution),
                         isPal ? 25 : 30, file.intValue("MainStream/VideoQuality"),
                         file.intValue("MainStream/DefBitrate")};
    const Stream sub = {OffsetSubStreams, isPal ? kSubPal[0] : kSubNtsc[0],
                        file.intValue("SubStream/DefaultFpsValue"),
                        file.intValue("SubStream/VideoQuality"),
                        file.intValue("SubStream/DefaultBitrateValue")};
    const int audioCount = file.intValue("NumberSetting/AudioNum");
    const auto audio = uint8_t(file.intValue("MainStream/DefAudioEnable"));
    for (int channel = 0; channel < Profile::ChannelCapacity; ++channel) {
        overlayStream(main, channel, out, defaults);
        overlayStream(sub, channel, out, defaults);
        out->u8(OffsetMainStreams + size_t(channel) * StreamEntry::Size + StreamEntry::OffsetAudio,
                channel < audioCount ? audio : 0);
    }
}

uint8_t recordKinds(const ZrIniFile &file)
{
    int kinds = 0;
    if (file.intValue("RecordSchedulDef/EnableMotionRecord"))
        kinds += RecordMotion;
    if (file.intValue("RecordSchedulDef/EnableNormalRecord"))
        kinds += RecordNormal;
    if (file.intValue("RecordSchedulDef/EnablePirRecord"))
        kinds += RecordPir;
    return uint8_t(kinds);
}

} // namespace

const Field *fieldsBegin()
{
    return std::begin(kFields);
}

const Field *fieldsEnd()
{
    return std::end(kFields);
}

void overlay(const ZrIniFile &file, uint8_t *parameters)
{
    WireWriter out(parameters, Profile::ParametersSize);
    WireReader defaults(parameters, Profile::ParametersSize);
    for (const Field &field : kFields) {
        const ZrString value = file.value(field.key);
        out.number(field.offset, field.width,
                   uint64_t(value.toLongLong(nullptr, field.isHex ? 16 : 10)));
    }
    out.u8(OffsetLanguageMark, LanguageMark);
    overlayStreams(file, &out, &defaults);
    const auto split = uint8_t(file.intValue("DisplayOutputDef/ScreenSplitMode"));
    out.fill(OffsetScreenSplit, split, ScreenSplitCount);
    out.fill(OffsetSchedules, recordKinds(file), Profile::ChannelCapacity * ScheduleSize);
    out.u8(OffsetOutputMode, 0);
    out.text(OffsetDdnsServer, DdnsServerSize, file.value("DDNSDefault/ServerAddr"));
}

} // namespace ProfileDefaults
