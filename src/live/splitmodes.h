// The catalogue of split modes: which cells a mode has and which of them are merged, and for how
// many channels it is offered. A row is data; nothing else in the system knows a mode's shape.
#pragma once

#include <cstdint>

namespace live
{

// A block of span x span positions; row and column of its top left one.
struct SplitMerge {
    std::uint8_t row, column, span;
};

struct SplitMode {
    int id;
    const char *name; // goes into the translated "%1" of the mode's label
    std::uint8_t rows, columns;
    SplitMerge merges[4]; // unused ones have span 0
    int splitCount;       // the channels for which the mode is meant
    int neededChannels;   // the menus offer it from this many on
};

constexpr int FullScreenMode = 0; // also the fallback wherever a mode is not found
constexpr int SplitModeCount = 23;
extern const SplitMode SplitModes[SplitModeCount];

// The menus' lists, in their order.
constexpr int RegularModes[] = {1, 4, 7, 11, 14, 16, 18, 19, 20, 21, 22};
constexpr int UnevenModes[] = {2, 3, 5, 6, 8, 9, 10, 12, 13, 15, 17};

// How many of a menu's list a device with that many channels offers: the list ends at the first
// mode that needs more. A mode that needs 12 stays on a device of 10.
int offeredRegularModes(int channelCount);
int offeredUnevenModes(int channelCount);
// Channels that a mode needs to be offered; an id above the catalogue needs 4.
int neededChannels(int modeId);

// For choosing a mode by channel count: three modes of more cells than channels count as if they
// fitted 8, 24 and 32 exactly.
int adjustedSplitCount(int modeIndex);

} // namespace live
