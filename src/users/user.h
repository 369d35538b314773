// One of the seven accounts. Index 1 is the administrator, who is always enabled.
#pragma once

#include "users/account_records.h"

#include <zrbitarray>
#include <zrobject>

class User : public ZrObject
{
    ZR_OBJECT(User, ZrObject)
public:
    enum Right {
        ConfigurationRight = 0,
        SequenceRight = 6,
        ManualRecordRight = 7,
        SnapshotRight = 8,
        AudioRight = 9
    };
    static constexpr int RightCount = 10;
    static constexpr int AdministratorIndex = 1;

    // The administrator is born with everything, the others with nothing.
    User(int index, int channelCount, ZrObject *parent);

    int index() const { return index_; }
    const ZrString &name() const { return name_; }
    bool isEnabled() const { return enabled_; }
    bool passwordEnabled() const { return passwordEnabled_; }
    bool hasRight(Right right) const { return rights_.isSet(right); }
    // Two stages: the kind of access as a whole, then the channel.
    bool canLive(int channel) const;
    bool canPlayback(int channel) const;
    bool canPtz(int channel) const;
    bool canBackup(int channel) const;

    void take(const users::AccountEntry &entry, int channelCount);

private:
    ZrBitArray rights_;
    ZrBitArray liveChannels_;
    ZrBitArray playbackChannels_;
    ZrBitArray ptzChannels_;
    ZrBitArray backupChannels_;
    ZrString name_;
    ZrString password_;
    ZrString extraText_;
    int index_;
    bool enabled_;
    bool passwordEnabled_ = false;
    bool liveAllowed_;
    bool playbackAllowed_;
    bool ptzAllowed_;
    bool backupAllowed_;
    bool patternEnabled_ = false;
    std::uint8_t pattern_[users::AccountEntry::PatternSize] = {};
};
