// Conversion between UTF-8 and UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zrtool
{

// Writes at most one unit for each byte; returns the number of units written. Each malformed
// sequence, as far as it could have been the beginning of a character, becomes one U+FFFD.
std::size_t utf8ToUtf16(const char *bytes, std::size_t length, std::uint16_t *units);

// Writes at most three bytes for each unit; returns the number of bytes written. A lone surrogate
// becomes U+FFFD.
std::size_t utf16ToUtf8(const std::uint16_t *units, std::size_t length, char *bytes);

// Whether the bytes are whole, well-formed characters.
bool isUtf8(const char *bytes, std::size_t length);

constexpr bool isHighSurrogate(std::uint32_t unit)
{
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool isLowSurrogate(std::uint32_t unit)
{
    return (unit & 0xFC00) == 0xDC00;
}
constexpr std::uint32_t joinSurrogates(std::uint32_t high, std::uint32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

} // namespace zrtool
