#include "link/deviceparams.h"

#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/wirewriter.h"

#include <cstring>
#include <iterator>

namespace
{

DeviceParamBlock block;
DeviceCustomPart custom;

#define ZR_ROW(kind, width)                                                                        \
    [[maybe_unused]] constexpr auto row##kind(const char *getter, size_t offset, const char *key,  \
                                              const char *meaning)                                 \
    {                                                                                              \
        return DeviceParamRow{getter, DeviceParamRow::Kind::kind, offset, width, key, meaning};    \
    }
ZR_ROW(Word, 4)
ZR_ROW(Text, DeviceParamBlock::TextSize)
ZR_ROW(Number, 1)
ZR_ROW(Switch, 1)
ZR_ROW(Live, 1)
#undef ZR_ROW

#define ZR_WORD(getter, offset, key, meaning) rowWord(#getter, offset, key, meaning),
#define ZR_TEXT(getter, offset, key, meaning) rowText(#getter, offset, key, meaning),
#define ZR_NUMBER(getter, offset, key, meaning) rowNumber(#getter, offset, key, meaning),
#define ZR_SWITCH(getter, offset, key, meaning) rowSwitch(#getter, offset, key, meaning),
#define ZR_LIVE(getter, offset, key, meaning) rowLive(#getter, offset, key, meaning),
constexpr DeviceParamRow kRows[] = {
    ZR_DEVICE_PARAMS(ZR_WORD, ZR_TEXT, ZR_NUMBER, ZR_SWITCH, ZR_LIVE)};
#undef ZR_WORD
#undef ZR_TEXT
#undef ZR_NUMBER
#undef ZR_SWITCH
#undef ZR_LIVE

// Resolutions that are too large to encode at the full rate, and larger ones still.
bool isLargeResolution(int code)
{
    return (code >= 62 && code <= 66) || (code >= 72 && code <= 74) || code == 82 || code == 83 ||
           code == 86;
}

bool isWideResolution(int code)
{
    return code >= 92 && code <= 94;
}

} // namespace

const DeviceParamRow *deviceParamsBegin()
{
    return std::begin(kRows);
}

const DeviceParamRow *deviceParamsEnd()
{
    return std::end(kRows);
}

void refreshDeviceParams()
{
    DeviceParamBlock fresh;
    appRequest(AppMain::system, AppSystem::getDeviceParams, fresh.bytes, sizeof fresh.bytes,
               nullptr, 0);
    block = fresh;
}

const DeviceParamBlock &deviceParamBlock()
{
    return block;
}

void setDeviceParamBlock(const DeviceParamBlock &fresh)
{
    block = fresh;
}

const DeviceCustomPart &deviceCustomPart()
{
    return custom;
}

void setDeviceCustomPart(const DeviceCustomPart &part)
{
    custom = part;
}

#define ZR_WORD(getter, offset, key, meaning)                                                      \
    uint32_t getter()                                                                              \
    {                                                                                              \
        return WireReader(block.bytes, sizeof block.bytes).u32(offset);                            \
    }
#define ZR_TEXT(getter, offset, key, meaning)                                                      \
    ZrString getter()                                                                              \
    {                                                                                              \
        return WireReader(block.bytes, sizeof block.bytes)                                         \
            .text(offset, DeviceParamBlock::TextSize);                                             \
    }
#define ZR_NUMBER(getter, offset, key, meaning)                                                    \
    int getter()                                                                                   \
    {                                                                                              \
        return block.bytes[offset];                                                                \
    }
#define ZR_SWITCH(getter, offset, key, meaning)                                                    \
    bool getter()                                                                                  \
    {                                                                                              \
        return block.bytes[offset] != 0;                                                           \
    }
#define ZR_LIVE(getter, offset, key, meaning)                                                      \
    bool getter()                                                                                  \
    {                                                                                              \
        refreshDeviceParams();                                                                     \
        return block.bytes[offset] != 0;                                                           \
    }
ZR_DEVICE_PARAMS(ZR_WORD, ZR_TEXT, ZR_NUMBER, ZR_SWITCH, ZR_LIVE)

int analogChannelCount()
{
    // A block that has yet to come, or claims more IP channels than channels, has none.
    return channelCount() > ipChannelCount() ? channelCount() - ipChannelCount() : 0;
}

bool isDigitalSidePresent()
{
    return isDigitalSideSet() || channelCount() != ipChannelCount();
}

int channelListLimit()
{
    return isListOf40Enabled() ? 40 : 32;
}

int frameRateLimit(int code, int mode, bool ntsc)
{
    switch (mode) {
    case 12:
        return 10;
    case 30:
        return isLargeResolution(code) || isWideResolution(code) ? 15 : 10;
    case 0:
        return isLargeResolution(code) ? 10 : isWideResolution(code) ? 15 : 5;
    default:
        return code == 80 || code == 81 ? 15 : ntsc ? 30 : 25;
    }
}

int upgradeType()
{
    return custom.bytes[DeviceCustomPart::OffsetUpgradeType];
}

uint32_t panelKeyTable()
{
    return WireReader(custom.bytes, sizeof custom.bytes).u32(DeviceCustomPart::OffsetPanelKeys);
}

int logoVariant()
{
    return custom.bytes[DeviceCustomPart::OffsetLogoVariant];
}

ChannelSupportInfo channelSupportInfo(uint32_t channel)
{
    uint8_t answer[8] = {};
    WireWriter request(4);
    request.u32(0, channel);
    appRequest(AppMain::liveView, AppLiveView::channelSupportInfo, answer, sizeof answer,
               request.data(), uint32_t(request.size()));
    WireReader reader(answer, sizeof answer);
    return {reader.u32(0), reader.u32(4)};
}
