#include "support/random_seed.h"

#include <zrbitmap>

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

namespace
{

struct Close {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

File opened(const std::string &bytes)
{
    return File(fmemopen(const_cast<char *>(bytes.data()), bytes.size(), "rb"));
}

void put(std::string &bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; i++)
        bytes += char(value >> (8 * i));
}

// A bitmap file, its fields as they are in the file.
struct BitmapFile {
    int width = 5, height = 3;
    int bits = 24;
    std::uint32_t compression = 0;
    std::string masks;   // behind the header
    std::string colours; // four bytes each
    std::string pixels;

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

struct Rgba {
    int red, green, blue, alpha;
    bool operator==(const Rgba &o) const
    {
        return red == o.red && green == o.green && blue == o.blue && alpha == o.alpha;
    }
};

Rgba at(const ZrVector<std::uint8_t> &picture, int width, int x, int y)
{
    const std::uint8_t *p = picture.constData() + (y * width + x) * 4;
    return {p[0], p[1], p[2], p[3]};
}

// The picture of the tests: what stands at a place, in steps that every format can hold exactly.
Rgba expected(int x, int y)
{
    return {(x + y) % 2 ? 255 : 0, x % 3 == 0 ? 255 : 0, y == 1 ? 255 : 0, 255};
}

int indexOf(int x, int y) // into a table that has the colours by their three bits
{
    const Rgba c = expected(x, y);
    return (c.red ? 1 : 0) | (c.green ? 2 : 0) | (c.blue ? 4 : 0);
}

std::string colourTable(int count)
{
    std::string table;
    for (int i = 0; i < count; i++)
        put(table, (i & 1 ? 0xFF0000u : 0) | (i & 2 ? 0xFF00u : 0) | (i & 4 ? 0xFFu : 0), 4);
    return table;
}

// Packs a row of the picture as a format wants it.
std::string packedRow(const BitmapFile &file, int y)
{
    std::string row;
    std::uint32_t gathered = 0;
    for (int x = 0; x < file.width; x++) {
        const Rgba c = expected(x, y);
        const auto spread = [&](int v, std::uint32_t mask) { return v ? mask : 0u; };
        if (file.bits <= 8) {
            gathered =
                gathered << file.bits | std::uint32_t(indexOf(x, y) & ((1 << file.bits) - 1));
            if ((x + 1) * file.bits % 8 == 0 || x + 1 == file.width) {
                put(row, gathered << (8 - ((x + 1) * file.bits - 1) % 8 - 1), 1);
                gathered = 0;
            }
        } else if (file.bits == 16 && file.masks.empty()) {
            put(row, spread(c.red, 0x7C00) | spread(c.green, 0x3E0) | spread(c.blue, 0x1F), 2);
        } else if (file.bits == 16) {
            put(row, spread(c.red, 0xF800) | spread(c.green, 0x7E0) | spread(c.blue, 0x1F), 2);
        } else {
            put(row, spread(c.red, 0xFF0000) | spread(c.green, 0xFF00) | spread(c.blue, 0xFF),
                file.bits / 8);
        }
    }
    row.resize((row.size() + 3) / 4 * 4);
    return row;
}

} // namespace

TEST(ZrBitmap, ReadsEveryDepthInBothRowOrders)
{
    std::string masks565;
    for (std::uint32_t mask : {0xF800u, 0x7E0u, 0x1Fu})
        put(masks565, mask, 4);
    for (const int bits : {4, 8, 16, 24, 32, 565}) {
        for (const bool topDown : {false, true}) {
            BitmapFile file;
            file.bits = bits == 565 ? 16 : bits;
            if (bits == 565) {
                file.compression = 3;
                file.masks = masks565;
            }
            if (bits <= 8)
                file.colours = colourTable(8);
            for (int y = 0; y < file.height; y++)
                file.pixels += packedRow(file, topDown ? y : file.height - 1 - y);
            if (topDown)
                file.height = -file.height;
            const std::string bytes = file.bytes();
            const File stream = opened(bytes);
            const ZrBitmap bitmap(stream.get());
            ZrVector<std::uint8_t> picture;
            ASSERT_TRUE(bitmap.decode(picture)) << bits;
            ASSERT_EQ(bitmap.width(), 5);
            ASSERT_EQ(bitmap.height(), 3);
            for (int y = 0; y < 3; y++)
                for (int x = 0; x < 5; x++)
                    EXPECT_EQ(at(picture, 5, x, y), expected(x, y)) << bits << topDown << x << y;
        }
    }
}

TEST(ZrBitmap, ReadsOneBitAndAlphaMasks)
{
    BitmapFile one;
    one.width = 10;
    one.height = 1;
    one.bits = 1;
    one.colours = colourTable(2);
    one.pixels = std::string("\xA0\x40\0\0", 4);
    const std::string oneBytes = one.bytes();
    const File oneStream = opened(oneBytes);
    ZrVector<std::uint8_t> picture;
    ASSERT_TRUE(ZrBitmap(oneStream.get()).decode(picture));
    for (int x = 0; x < 10; x++)
        EXPECT_EQ(at(picture, 10, x, 0).red, x == 0 || x == 2 || x == 9 ? 255 : 0) << x;

    BitmapFile four;
    four.width = four.height = 1;
    four.bits = 32;
    four.compression = 6;
    for (std::uint32_t mask : {0xFFu, 0xFF00u, 0xFF0000u, 0xFF000000u})
        put(four.masks, mask, 4);
    put(four.pixels, 0x80030201, 4);
    const std::string fourBytes = four.bytes();
    const File fourStream = opened(fourBytes);
    ASSERT_TRUE(ZrBitmap(fourStream.get()).decode(picture));
    EXPECT_EQ(at(picture, 1, 0, 0), (Rgba{1, 2, 3, 0x80}));
}

TEST(ZrBitmap, FollowsRunLengthCodes)
{
    struct Case {
        const char *what;
        int bits;
        std::string codes;
        const char *indices; // top row first
        bool whole;
    };
    const Case cases[] = {
        {"runs", 8, std::string("\3\1\2\2\0\0\5\3\0\1", 10),
         "33333"
         "11122",
         true},
        {"pixels", 8, std::string("\0\3\1\2\3\0\2\4\0\0\5\1\0\1", 14),
         "11111"
         "12344",
         true},
        {"jump", 8, std::string("\1\1\0\2\2\1\2\3\0\1", 10),
         "00033"
         "10000",
         true},
        {"nibbles", 4, std::string("\5\x12\0\0\0\5\x12\x34\x50\0\0\1", 12),
         "12345"
         "12121",
         true},
        {"out of the picture", 8, std::string("\xFF\1\0\0\xFF\2\0\2\xFF\xFF\4\4\0\1", 14),
         "22222"
         "11111",
         true},
        {"cut short", 8, std::string("\5\1\0\0\0\5\1\2", 8), nullptr, false},
    };
    for (const Case &c : cases) {
        BitmapFile file;
        file.height = 2;
        file.bits = c.bits;
        file.compression = c.bits == 8 ? 1 : 2;
        for (int i = 0; i < 16; i++)
            put(file.colours, std::uint32_t(i), 4); // told apart by their blue
        file.pixels = c.codes;
        const std::string bytes = file.bytes();
        const File stream = opened(bytes);
        ZrVector<std::uint8_t> picture;
        ASSERT_EQ(ZrBitmap(stream.get()).decode(picture), c.whole) << c.what;
        for (int i = 0; c.whole && i < 10; i++)
            EXPECT_EQ(at(picture, 5, i % 5, i / 5).blue, c.indices[i] - '0') << c.what << i;
    }
}

TEST(ZrBitmap, RefusesWhatItCannotTrust)
{
    const auto refused = [](BitmapFile file, const char *what) {
        if (file.pixels.empty())
            file.pixels.resize(100000);
        const std::string bytes = file.bytes();
        const File stream = opened(bytes);
        ZrVector<std::uint8_t> picture(3);
        const ZrBitmap bitmap(stream.get());
        EXPECT_FALSE(bitmap.decode(picture)) << what;
        EXPECT_TRUE(picture.isEmpty()) << what;
    };
    const auto with = [](int BitmapFile::*field, int value) {
        BitmapFile file;
        file.*field = value;
        return file;
    };
    refused(with(&BitmapFile::width, 0), "no width");
    refused(with(&BitmapFile::width, -5), "negative width");
    refused(with(&BitmapFile::height, 0), "no height");
    refused(with(&BitmapFile::height, INT_MIN), "the height that has no opposite");
    refused(with(&BitmapFile::width, 8193), "too wide");
    refused(with(&BitmapFile::height, 8192), "rows that are not there");
    refused(with(&BitmapFile::bits, 7), "unknown depth");
    BitmapFile file = with(&BitmapFile::width, 8192);
    file.height = 4097;
    refused(file, "too many pixels");
    file = BitmapFile();
    file.compression = 4;
    refused(file, "a coding of another kind");
    file.compression = 1;
    refused(file, "runs of the wrong depth");
    file = BitmapFile();
    file.bits = 8;
    file.compression = 1;
    file.height = -3;
    refused(file, "runs from the top");
    EXPECT_FALSE(ZrBitmap(nullptr).isValid());
}

// Cut and garbled anywhere, a file gives a picture or none, and never anything else.
TEST(ZrBitmap, SurvivesGarbledFiles)
{
    std::mt19937 random = seededRandom();
    std::vector<std::string> files;
    for (const auto &entry : std::filesystem::directory_iterator(ZR_SOURCE_DIR "/tests/fuzz/bmp")) {
        const File file(std::fopen(entry.path().c_str(), "rb"));
        std::string bytes(std::filesystem::file_size(entry.path()), '\0');
        ASSERT_EQ(std::fread(bytes.data(), 1, bytes.size(), file.get()), bytes.size());
        files.push_back(bytes);
    }
    ASSERT_FALSE(files.empty());
    for (int round = 0; round < 4000; round++) {
        std::string bytes = files[std::size_t(pick(random, 0, int(files.size()) - 1))];
        for (int n = round < int(files.size()) ? 0 : pick(random, 0, 4); n > 0; n--)
            bytes[std::size_t(pick(random, 0, int(bytes.size()) - 1))] = char(pick(random, 0, 255));
        bytes.resize(std::size_t(pick(random, 1, int(bytes.size()))));
        const File stream = opened(bytes);
        const ZrBitmap bitmap(stream.get());
        ZrVector<std::uint8_t> picture;
        if (bitmap.isValid() && bitmap.width() * bitmap.height() < 1 << 20 &&
            bitmap.decode(picture))
            ASSERT_EQ(picture.size(), bitmap.width() * bitmap.height() * 4);
        else
            ASSERT_TRUE(picture.isEmpty());
    }
}
