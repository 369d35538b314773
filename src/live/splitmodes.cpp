#include "live/splitmodes.h"

namespace live
{

const SplitMode SplitModes[SplitModeCount] = {
    {0, "1", 1, 1, {}, 1, 1},
    {1, "4", 2, 2, {}, 4, 4},
    {2, "6", 3, 3, {{0, 0, 2}}, 6, 6},
    {3, "8", 4, 4, {{0, 0, 3}}, 8, 8},
    {4, "9", 3, 3, {}, 9, 8},
    {5, "10", 4, 4, {{0, 0, 2}, {0, 2, 2}}, 10, 10},
    {6, "10-1", 5, 5, {{0, 0, 4}}, 10, 10},
    {7, "12", 3, 4, {}, 12, 12},
    {8, "13", 4, 4, {{1, 1, 2}}, 13, 13},
    {9, "13-1", 5, 5, {{0, 0, 2}, {0, 2, 2}, {2, 0, 2}, {2, 2, 2}}, 13, 13},
    {10, "14", 5, 5, {{0, 0, 3}, {0, 3, 2}}, 14, 14},
    {11, "16", 4, 4, {}, 16, 16},
    {12, "17", 5, 5, {{0, 0, 3}}, 17, 17},
    {13, "19", 5, 5, {{0, 0, 2}, {0, 2, 2}}, 19, 19},
    {14, "20", 4, 5, {}, 20, 20},
    {15, "22", 5, 5, {{0, 0, 2}}, 22, 22},
    {16, "25", 5, 5, {}, 25, 24},
    {17, "32", 7, 7, {{0, 0, 2}, {0, 2, 2}, {2, 0, 2}, {2, 2, 3}}, 32, 32},
    {18, "36", 6, 6, {}, 36, 32},
    {19, "42", 6, 7, {}, 42, 36},
    {20, "49", 7, 7, {}, 49, 49},
    {21, "56", 7, 8, {}, 56, 56},
    {22, "64", 8, 8, {}, 64, 64},
};

int neededChannels(int modeId)
{
    return modeId >= 0 && modeId < SplitModeCount ? SplitModes[modeId].neededChannels : 4;
}

namespace
{

template <int Size>
int offered(const int (&modes)[Size], int channelCount)
{
    int count = 0;
    for (; count < Size; ++count) {
        const int needed = neededChannels(modes[count]);
        const bool twelveOnTen = needed == 12 && channelCount == 10;
        if (needed > channelCount && !twelveOnTen)
            break;
    }
    return count;
}

} // namespace

int offeredRegularModes(int channelCount)
{
    return offered(RegularModes, channelCount);
}

int offeredUnevenModes(int channelCount)
{
    return offered(UnevenModes, channelCount);
}

int adjustedSplitCount(int modeIndex)
{
    switch (SplitModes[modeIndex].splitCount) {
    case 9:
        return 8;
    case 25:
        return 24;
    case 36:
        return 32;
    default:
        return SplitModes[modeIndex].splitCount;
    }
}

} // namespace live
