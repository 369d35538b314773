#include "users/user.h"

#include <algorithm>
#include <cstring>

namespace
{

bool allows(bool whole, const ZrBitArray &channels, int channel)
{
    return whole && channel >= 0 && channel < channels.size() && channels.isSet(channel);
}

// The record has 32 channel bits; channels beyond them follow the last one's fate: off.
ZrBitArray channelBits(std::uint32_t mask, int channelCount)
{
    ZrBitArray bits(channelCount, false);
    for (int channel = 0; channel < std::min(channelCount, 32); ++channel) {
        if (mask >> channel & 1u)
            bits.setBit(channel);
    }
    return bits;
}

} // namespace

User::User(int index, int channelCount, ZrObject *parent)
    : ZrObject(parent),
      rights_(RightCount, index == AdministratorIndex),
      liveChannels_(channelCount, index == AdministratorIndex),
      playbackChannels_(liveChannels_),
      ptzChannels_(liveChannels_),
      backupChannels_(liveChannels_),
      index_(index),
      enabled_(index == AdministratorIndex),
      liveAllowed_(enabled_),
      playbackAllowed_(enabled_),
      ptzAllowed_(enabled_),
      backupAllowed_(enabled_)
{
}

bool User::canLive(int channel) const
{
    return allows(liveAllowed_, liveChannels_, channel);
}

bool User::canPlayback(int channel) const
{
    return allows(playbackAllowed_, playbackChannels_, channel);
}

bool User::canPtz(int channel) const
{
    return allows(ptzAllowed_, ptzChannels_, channel);
}

bool User::canBackup(int channel) const
{
    return allows(backupAllowed_, backupChannels_, channel);
}

void User::take(const users::AccountEntry &entry, int channelCount)
{
    name_ = entry.name;
    password_ = entry.password;
    extraText_ = entry.extraText;
    for (int right = 0; right < RightCount; ++right) {
        if (entry.rights >> right & 1u)
            rights_.setBit(right);
        else
            rights_.clearBit(right);
    }
    liveChannels_ = channelBits(entry.liveChannels, channelCount);
    playbackChannels_ = channelBits(entry.playbackChannels, channelCount);
    ptzChannels_ = channelBits(entry.ptzChannels, channelCount);
    backupChannels_ = channelBits(entry.backupChannels, channelCount);
    enabled_ = entry.enabled || index_ == AdministratorIndex;
    passwordEnabled_ = entry.passwordEnabled;
    liveAllowed_ = entry.liveAllowed;
    playbackAllowed_ = entry.playbackAllowed;
    ptzAllowed_ = entry.ptzAllowed;
    backupAllowed_ = entry.backupAllowed;
    patternEnabled_ = entry.patternEnabled;
    std::memcpy(pattern_, entry.pattern, sizeof pattern_);
}
