// What the machine is and can do: one getter a question. Widget thread.
//
// Two small copies stay in this process: the block that App sends, overwritten whole at each
// refresh, and the custom part of the device profile, set once at start-up. Everything the table
// in devicetable.h names is a function here:
//
//     int channelCount();   bool isAiEnabled();   ZrString framebufferNode();   ...
#pragma once

#include "link/devicetable.h"
#include "link/wirereader.h"

#include <cstddef>
#include <cstdint>
#include <zrstring>

struct DeviceParamBlock {
    static constexpr size_t Size = 316;
    // Fields of the table stand below this; what is behind it is App's.
    static constexpr size_t SwitchEnd = 304;
    static constexpr size_t TextSize = 12;

    uint8_t bytes[Size] = {};
};

struct DeviceCustomPart {
    static constexpr size_t Size = 2480;
    static constexpr size_t OffsetUpgradeType = 511;  // u8
    static constexpr size_t OffsetPanelKeys = 628;    // u32
    static constexpr size_t OffsetLogoVariant = 2432; // u8

    uint8_t bytes[Size] = {};
};

// One row of the table, for whoever fills the block or writes it down.
struct DeviceParamRow {
    enum class Kind { Word, Text, Number, Switch, Live };
    const char *getter;
    Kind kind;
    size_t offset;
    size_t width;
    const char *profileKey;
    const char *meaning;
};
const DeviceParamRow *deviceParamsBegin();
const DeviceParamRow *deviceParamsEnd();

// Asks App for the block.
void refreshDeviceParams();
const DeviceParamBlock &deviceParamBlock();
// For tests and for a peer that takes the place of App.
void setDeviceParamBlock(const DeviceParamBlock &block);
const DeviceCustomPart &deviceCustomPart();
void setDeviceCustomPart(const DeviceCustomPart &part);

#define ZR_DECLARE_NUMBER(getter, offset, key, meaning) int getter();
#define ZR_DECLARE_WORD(getter, offset, key, meaning) uint32_t getter();
#define ZR_DECLARE_TEXT(getter, offset, key, meaning) ZrString getter();
#define ZR_DECLARE_SWITCH(getter, offset, key, meaning) bool getter();
ZR_DEVICE_PARAMS(ZR_DECLARE_WORD, ZR_DECLARE_TEXT, ZR_DECLARE_NUMBER, ZR_DECLARE_SWITCH,
                 ZR_DECLARE_SWITCH)
#undef ZR_DECLARE_NUMBER
#undef ZR_DECLARE_WORD
#undef ZR_DECLARE_TEXT
#undef ZR_DECLARE_SWITCH

// Computed answers.

int analogChannelCount();
// The switch is set, or not all channels are IP channels.
bool isDigitalSidePresent();
// Channels that a list can hold: 40 or 32.
int channelListLimit();
// Highest frame rate for a resolution code in a mode; without a rule for the mode it follows the
// video standard, 30 with `ntsc` and 25 without.
int frameRateLimit(int code, int mode, bool ntsc);

// Answers of the custom part.

int upgradeType();
uint32_t panelKeyTable();
int logoVariant();

// The same on every machine of this generation.

constexpr bool isLiveViewEnabled()
{
    return true;
}
constexpr bool isPlaybackEnabled()
{
    return true;
}
constexpr bool isCarRecorder()
{
    return false;
}
constexpr bool isTouchPanelEnabled()
{
    return false;
}

// Width and height of a channel's picture, asked of App; zeros when it does not know.
struct ChannelSupportInfo {
    uint32_t width = 0;
    uint32_t height = 0;
};
ChannelSupportInfo channelSupportInfo(uint32_t channel);
