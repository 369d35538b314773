// The part of App's default parameter set that the device profile overlays. Offsets are from the
// beginning of the parameter part; everything that has no name here is App's and passes through.
#pragma once

#include "link/profilelayout.h"

#include <cstddef>
#include <cstdint>
#include <zrinifile>

namespace ProfileDefaults
{

// Fields that take the low bytes of one key.
struct Field {
    const char *key;
    bool isHex;
    size_t offset;
    size_t width;
};
const Field *fieldsBegin();
const Field *fieldsEnd();

constexpr size_t OffsetLanguage = 16;     // u8
constexpr size_t OffsetLanguageMark = 17; // u8: always LanguageMark
constexpr uint8_t LanguageMark = 40;
constexpr size_t OffsetScreenSplit = 40; // u8 for each of the display layouts
constexpr int ScreenSplitCount = 4;
constexpr size_t OffsetVgaResolution = 44;  // u8
constexpr size_t OffsetHdmiResolution = 45; // u8
constexpr size_t OffsetOutputMode = 46;     // u8
constexpr size_t OffsetDdnsServer = 64;
constexpr size_t DdnsServerSize = 64;

// One entry a channel for each stream.
struct StreamEntry {
    static constexpr size_t Size = 16;
    static constexpr size_t OffsetWidth = 0;           // u16
    static constexpr size_t OffsetHeight = 2;          // u16
    static constexpr size_t OffsetFramesPerSecond = 4; // u8
    static constexpr size_t OffsetQuality = 5;         // u8
    static constexpr size_t OffsetAudio = 6;           // u8
    static constexpr size_t OffsetBitRate = 8;         // u32, kbit/s
};
constexpr size_t OffsetMainStreams = 1024;
constexpr size_t OffsetSubStreams = 1536;

// Record schedules: a byte for each slot, bits of what is recorded.
constexpr size_t OffsetSchedules = 2048;
constexpr size_t ScheduleSize = 384;
constexpr uint8_t RecordNormal = 1;
constexpr uint8_t RecordMotion = 2;
constexpr uint8_t RecordPir = 128;

// Overlays the defaults of the file on App's parameter part, which has Profile::ParametersSize
// bytes.
void overlay(const ZrIniFile &file, uint8_t *parameters);

} // namespace ProfileDefaults
