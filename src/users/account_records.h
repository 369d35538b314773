// Wire record of the accounts: parameter kind 22. Little-endian; offsets in bytes.
#pragma once

#include "link/wirereader.h"
#include "link/wirewriter.h"

#include <zrstring>

namespace users
{

constexpr int AccountKind = 22;
constexpr std::size_t AccountRecordSize = 848;
constexpr int AccountEntries = 8; // the first seven are used
constexpr int AccountCount = 7;
constexpr std::size_t OffsetDeviceId = 800;      // u32, this recorder's address for remotes
constexpr std::size_t OffsetAutoLoginUser = 840; // index of the user to log in by itself
constexpr std::size_t OffsetRemoteId = 844;

struct AccountEntry {
    static constexpr std::size_t Size = 100;
    static constexpr std::size_t OffsetName = 0, OffsetPassword = 24, TextSize = 24;
    static constexpr std::size_t OffsetRights = 48;
    static constexpr std::size_t OffsetLiveChannels = 52, OffsetPlaybackChannels = 56,
                                 OffsetPtzChannels = 60, OffsetBackupChannels = 64;
    static constexpr std::size_t OffsetPasswordEnabled = 68, OffsetEnabled = 69;
    static constexpr std::size_t OffsetPlaybackAllowed = 71, OffsetBackupAllowed = 72,
                                 OffsetPtzAllowed = 73, OffsetLiveAllowed = 74;
    static constexpr std::size_t OffsetExtraText = 76, ExtraTextSize = 12;
    static constexpr std::size_t OffsetPatternEnabled = 88, OffsetPattern = 89, PatternSize = 9;

    ZrString name;
    ZrString password;
    ZrString extraText;
    std::uint32_t rights = 0;
    std::uint32_t liveChannels = 0;
    std::uint32_t playbackChannels = 0;
    std::uint32_t ptzChannels = 0;
    std::uint32_t backupChannels = 0;
    bool passwordEnabled = false;
    bool enabled = false;
    bool liveAllowed = false;
    bool playbackAllowed = false;
    bool ptzAllowed = false;
    bool backupAllowed = false;
    bool patternEnabled = false;
    std::uint8_t pattern[PatternSize] = {};

    static AccountEntry decode(WireReader &record, std::size_t base);
    void encode(WireWriter &record, std::size_t base) const;
};

} // namespace users
