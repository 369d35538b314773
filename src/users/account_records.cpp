#include "users/account_records.h"

namespace users
{

AccountEntry AccountEntry::decode(WireReader &record, std::size_t base)
{
    AccountEntry entry;
    entry.name = record.text(base + OffsetName, TextSize);
    entry.password = record.text(base + OffsetPassword, TextSize);
    entry.extraText = record.text(base + OffsetExtraText, ExtraTextSize);
    entry.rights = record.u32(base + OffsetRights);
    entry.liveChannels = record.u32(base + OffsetLiveChannels);
    entry.playbackChannels = record.u32(base + OffsetPlaybackChannels);
    entry.ptzChannels = record.u32(base + OffsetPtzChannels);
    entry.backupChannels = record.u32(base + OffsetBackupChannels);
    entry.passwordEnabled = record.u8(base + OffsetPasswordEnabled) != 0;
    entry.enabled = record.u8(base + OffsetEnabled) != 0;
    entry.playbackAllowed = record.u8(base + OffsetPlaybackAllowed) != 0;
    entry.backupAllowed = record.u8(base + OffsetBackupAllowed) != 0;
    entry.ptzAllowed = record.u8(base + OffsetPtzAllowed) != 0;
    entry.liveAllowed = record.u8(base + OffsetLiveAllowed) != 0;
    entry.patternEnabled = record.u8(base + OffsetPatternEnabled) != 0;
    record.bytes(base + OffsetPattern, entry.pattern, PatternSize);
    return entry;
}

void AccountEntry::encode(WireWriter &record, std::size_t base) const
{
    record.text(base + OffsetName, TextSize, name)
        .text(base + OffsetPassword, TextSize, password)
        .text(base + OffsetExtraText, ExtraTextSize, extraText)
        .u32(base + OffsetRights, rights)
        .u32(base + OffsetLiveChannels, liveChannels)
        .u32(base + OffsetPlaybackChannels, playbackChannels)
        .u32(base + OffsetPtzChannels, ptzChannels)
        .u32(base + OffsetBackupChannels, backupChannels)
        .u8(base + OffsetPasswordEnabled, passwordEnabled)
        .u8(base + OffsetEnabled, enabled)
        .u8(base + OffsetPlaybackAllowed, playbackAllowed)
        .u8(base + OffsetBackupAllowed, backupAllowed)
        .u8(base + OffsetPtzAllowed, ptzAllowed)
        .u8(base + OffsetLiveAllowed, liveAllowed)
        .u8(base + OffsetPatternEnabled, patternEnabled)
        .bytes(base + OffsetPattern, pattern, PatternSize);
}

} // namespace users
