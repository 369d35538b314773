#include "link/paramkinds.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr ParamKindRow kKinds[] = {
    {1, 256, "channel names on recordings"},
    {3, 176, "manual record"},
    {4, 12288, "record schedules"},
    {5, 1648, "image settings"},
    {6, 564, "network"},
    {7, 1648, "image settings, second set"},
    {8, 916, "mail"},
    {9, 452, "ports"},
    {10, 456, "dynamic names"},
    {11, 2800, "analogue cameras"},
    {12, 352, "preview and output"},
    {13, 7008, "motion areas"},
    {14, 8508, "motion detection"},
    {15, 2412, "picture loss alarms"},
    {16, 2448, "record and disk options"},
    {17, 8432, "pan, tilt and zoom"},
    {18, 16, "serial port"},
    {19, 96, "maintenance"},
    {20, 40, "time server"},
    {21, 168, "general settings"},
    {22, 848, "accounts"},
    {23, 16, "summer time"},
    {24, 252, "exceptions and view flags"},
    {25, 12288, "mail schedules"},
    {28, 148, "mobile network"},
    {29, 184, "dial-up"},
    {30, 100, "serial network"},
    {31, 12288, "capture schedules"},
    {32, 13056, "IP cameras"},
    {36, 8740, "external alarms"},
    {37, 4608, "protocols"},
    {38, 1648, "image settings, IP cameras"},
    {39, 4368, "capture"},
    {41, 448, "snapshot options"},
    {42, 12288, "transfer schedules"},
    {45, 14504, "main stream"},
    {46, 14504, "sub stream"},
    {47, 14504, "mobile stream"},
    {48, 2228, "masks"},
    {49, 6440, "sensor alarms"},
    {50, 328, "start options"},
    {53, 14504, "main stream, event"},
    {54, 14504, "sub stream, event"},
    {55, 14504, "mobile stream, event"},
    {56, 2472, "transfer server"},
    {57, 8276, "picture loss"},
    {58, 1648, "image settings, analogue"},
    {59, 160, "camera switches"},
    {60, 224, "floodlights and sirens"},
    {61, 52, "AI options"},
    {63, 172, "network, IPv6"},
    {64, 5760, "intelligent schedules"},
    {65, 192, "cloud storage"},
    {67, 19072, "intelligent alarms"},
    {68, 13284, "sound alarms"},
    {69, 868, "sensor options"},
    {70, 12288, "alarm schedules"},
    {71, 5132, "address filter"},
    {74, 73736, "intelligent rules"},
    {78, 56, "remote maintenance"},
    {80, 4536, "points of sale"},
    {81, 10380, "event encoding, first form"},
    {82, 10380, "event encoding, second form"},
    {84, 36, "network authentication"},
    {85, 2144, "voice prompts"},
    {86, 76, "smart home"},
};

} // namespace

const ParamKindRow *paramKindsBegin()
{
    return std::begin(kKinds);
}

const ParamKindRow *paramKindsEnd()
{
    return std::end(kKinds);
}

const ParamKindRow *findParamKind(uint32_t kind)
{
    const ParamKindRow *row = std::lower_bound(
        paramKindsBegin(), paramKindsEnd(), kind,
        [](const ParamKindRow &left, uint32_t right) { return left.kind < right; });
    return row != paramKindsEnd() && row->kind == kind ? row : nullptr;
}

size_t paramSize(uint32_t kind)
{
    const ParamKindRow *row = findParamKind(kind);
    return row ? row->size : 0;
}
