#include "support/random_seed.h"

#include <zrbitmap>

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace
{

struct Close {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

using Picture = ZrVector<std::uint8_t>; // red, green, blue, alpha of each pixel

// The picture of a file of these bytes, empty when it is refused or has more pixels than asked for.
Picture decoded(const std::string &bytes, int mostPixels = INT_MAX)
{
    const std::unique_ptr<std::FILE, Close> file(
        fmemopen(const_cast<char *>(bytes.data()), bytes.size(), "rb"));
    const ZrBitmap bitmap(file.get());
    if (bitmap.width() * bitmap.height() > mostPixels)
        return {};
    Picture picture(3);
    const bool whole = bitmap.decode(picture);
    EXPECT_EQ(picture.size(), whole ? bitmap.width() * bitmap.height() * 4 : 0);
    return picture;
}

void put(std::string &bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; i++)
        bytes += char(value >> (8 * i));
}

enum Compression : std::uint32_t { Plain, Runs8, Runs4, Masks, AlphaMasks = 6 };

// A bitmap file, its fields as they are in the file.
struct BitmapFile {
    int width = 5, height = 3;
    int bits = 24;
    std::uint32_t compression = Plain;
    std::string masks = {};   // behind the header
    std::string colours = {}; // four bytes each
    std::string pixels = {};

    std::string bytes() const
    {
        const std::uint32_t offset = std::uint32_t(14 + 40 + masks.size() + colours.size());
        std::string file = "BM";
        put(file, offset + std::uint32_t(pixels.size()), 4);
        put(file, 0, 4);
        put(file, offset, 4);
        put(file, 40, 4);
        put(file, std::uint32_t(width), 4);
        put(file, std::uint32_t(height), 4);
        put(file, 1, 2);
        put(file, std::uint32_t(bits), 2);
        put(file, compression, 4);
        put(file, 0, 4);
        put(file, 2835, 4);
        put(file, 2835, 4);
        put(file, std::uint32_t(colours.size() / 4), 4);
        put(file, 0, 4);
        return file + masks + colours + pixels;
    }
};

// How the pixels of a picture that has each channel full or not at all are stored.
struct Format {
    const char *what;
    int bits;
    std::uint32_t compression;
    std::vector<std::uint32_t> masks; // of the channels; none when a pixel is a colour's number

    // What stands at a place, a bit for each channel.
    unsigned channels(int x, int y) const
    {
        const unsigned any = unsigned(x * 5 + y * 3 + x * y);
        return any % (masks.empty() ? 1u << std::min(bits, 3) : 1u << masks.size());
    }
    std::string packedRow(int width, int y) const
    {
        std::string row;
        unsigned gathered = 0;
        int held = 0; // bits, the first pixel in the highest ones
        for (int x = 0; x < width; x++) {
            std::uint32_t pixel = 0;
            for (std::size_t i = 0; i < masks.size(); i++)
                pixel |= channels(x, y) >> i & 1 ? masks[i] : 0;
            if (!masks.empty()) {
                put(row, pixel, bits / 8);
                continue;
            }
            gathered = gathered << bits | channels(x, y);
            held += bits;
            if (held % 8 == 0 || x + 1 == width)
                put(row, gathered << (-held & 7), 1);
        }
        row.resize((row.size() + 3) / 4 * 4);
        return row;
    }
};

} // namespace

TEST(ZrBitmap, ReadsEveryFormatInBothRowOrders)
{
    const Format formats[] = {
        {"1 bit", 1, Plain, {}},
        {"4 bits", 4, Plain, {}},
        {"8 bits", 8, Plain, {}},
        {"16 bits", 16, Plain, {0x7C00, 0x3E0, 0x1F}},
        {"16 bits by masks", 16, Masks, {0xF800, 0x7E0, 0x1F}},
        {"24 bits", 24, Plain, {0xFF0000, 0xFF00, 0xFF}},
        {"32 bits", 32, Plain, {0xFF0000, 0xFF00, 0xFF}},
        {"32 bits with alpha", 32, AlphaMasks, {0xFF, 0xFF00, 0xFF0000, 0xFF000000}},
    };
    constexpr int width = 11, height = 3;
    for (const Format &format : formats) {
        for (const bool topDown : {false, true}) {
            BitmapFile file{width, topDown ? -height : height, format.bits, format.compression};
            for (std::size_t i = 0; file.compression != Plain && i < format.masks.size(); i++)
                put(file.masks, format.masks[i], 4);
            for (int i = 0; i < 8 && format.bits <= 8; i++)
                put(file.colours, (i & 1) * 0xFF0000u | (i >> 1 & 1) * 0xFF00u | (i >> 2) * 0xFFu,
                    4);
            Picture expected;
            for (int y = 0; y < height; y++) {
                file.pixels += format.packedRow(width, topDown ? y : height - 1 - y);
                for (int x = 0; x < width; x++)
                    for (int i = 0; i < 4; i++)
                        expected.append(i == 3 && format.masks.size() < 4
                                            ? 255
                                            : (format.channels(x, y) >> i & 1) * 255);
            }
            EXPECT_EQ(decoded(file.bytes()), expected) << format.what << " top down: " << topDown;
        }
    }
}

