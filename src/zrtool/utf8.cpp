#include "zrtool/utf8.h"

#include <cstring>

namespace zrtool
{
namespace
{

constexpr std::uint16_t replacement = 0xFFFD;

typedef std::uint8_t Bytes16 __attribute__((vector_size(16)));
typedef std::uint16_t Units16 __attribute__((vector_size(32)));

// Widens ASCII, 16 bytes at a time; stops at the first other byte or with less than 16 left.
const std::uint8_t *widenAscii(const std::uint8_t *from, const std::uint8_t *end,
                               std::uint16_t *&to)
{
    while (end - from >= 16) {
        std::uint64_t halves[2];
        Bytes16 bytes;
        std::memcpy(halves, from, sizeof halves);
        std::memcpy(&bytes, from, sizeof bytes);
        const std::uint64_t high = 0x8080808080808080u;
        const Units16 units = __builtin_convertvector(bytes, Units16);
        std::memcpy(to, &units, sizeof units);
        if ((halves[0] | halves[1]) & high) {
            // The units behind the ASCII run are overwritten by what follows.
            const int run = halves[0] & high ? __builtin_ctzll(halves[0] & high) / 8
                                             : 8 + __builtin_ctzll(halves[1] & high) / 8;
            to += run;
            return from + run;
        }
        from += 16;
        to += 16;
    }
    return from;
}

bool isTrail(std::uint8_t byte)
{
    return (byte & 0xC0) == 0x80;
}

// What may follow the first byte of a sequence: how many trail bytes, and the range of the first,
// which excludes overlong forms, surrogates and what lies beyond U+10FFFF.
struct Lead {
    int trails;
    std::uint8_t lowest, highest;
};

Lead classify(std::uint8_t byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, 0x80, 0xBF};
    if (byte == 0xE0)
        return {2, 0xA0, 0xBF};
    if (byte == 0xED)
        return {2, 0x80, 0x9F};
    if (byte >= 0xE1 && byte <= 0xEF)
        return {2, 0x80, 0xBF};
    if (byte == 0xF0)
        return {3, 0x90, 0xBF};
    if (byte >= 0xF1 && byte <= 0xF3)
        return {3, 0x80, 0xBF};
    if (byte == 0xF4)
        return {3, 0x80, 0x8F};
    return {0, 0, 0};
}

// Reads one sequence with every check; returns where the next begins.
const std::uint8_t *decodeChecked(const std::uint8_t *from, const std::uint8_t *end,
                                  std::uint16_t *&to)
{
    const Lead lead = classify(*from);
    std::uint32_t code = lead.trails ? *from & (0x3Fu >> lead.trails) : 0;
    const std::uint8_t *at = from + 1;
    for (int i = 0; i < lead.trails; i++, at++) {
        const bool fits =
            at < end && (i == 0 ? *at >= lead.lowest && *at <= lead.highest : isTrail(*at));
        if (!fits) {
            *to++ = replacement;
            return at;
        }
        code = code << 6 | (*at & 0x3Fu);
    }
    if (lead.trails == 0) {
        *to++ = replacement;
    } else if (code < 0x10000) {
        *to++ = std::uint16_t(code);
    } else {
        *to++ = std::uint16_t(0xD7C0 + (code >> 10));
        *to++ = std::uint16_t(0xDC00 | (code & 0x3FF));
    }
    return at;
}

// The two- and three-byte sequences of ordinary text; anything else goes through every check.
const std::uint8_t *decodeRun(const std::uint8_t *from, const std::uint8_t *end, std::uint16_t *&to)
{
    while (from < end && *from >= 0x80) {
        const std::uint32_t first = *from;
        if (end - from >= 3 && first >= 0xE1 && first <= 0xEF && first != 0xED &&
            isTrail(from[1]) && isTrail(from[2])) {
            *to++ = std::uint16_t(first << 12 | (from[1] & 0x3Fu) << 6 | (from[2] & 0x3Fu));
            from += 3;
        } else if (end - from >= 2 && first >= 0xC2 && first <= 0xDF && isTrail(from[1])) {
            *to++ = std::uint16_t((first & 0x1F) << 6 | (from[1] & 0x3Fu));
            from += 2;
        } else {
            from = decodeChecked(from, end, to);
        }
    }
    return from;
}

} // namespace

std::size_t utf8ToUtf16(const char *bytes, std::size_t length, std::uint16_t *units)
{
    const auto *from = reinterpret_cast<const std::uint8_t *>(bytes);
    const std::uint8_t *const end = from + length;
    std::uint16_t *to = units;
    while (from < end) {
        from = widenAscii(from, end, to);
        if (end - from < 16)
            while (from < end && *from < 0x80)
                *to++ = *from++;
        from = decodeRun(from, end, to);
    }
    return std::size_t(to - units);
}

bool isUtf8(const char *bytes, std::size_t length)
{
    const auto *at = reinterpret_cast<const std::uint8_t *>(bytes);
    const std::uint8_t *const end = at + length;
    while (at < end) {
        std::uint64_t word = 0;
        while (end - at >= 8 && (std::memcpy(&word, at, 8), !(word & 0x8080808080808080u)))
            at += 8;
        if (at == end)
            break;
        const Lead lead = classify(*at);
        if (*at >= 0x80 && lead.trails == 0)
            return false;
        ++at;
        for (int i = 0; i < lead.trails; i++, at++) {
            if (at == end || (i == 0 ? *at < lead.lowest || *at > lead.highest : !isTrail(*at)))
                return false;
        }
    }
    return true;
}

std::size_t utf16ToUtf8(const std::uint16_t *units, std::size_t length, char *bytes)
{
    auto *to = reinterpret_cast<std::uint8_t *>(bytes);
    for (std::size_t i = 0; i < length; i++) {
        std::uint32_t code = units[i];
        if (code < 0x80) {
            *to++ = std::uint8_t(code);
            continue;
        }
        if (code < 0x800) {
            *to++ = std::uint8_t(0xC0 | code >> 6);
            *to++ = std::uint8_t(0x80 | (code & 0x3F));
            continue;
        }
        if (isHighSurrogate(code) && i + 1 < length && isLowSurrogate(units[i + 1])) {
            code = joinSurrogates(code, units[++i]);
            *to++ = std::uint8_t(0xF0 | code >> 18);
            *to++ = std::uint8_t(0x80 | (code >> 12 & 0x3F));
        } else {
            if (isHighSurrogate(code) || isLowSurrogate(code))
                code = replacement;
            *to++ = std::uint8_t(0xE0 | code >> 12);
        }
        *to++ = std::uint8_t(0x80 | (code >> 6 & 0x3F));
        *to++ = std::uint8_t(0x80 | (code & 0x3F));
    }
    return std::size_t(to - reinterpret_cast<std::uint8_t *>(bytes));
}

} // namespace zrtool
