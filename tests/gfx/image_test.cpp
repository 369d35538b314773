#include "gfx/encode.h"

#include <zrbitmap>
#include <zrcanvas>
#include <zrimage>
#include <zrpainter>
#include <zrpixmap>
#include <zrstring>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <png.h>
#include <random>
#include <unistd.h>

namespace
{

ZrImage decoded(const std::string &file)
{
    return ZrImage(file.data(), int(file.size()));
}

uint32_t pixelAt(const ZrImage &image, int x, int y)
{
    uint32_t pixel;
    std::memcpy(&pixel, image.bits() + 4 * (y * image.width() + x), 4);
    return pixel;
}

void putBigEndian(std::string &file, size_t at, uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        file[at + size_t(i)] = char(value >> (24 - 8 * i));
}

std::map<std::string, std::string> seedsOf(const char *format)
{
    std::map<std::string, std::string> seeds;
    for (const auto &entry :
         std::filesystem::directory_iterator(std::string(ZR_SOURCE_DIR "/tests/fuzz/") + format)) {
        std::ifstream file(entry.path(), std::ios::binary);
        seeds[entry.path().filename()] = std::string((std::istreambuf_iterator<char>(file)), {});
    }
    return seeds;
}

// A picture whose red, green, blue and alpha all vary.
std::string smallPng()
{
    return seedsOf("png").at("rgba8_interlaced");
}

// Where the header of a PNG file holds the bits of a sample and the type of colour.
constexpr size_t kPngBits = 24, kPngColourType = 25;

// The pixels of the seeds: sample c of (x, y) runs through the range of its bits, and what is
// transparent besides is sample 0.
uint32_t seedPixel(int type, int bits, bool hasTransparency, int x, int y)
{
    unsigned samples[4];
    for (int c = 0; c < 4; ++c)
        samples[c] = unsigned(x * 37 + y * 101 + c * 59) * 2654435761u >> (32 - bits);
    const bool hasColour = type & PNG_COLOR_MASK_COLOR, hasAlpha = type & PNG_COLOR_MASK_ALPHA;
    bool isClear = hasTransparency && samples[0] == 0;
    if (type == PNG_COLOR_TYPE_PALETTE) {
        const unsigned i = samples[0];
        return i * 16 | (255 - i * 16) << 8 | i * 7 << 16 | (isClear ? 0 : 255u << 24);
    }
    const auto eight = [&](int c) {
        return bits == 16 ? samples[c] >> 8 : samples[c] * 255 / ((1u << bits) - 1);
    };
    isClear = isClear && (!hasColour || (samples[1] == 0 && samples[2] == 0));
    const unsigned alpha = hasAlpha ? eight(hasColour ? 3 : 1) : isClear ? 0 : 255;
    return eight(0) | eight(hasColour ? 1 : 0) << 8 | eight(hasColour ? 2 : 0) << 16 | alpha << 24;
}

// Among the fuzzer's seeds is every colour type at every depth, with and without transparency.
TEST(Image, PngOfEveryKind)
{
    for (const auto &[name, file] : seedsOf("png")) {
        const ZrImage image = decoded(file);
        ASSERT_EQ(image.width(), 13) << name;
        ASSERT_EQ(image.height(), 9) << name;
        const bool hasTransparency = name.find("trns") != name.npos;
        bool isOpaque = true;
        for (int i = 0; i < 13 * 9; ++i) {
            const uint32_t expected =
                seedPixel(file[kPngColourType], file[kPngBits], hasTransparency, i % 13, i / 13);
            ASSERT_EQ(pixelAt(image, i % 13, i / 13), expected) << name << " pixel " << i;
            isOpaque = isOpaque && expected >> 24 == 255;
        }
        EXPECT_EQ(image.canvas()->isOpaque(), isOpaque) << name;
    }
}

TEST(Image, JpegGreyColourAndProgressive)
{
    for (JpegColours colours : {JpegColours::Grey, JpegColours::Rgb}) {
        for (JpegScans scans : {JpegScans::Baseline, JpegScans::Progressive}) {
            const ZrImage image = decoded(encodeJpeg(colours, scans, 37, 21, 200));
            ASSERT_EQ(image.width(), 37);
            ASSERT_EQ(image.height(), 21);
            EXPECT_TRUE(image.canvas()->isOpaque());
            for (int shift = 0; shift < 24; shift += 8)
                EXPECT_NEAR(int(pixelAt(image, 36, 20) >> shift & 255), 200, 2);
        }
    }
}

TEST(Image, BmpIsReadByTheBitmap)
{
    for (const auto &[name, bytes] : seedsOf("bmp")) {
        std::FILE *file = fmemopen(const_cast<char *>(bytes.data()), bytes.size(), "rb");
        const ZrBitmap bitmap(file);
        ZrVector<uint8_t> pixels;
        ASSERT_TRUE(bitmap.decode(pixels)) << name;
        std::fclose(file);
        const ZrImage image = decoded(bytes);
        ASSERT_EQ(image.width(), bitmap.width()) << name;
        ASSERT_EQ(image.height(), bitmap.height()) << name;
        EXPECT_EQ(std::memcmp(image.bits(), pixels.constData(), size_t(pixels.size())), 0) << name;
    }
}

TEST(Image, FalseClaimsAllocateNothing)
{
    // Signature, a header chunk, and two bytes: 35 in all.
    std::string png = smallPng().substr(0, 35);
    std::string jpeg = encodeJpeg(JpegColours::Rgb, JpegScans::Baseline, 16, 16, 9);
    const size_t frame = jpeg.find("\xff\xc0");
    ASSERT_NE(frame, std::string::npos);
    testing::internal::CaptureStderr();
    for (uint32_t side : {0u, 8193u, 65000u, 0x7fffffffu}) {
        putBigEndian(png, 16, side);
        putBigEndian(png, 20, side);
        EXPECT_TRUE(decoded(png).isNull());
        jpeg[frame + 5] = jpeg[frame + 7] = char(side >> 8);
        jpeg[frame + 6] = jpeg[frame + 8] = char(side);
        if (side < 0x10000) {
            EXPECT_TRUE(decoded(jpeg).isNull()) << side;
        }
    }
    testing::internal::GetCapturedStderr();
    EXPECT_TRUE(ZrImage(8193, 1).isNull());
    EXPECT_TRUE(ZrImage(8192, 4097).isNull());
    EXPECT_FALSE(ZrImage(8192, 1).isNull());
}

TEST(Image, TruncatedFilesGiveWhatWasRead)
{
    const int side = 128;
    std::vector<uint32_t> pixels;
    std::mt19937 engine(5);
    for (int i = 0; i < side * side; ++i)
        pixels.push_back(engine() | 0xff000000u);
    const std::string png = encodePng(pixels, side, side);
    const std::string jpeg = encodeJpeg(JpegColours::Rgb, JpegScans::Baseline, side, side, 77);
    testing::internal::CaptureStderr();
    const ZrImage half = decoded(png.substr(0, png.size() / 2));
    ASSERT_EQ(half.height(), side);
    EXPECT_EQ(pixelAt(half, 5, 3), pixels[3 * side + 5]);
    EXPECT_EQ(pixelAt(half, 5, side - 1), 0u);
    EXPECT_FALSE(half.canvas()->isOpaque());

    // Cutting anywhere gives a picture of the right size, or none.
    for (const std::string &file : {png, jpeg}) {
        for (size_t length = 0; length < file.size(); length += 1 + length / 16) {
            const ZrImage image = decoded(file.substr(0, length));
            EXPECT_TRUE(image.isNull() || image.width() == side) << length;
        }
    }
    testing::internal::GetCapturedStderr();
}

// The fuzzers' seeds decode, each in its way, also with any one byte turned.
TEST(Image, FuzzSeedsAndTheirDamage)
{
    testing::internal::CaptureStderr();
    for (const char *format : {"png", "jpeg", "bmp"}) {
        for (auto [name, bytes] : seedsOf(format)) {
            EXPECT_EQ(decoded(bytes).isNull(), name == "cmyk") << name;
            for (char &byte : bytes) {
                byte = char(~byte);
                const ZrImage image = decoded(bytes);
                EXPECT_LE(int64_t(image.width()) * image.height(), ZrImage::maxPixels);
                byte = char(~byte);
            }
        }
    }
    testing::internal::GetCapturedStderr();
}

TEST(Image, MessagesOfFilesThatCannotBeOpened)
{
    testing::internal::CaptureStdout();
    EXPECT_TRUE(ZrImage("/no/such.png").isNull());
    EXPECT_TRUE(ZrImage(ZrString("/no/such.png")).isNull());
    EXPECT_TRUE(ZrImage(nullptr, 12).isNull());
    EXPECT_TRUE(ZrImage("x", -1).isNull());
    const std::string printed = testing::internal::GetCapturedStdout();
    const std::string missing =
        "ZrImage(): file(/no/such.png) open failed, No such file or directory !!!\n";
    EXPECT_EQ(
        printed.rfind(missing + missing + "ZrImage(): buffer((nil), length=12) open failed, ", 0),
        0u)
        << printed;
    EXPECT_TRUE(ZrImage("PNG", 3).isNull()) << "too short to tell";
    EXPECT_TRUE(ZrImage("GIF89a..", 8).isNull());
}

// A maker's mistake: what a file holds decides, not what it is called.
TEST(Image, FilesAreReadByWhatTheyHold)
{
    std::string huge = smallPng();
    putBigEndian(huge, 16, 20000);
    putBigEndian(huge, 20, 20000);
    const struct {
        const char *what;
        std::string bytes;
        int width;
    } files[] = {
        {"a PNG", smallPng(), 13},
        {"a JPEG", encodeJpeg(JpegColours::Rgb, JpegScans::Baseline, 16, 12, 9), 16},
        {"nothing", "", 0},
        {"a text", "; Colours\n[ZrLabel]\n", 0},
        {"a signature", huge.substr(0, 8), 0},
        {"400 megapixels", huge, 0},
    };
    const std::string path = testing::TempDir() + "zr_image_" + std::to_string(getpid()) + ".png";
    testing::internal::CaptureStderr();
    for (const auto &file : files) {
        std::ofstream(path, std::ios::binary) << file.bytes;
        const ZrPixmap image{ZrString(path.c_str())};
        ASSERT_EQ(image.width(), file.width) << file.what;
        ASSERT_EQ(image.isNull(), file.width == 0) << file.what;
        if (file.width) {
            const size_t size = size_t(image.width() * image.height()) * 4;
            EXPECT_EQ(std::memcmp(image.bits(), decoded(file.bytes).bits(), size), 0) << file.what;
        }
    }
    std::remove(path.c_str());
    testing::internal::GetCapturedStderr();
}

TEST(Image, CopiesShareUntilOneIsWritten)
{
    const ZrImage original(3, 2, ZrColor(10, 20, 30));
    ZrImage copy = original, painted = original;
    EXPECT_TRUE(copy.isSharedWith(original));
    copy.bits()[0] = 99;
    EXPECT_FALSE(copy.isSharedWith(original));
    EXPECT_EQ(original.bits()[0], 10);
    ZrPainter(&painted).fillRect(ZrRect(0, 0, 3, 2), ZrBrush(ZrColor(1, 2, 3)));
    EXPECT_EQ(painted.bits()[0], 1);
    EXPECT_EQ(original.bits()[0], 10);
    copy = original;
    EXPECT_TRUE(copy.isSharedWith(original));
    copy = ZrImage();
    EXPECT_TRUE(copy.isNull());
    EXPECT_EQ(copy.width(), 0);
    EXPECT_FALSE(ZrPainter(&copy).isActive());
}

} // namespace
