// Strings beside std::u16string, and conversion beside the best known loops.
#include "support/aims.h"

#include <benchmark/benchmark.h>
#include <zrstring>
#include <zrstringlist>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

using benchmark::ClobberMemory;
using benchmark::DoNotOptimize;
using benchmark::State;

namespace
{

void append(State &state)
{
    for (auto _ : state) {
        ZrString text;
        for (int i = 0; i < 1000; i++)
            text.append(ZrUcs2(i));
        DoNotOptimize(text);
    }
}

void appendYardstick(State &state)
{
    for (auto _ : state) {
        std::u16string text;
        for (int i = 0; i < 1000; i++)
            text.push_back(char16_t(i));
        DoNotOptimize(text.data());
    }
}

// Two texts that differ in their last character, as sorted names do.
void compare(State &state)
{
    ZrString a("Camera at the entrance of building 1"), b("Camera at the entrance of building 2");
    for (auto _ : state) {
        DoNotOptimize(a);
        DoNotOptimize(b);
        int order = a.compare(b);
        DoNotOptimize(order);
    }
}

void compareYardstick(State &state)
{
    std::u16string a = u"Camera at the entrance of building 1";
    std::u16string b = u"Camera at the entrance of building 2";
    for (auto _ : state) {
        DoNotOptimize(a);
        DoNotOptimize(b);
        int order = a.compare(b);
        DoNotOptimize(order);
    }
}

const std::u16string &fields()
{
    static const std::u16string text = [] {
        std::mt19937 random(14);
        std::u16string made;
        for (int i = 0; i < 1000; i++) {
            if (i > 0)
                made += u',';
            for (unsigned n = 3 + random() % 10; n > 0; n--)
                made += char16_t('a' + random() % 26);
        }
        return made;
    }();
    return text;
}

void split(State &state)
{
    const ZrString text = ZrString::fromUtf16(reinterpret_cast<const ZrUcs2 *>(fields().data()),
                                              int(fields().size()));
    for (auto _ : state) {
        ZrStringList parts = text.split(ZrUcs2(','));
        DoNotOptimize(parts);
    }
}

void splitYardstick(State &state)
{
    const std::u16string &text = fields();
    for (auto _ : state) {
        std::vector<std::u16string> parts;
        std::size_t begin = 0, end;
        while ((end = text.find(u',', begin)) != text.npos) {
            parts.push_back(text.substr(begin, end - begin));
            begin = end + 1;
        }
        parts.push_back(text.substr(begin));
        DoNotOptimize(parts.data());
    }
}

void number(State &state)
{
    int value = 1234567;
    for (auto _ : state) {
        ZrString text = ZrString::number(value++);
        DoNotOptimize(text);
    }
}

void numberYardstick(State &state)
{
    int value = 1234567;
    for (auto _ : state) {
        char digits[16];
        char *end = std::to_chars(digits, digits + sizeof digits, value++).ptr;
        std::u16string text(digits, end);
        DoNotOptimize(text.data());
    }
}

void fillMarkers(State &state)
{
    const ZrString pattern("Channel %1: %2"), name("entrance");
    for (auto _ : state) {
        ZrString text = pattern.arg(17).arg(name);
        DoNotOptimize(text);
    }
}

void fillMarkersYardstick(State &state)
{
    const std::string name = "entrance";
    for (auto _ : state) {
        char text[64];
        std::snprintf(text, sizeof text, "Channel %d: %s", 17, name.c_str());
        std::u16string wide(text, text + std::strlen(text));
        DoNotOptimize(wide.data());
    }
}

constexpr int megabyte = 1 << 20;

const std::string &asciiText()
{
    static const std::string text = [] {
        std::mt19937 random(8);
        std::string made(megabyte, ' ');
        for (char &c : made)
            c = char(32 + random() % 95);
        return made;
    }();
    return text;
}

// Short runs of ASCII, of two-byte and of three-byte characters.
const std::string &mixedText()
{
    static const std::string text = [] {
        std::mt19937 random(9);
        std::string made;
        while (made.size() < megabyte - 64) {
            const unsigned kind = random() % 4;
            for (unsigned n = 1 + random() % 12; n > 0; n--) {
                const unsigned code = kind < 2    ? 32 + random() % 95
                                      : kind == 2 ? 0xC0 + random() % 0x440
                                                  : 0x4E00 + random() % 0x51A6;
                if (code < 0x80) {
                    made += char(code);
                } else if (code < 0x800) {
                    made += char(0xC0 | code >> 6);
                    made += char(0x80 | (code & 63));
                } else {
                    made += char(0xE0 | code >> 12);
                    made += char(0x80 | (code >> 6 & 63));
                    made += char(0x80 | (code & 63));
                }
            }
        }
        return made;
    }();
    return text;
}

void fromUtf8(State &state, const std::string &bytes)
{
    ZrString text;
    text.reserve(int(bytes.size()));
    for (auto _ : state) {
        text.assignUtf8(bytes.data(), int(bytes.size()));
        DoNotOptimize(text);
    }
}

typedef std::uint8_t Bytes16 __attribute__((vector_size(16)));
typedef std::uint16_t Units16 __attribute__((vector_size(32)));

// As little as can be done: ASCII 16 at a time, and sequences taken for well-formed.
std::size_t trustingConversion(const std::string &bytes, std::uint16_t *units)
{
    const auto *p = reinterpret_cast<const std::uint8_t *>(bytes.data());
    const std::uint8_t *const end = p + bytes.size();
    std::uint16_t *q = units;
    while (p < end) {
        while (end - p >= 16) {
            Bytes16 ascii;
            std::uint64_t words[2];
            std::memcpy(&ascii, p, 16);
            std::memcpy(words, p, 16);
            const Units16 wide = __builtin_convertvector(ascii, Units16);
            std::memcpy(q, &wide, 32);
            constexpr std::uint64_t high = 0x8080808080808080u;
            if (const std::uint64_t first = words[0] & high, second = words[1] & high;
                first | second) {
                const int run =
                    first ? __builtin_ctzll(first) / 8 : 8 + __builtin_ctzll(second) / 8;
                p += run;
                q += run;
                break;
            }
            p += 16;
            q += 16;
        }
        if (end - p < 16 && *p < 0x80) {
            *q++ = *p++;
            continue;
        }
        while (p < end && *p >= 0x80) {
            if (*p < 0xE0) {
                *q++ = std::uint16_t((p[0] & 31) << 6 | (p[1] & 63));
                p += 2;
            } else {
                *q++ = std::uint16_t((p[0] & 15) << 12 | (p[1] & 63) << 6 | (p[2] & 63));
                p += 3;
            }
        }
    }
    return std::size_t(q - units);
}

void fromUtf8Yardstick(State &state, const std::string &bytes)
{
    std::vector<std::uint16_t> units(bytes.size() + 64);
    for (auto _ : state) {
        std::size_t count = trustingConversion(bytes, units.data());
        DoNotOptimize(count);
        ClobberMemory();
    }
}

BENCHMARK(append)->Name("stringAppend");
BENCHMARK(appendYardstick)->Name("stringAppendYardstick");
BENCHMARK(compare)->Name("stringCompare");
BENCHMARK(compareYardstick)->Name("stringCompareYardstick");
BENCHMARK(split)->Name("stringSplit");
BENCHMARK(splitYardstick)->Name("stringSplitYardstick");
BENCHMARK(number)->Name("stringNumber");
BENCHMARK(numberYardstick)->Name("stringNumberYardstick");
BENCHMARK(fillMarkers)->Name("stringArg");
BENCHMARK(fillMarkersYardstick)->Name("stringArgYardstick");
BENCHMARK_CAPTURE(fromUtf8, ascii, asciiText())->Name("utf8Ascii");
BENCHMARK_CAPTURE(fromUtf8Yardstick, ascii, asciiText())->Name("utf8AsciiYardstick");
BENCHMARK_CAPTURE(fromUtf8, mixed, mixedText())->Name("utf8Mixed");
BENCHMARK_CAPTURE(fromUtf8Yardstick, mixed, mixedText())->Name("utf8MixedYardstick");

const bool aims[] = {
    zrbench::atMost("string append beside std::u16string", "stringAppend", "stringAppendYardstick",
                    1.0),
    zrbench::atMost("string compare beside std::u16string", "stringCompare",
                    "stringCompareYardstick", 1.0),
    zrbench::atMost("split of 1,000 fields beside find and substr", "stringSplit",
                    "stringSplitYardstick", 1.0),
    zrbench::atMost("number beside std::to_chars into a std::u16string", "stringNumber",
                    "stringNumberYardstick", 2.0),
    zrbench::atMost("two place markers beside snprintf into a std::u16string", "stringArg",
                    "stringArgYardstick", 2.0),
    zrbench::atMost("1 MB of ASCII beside a trusting loop", "utf8Ascii", "utf8AsciiYardstick", 2.0),
    zrbench::atMost("1 MB of mixed text beside a trusting loop", "utf8Mixed", "utf8MixedYardstick",
                    2.0),
};

} // namespace
