// The kinds of parameters that App keeps, each a record of a fixed size.
#pragma once

#include <cstddef>
#include <cstdint>

// Kinds by the name of what they hold, where the interface itself looks inside.
namespace ParamKind
{
enum Kind : uint32_t {
    manualRecord = 3,
    network = 6,
    analogCameras = 11,
    preview = 12,
    recordOptions = 16,
    ptz = 17,
    serial = 18,
    general = 21,
    accounts = 22,
    viewFlags = 24,
    cameras = 32,
    snapshot = 41,
    startFlag = 50,
    floodlight = 60,
    networkIpv6 = 63,
    encoderPairFirst = 81, // 81 and 82 are a pair, of which the device uses one
    encoderPairSecond = 82,
};
} // namespace ParamKind

struct ParamKindRow {
    uint32_t kind;
    uint32_t size;    // of the record, in bytes
    const char *name; // what the record holds
};

// All kinds, in ascending order.
const ParamKindRow *paramKindsBegin();
const ParamKindRow *paramKindsEnd();
// The row of a kind, null for a number that is none.
const ParamKindRow *findParamKind(uint32_t kind);
// Size of the record, 0 for a number that is no kind.
size_t paramSize(uint32_t kind);
