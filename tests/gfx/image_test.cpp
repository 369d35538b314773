#include "gfx/encode.h"

#include <zrcanvas>
#include <zrimage>
#include <zrpainter>
#include <zrpixmap>
#include <zrstring>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
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

TEST(Image, PngOfEveryKind)
{
    struct Colour {
        int type;
        std::vector<int> bits;
        bool mayHaveTransparency;
    };
    const Colour colours[] = {{PNG_COLOR_TYPE_GRAY, {1, 2, 4, 8, 16}, true},
                              {PNG_COLOR_TYPE_PALETTE, {1, 2, 4}, true},
                              {PNG_COLOR_TYPE_RGB, {8, 16}, true},
                              {PNG_COLOR_TYPE_GRAY_ALPHA, {8, 16}, false},
                              {PNG_COLOR_TYPE_RGB_ALPHA, {8, 16}, false}};
    for (const Colour &colour : colours) {
        for (int bits : colour.bits) {
            for (int form = 0; form < (colour.mayHaveTransparency ? 4 : 2); ++form) {
                SCOPED_TRACE(testing::Message()
                             << "type " << colour.type << " bits " << bits << " form " << form);
                const EncodedPicture picture =
                    encodePng(PngKind{colour.type, bits, form % 2 == 1, form >= 2});
                const ZrImage image = decoded(picture.file);
                ASSERT_EQ(image.width(), picture.width);
                ASSERT_EQ(image.height(), picture.height);
                EXPECT_EQ(
                    std::memcmp(image.bits(), picture.pixels.data(), picture.pixels.size() * 4), 0);
                EXPECT_EQ(image.canvas()->isOpaque(),
                          std::all_of(picture.pixels.begin(), picture.pixels.end(),
                                      [](uint32_t p) { return p >> 24 == 255; }));
            }
        }
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

TEST(Image, JpegOfInkColoursIsRefused)
{
    testing::internal::CaptureStderr();
    EXPECT_TRUE(decoded(encodeJpeg(JpegColours::Cmyk, JpegScans::Baseline, 8, 8, 10)).isNull());
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

TEST(Image, BmpInBothRowOrders)
{
    for (bool topDown : {false, true}) {
        std::string file("BM", 2);
        auto put = [&file](uint32_t value, int bytes) {
            for (int i = 0; i < bytes; ++i)
                file += char(value >> 8 * i);
        };
        put(70, 4), put(0, 4), put(54, 4);
        put(40, 4), put(2, 4), put(topDown ? uint32_t(-2) : 2, 4), put(1, 2), put(24, 2);
        put(0, 4), put(16, 4), put(0, 4), put(0, 4), put(0, 4), put(0, 4);
        file += std::string("\xff\x00\x00\x00\xff\x00\x00\x00", 8); // blue, green
        file += std::string("\x00\x00\xff\xff\xff\xff\x00\x00", 8); // red, white
        const ZrImage image = decoded(file);
        ASSERT_EQ(image.width(), 2);
        ASSERT_EQ(image.height(), 2);
        EXPECT_EQ(pixelAt(image, 0, topDown ? 0 : 1), 0xffff0000u);
        EXPECT_EQ(pixelAt(image, 1, topDown ? 1 : 0), 0xffffffffu);
    }
}

TEST(Image, FalseClaimsAllocateNothing)
{
    // Signature, a header chunk, and two bytes: 35 in all.
    std::string png = encodePng(PngKind{PNG_COLOR_TYPE_RGB, 8, false, false}).file.substr(0, 35);
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
    int seeds = 0;
    for (const char *format : {"png", "jpeg", "bmp"}) {
        for (const auto &entry : std::filesystem::directory_iterator(
                 std::string(ZR_SOURCE_DIR "/tests/fuzz/") + format)) {
            std::ifstream file(entry.path(), std::ios::binary);
            std::string bytes((std::istreambuf_iterator<char>(file)), {});
            EXPECT_EQ(decoded(bytes).isNull(), entry.path().filename() == "cmyk") << entry.path();
            for (size_t at = 0; at < bytes.size(); ++at) {
                bytes[at] = char(~bytes[at]);
                const ZrImage image = decoded(bytes);
                EXPECT_LE(int64_t(image.width()) * image.height(), ZrImage::maxPixels);
                bytes[at] = char(~bytes[at]);
            }
            ++seeds;
        }
    }
    EXPECT_GT(seeds, 12);
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

TEST(Image, FilesAreReadLikeBuffers)
{
    const std::string path = testing::TempDir() + "zr_image_" + std::to_string(getpid()) + ".png";
    const EncodedPicture picture = encodePng(PngKind{PNG_COLOR_TYPE_RGB_ALPHA, 8, false, false});
    std::ofstream(path, std::ios::binary) << picture.file;
    const ZrPixmap image{ZrString(path.c_str())};
    std::remove(path.c_str());
    ASSERT_EQ(image.width(), picture.width);
    EXPECT_EQ(std::memcmp(image.bits(), picture.pixels.data(), picture.pixels.size() * 4), 0);
}

// A maker's mistake: what a file holds decides, not what it is called.
TEST(Image, WrongFilesUnderTheRightName)
{
    const std::string jpeg = encodeJpeg(JpegColours::Rgb, JpegScans::Baseline, 16, 12, 9);
    std::string huge = encodePng(PngKind{PNG_COLOR_TYPE_RGB, 8, false, false}).file;
    putBigEndian(huge, 16, 20000);
    putBigEndian(huge, 20, 20000);
    const struct {
        const char *what;
        std::string bytes;
        int width;
    } files[] = {
        {"a JPEG", jpeg, 16},
        {"nothing", "", 0},
        {"a text", "; Colours\n[ZrLabel]\n", 0},
        {"a signature", huge.substr(0, 8), 0},
        {"400 megapixels", huge, 0},
    };
    const std::string path = testing::TempDir() + "zr_wrong_" + std::to_string(getpid()) + ".png";
    testing::internal::CaptureStderr();
    for (const auto &file : files) {
        std::ofstream(path, std::ios::binary) << file.bytes;
        const ZrPixmap image{ZrString(path.c_str())};
        EXPECT_EQ(image.width(), file.width) << file.what;
        EXPECT_EQ(image.isNull(), file.width == 0) << file.what;
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
