// The device profile: which line of "custom-config.ini" goes to which bytes of the custom part.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Profile
{

constexpr size_t Size = 613760;           // the whole record
constexpr size_t CustomSize = 2480;       // what the file says about the model
constexpr size_t OffsetParameters = 2480; // App's default parameter set
constexpr size_t ParametersSize = 611280;
constexpr size_t ParametersSentSize = 611276; // as much of it as goes back
constexpr size_t OffsetSecondary = 586200;    // in the record: App's secondary defaults
constexpr int ChannelCapacity = 32;           // entries of a per-channel table
constexpr size_t ColorRecordSize = 2480;

enum class Conversion {
    Number,  // decimal; the field takes as many low bytes as it is wide
    Hex,     // hexadecimal
    HexLong, // the same, behind the removal of every "LLU"; printed as it is read
    Text,    // zero-padded
    Nodes,   // a list by commas, blanks removed: one zero-padded name an entry
    Quintet, // five bytes by commas
    Mask,    // decimal; bit i goes to bit (i mod 8) of byte (i / 8)
};

struct Key {
    const char *key;
    Conversion conversion;
    size_t offset; // in the custom part
    size_t width;  // of an entry, in bytes
    size_t count = 1;
    size_t size() const { return width * count; }
};

// In the order in which they are read. Offsets are fixed once; the peer reads the same table.
const Key *keysBegin();
const Key *keysEnd();
// The one key that is read when the file names no model.
const Key &factoryMaskKey();
// The row of a key, null for a name that is none.
const Key *findKey(const char *name);

// Colour quintets of an analogue front end: the section by its chip code, and the keys in it with
// their places in the record.
const char *colorSection(uint32_t chipCode);
struct ColorKey {
    const char *key; // with its leading "/"
    size_t offset;
};
const ColorKey *colorKeysBegin();
const ColorKey *colorKeysEnd();

} // namespace Profile