TEST(ZrBitmap, SpreadsAChannelOfAnyWidthOverAByte)
{
    const struct {
        int bits;
        std::uint32_t masks[4], pixel;
        Picture picture;
    } rows[] = {
        {16, {0xF800, 0x7E0, 0x1F, 0xF800}, 0x8401, {131, 129, 8, 131}},
        {32, {0xFF, 0xFF00, 0xFF0000, 0xFF000000}, 0x80030201, {1, 2, 3, 0x80}},
        {32, {0x3FF00000, 0xFFC00, 0x3FF, 0xC0000000}, 0x600003FF, {127, 0, 255, 85}},
    };
    for (const auto &row : rows) {
        BitmapFile file{1, 1, row.bits, AlphaMasks};
        for (const std::uint32_t mask : row.masks)
            put(file.masks, mask, 4);
        put(file.pixels, row.pixel, 4);
        EXPECT_EQ(decoded(file.bytes()), row.picture) << std::hex << row.pixel;
    }
}

TEST(ZrBitmap, FollowsRunLengthCodes)
{
    struct Case {
        const char *what;
        int bits;
        std::string codes;
        const char *indices; // top row first; none when the file is refused
    };
    const Case cases[] = {
        {"runs", 8, std::string("\3\1\2\2\0\0\5\3\0\1", 10),
         "33333"
         "11122"},
        {"pixels", 8, std::string("\0\3\1\2\3\0\2\4\0\0\5\1\0\1", 14),
         "11111"
         "12344"},
        {"jump", 8, std::string("\1\1\0\2\2\1\2\3\0\1", 10),
         "00033"
         "10000"},
        {"nibbles", 4, std::string("\5\x12\0\0\0\5\x12\x34\x50\0\0\1", 12),
         "12345"
         "12121"},
        {"out of the picture", 8, std::string("\xFF\1\0\0\xFF\2\0\2\xFF\xFF\4\4\0\1", 14),
         "22222"
         "11111"},
        {"cut short", 8, std::string("\5\1\0\0\0\5\1\2", 8), ""},
    };
    for (const Case &c : cases) {
        BitmapFile file{5, 2, c.bits, c.bits == 8 ? Runs8 : Runs4};
        for (std::uint32_t i = 0; i < 16; i++)
            put(file.colours, i, 4); // told apart by their blue
        file.pixels = c.codes;
        const Picture picture = decoded(file.bytes());
        std::string indices;
        for (int i = 2; i < picture.size(); i += 4)
            indices += char('0' + picture.at(i));
        EXPECT_EQ(indices, c.indices) << c.what;
    }
}

TEST(ZrBitmap, RefusesWhatItCannotTrust)
{
    const struct {
        const char *what;
        int width, height, bits;
        std::uint32_t compression;
    } rows[] = {
        {"no width", 0, 3, 24, Plain},
        {"negative width", -5, 3, 24, Plain},
        {"no height", 5, 0, 24, Plain},
        {"the height that has no opposite", 5, INT_MIN, 24, Plain},
        {"too wide", 8193, 3, 24, Plain},
        {"rows that are not there", 5, 8192, 24, Plain},
        {"too many pixels", 8192, 4097, 24, Plain},
        {"unknown depth", 5, 3, 7, Plain},
        {"a coding of another kind", 5, 3, 24, 4},
        {"runs of the wrong depth", 5, 3, 24, Runs8},
        {"runs from the top", 5, -3, 8, Runs8},
    };
    for (const auto &row : rows) {
        BitmapFile file{row.width, row.height, row.bits, row.compression};
        file.pixels.resize(100000);
        EXPECT_TRUE(decoded(file.bytes()).isEmpty()) << row.what;
    }
    EXPECT_FALSE(ZrBitmap(nullptr).isValid());
}

// Cut and garbled anywhere, a file gives a picture or none, and never anything else.
TEST(ZrBitmap, SurvivesGarbledFiles)
{
    std::mt19937 random = seededRandom();
    std::vector<std::string> files;
    for (const auto &entry : std::filesystem::directory_iterator(ZR_SOURCE_DIR "/tests/fuzz/bmp")) {
        std::ifstream file(entry.path(), std::ios::binary);
        files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        EXPECT_FALSE(decoded(files.back()).isEmpty()) << entry.path();
    }
    ASSERT_FALSE(files.empty());
    for (int round = 0; round < 4000; round++) {
        std::string bytes = files[std::size_t(pick(random, 0, int(files.size()) - 1))];
        for (int n = pick(random, 0, 4); n > 0; n--)
            bytes[std::size_t(pick(random, 0, int(bytes.size()) - 1))] = char(pick(random, 0, 255));
        bytes.resize(std::size_t(pick(random, 1, int(bytes.size()))));
        decoded(bytes, 1 << 20);
    }
}
