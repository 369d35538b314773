#include "gfx/reference_canvas.h"

#include "gfx/pixelkernels.h"

#include <zrcanvas>
#include <zrfbcanvas>

#include <cstring>
#include <memory>
#include <random>

namespace
{

constexpr int kWidth = 96, kHeight = 72;
constexpr unsigned kSeed = 20261121;

class Random
{
public:
    explicit Random(unsigned seed) : engine_(seed) {}
    int in(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    bool oneIn(int n) { return in(1, n) == 1; }
    float coordinate() { return float(in(-1280, 7680)) / (oneIn(2) ? 64.0f : 1.0f) / 1.5f; }
    uint32_t word() { return uint32_t(engine_()); }
    // The alphas at which the formulas turn are met often.
    uint32_t argb()
    {
        const uint32_t turning[] = {0, 1, 128, 254, 255};
        const uint32_t alpha = oneIn(3) ? word() & 255 : turning[in(0, 4)];
        return (word() & 0xffffff) | alpha << 24;
    }

private:
    std::mt19937 engine_;
};

ZrImage randomImage(Random &random)
{
    ZrImage image(random.in(1, 40), random.in(1, 40));
    const int kind = random.in(0, 2);
    for (int i = 0; i < image.width() * image.height(); ++i) {
        const uint32_t alpha = kind == 0 ? 255 : kind == 1 ? (i / 19 % 3 ? 0 : 255) : random.word();
        const uint32_t rgba = (random.word() & 0xffffff) | alpha << 24;
        std::memcpy(image.bits() + 4 * i, &rgba, 4);
    }
    return image;
}

struct Glyphs {
    std::vector<std::vector<uint8_t>> buffers;
    std::vector<GlyphBitmap> bitmaps;
    ZrVector<const GlyphBitmap *> list;

    explicit Glyphs(Random &random) : buffers(size_t(random.in(1, 8))), bitmaps(buffers.size())
    {
        for (size_t i = 0; i < bitmaps.size(); ++i) {
            GlyphBitmap &bitmap = bitmaps[i];
            bitmap.width = uint16_t(random.in(0, 36));
            bitmap.rows = uint16_t(random.in(0, 20));
            bitmap.pitch = uint16_t((bitmap.width + 15) / 16 * 16);
            bitmap.left = int16_t(random.in(-3, 3));
            bitmap.top = int16_t(random.in(0, 20));
            bitmap.descent = int16_t(random.in(0, 5));
            bitmap.advance = int16_t(random.in(0, 20));
            buffers[i].resize(size_t(bitmap.pitch) * bitmap.rows + 16);
            for (int y = 0; y < bitmap.rows; ++y)
                for (int x = 0; x < bitmap.width; ++x)
                    buffers[i][size_t(y * bitmap.pitch + x)] =
                        uint8_t(random.oneIn(3)   ? random.word()
                                : random.oneIn(2) ? 255
                                                  : 0);
            bitmap.buffer = buffers[i].data();
            list.append(&bitmap);
        }
    }
};

// One canvas under test with its reference; both get every call.
class Pair
{
public:
    Pair(ReferenceCanvas::Format format, Random &random) : reference_(format, kWidth, kHeight)
    {
        if (format == ReferenceCanvas::Format::Framebuffer) {
            // The rows of a framebuffer may be longer than the picture.
            ZrFbCanvas::setGeometry(kWidth, kHeight, (kWidth + random.in(0, 1) * 16) * 2);
            auto canvas = std::make_unique<ZrFbCanvas>();
            bytes_ = reinterpret_cast<uint8_t *>(canvas->data());
            pixelSize_ = 2;
            lineLength_ = ZrFbCanvas::lineLength();
            canvas_ = std::move(canvas);
        } else {
            auto canvas = std::make_unique<ZrCanvas>(kWidth, kHeight, ZrColor(), ZrRegion());
            bytes_ = canvas->data();
            pixelSize_ = 4;
            lineLength_ = kWidth * 4;
            canvas_ = std::move(canvas);
        }
        for (int i = 0; i < kWidth * kHeight; ++i) {
            const uint32_t word = random.word();
            std::memcpy(pixel(i), &word, pixelSize_);
            std::memcpy(&reference_.pixels[size_t(i)], &word, pixelSize_);
        }
        canvas_->setState(&reference_.state);
    }

    void randomCall(Random &random);
    void compare() const
    {
        const ZrCanvasState::Clip &clip = reference_.state.clip;
        for (int i = 0; i < kWidth * kHeight; ++i)
            ASSERT_EQ(std::memcmp(pixel(i), &reference_.pixels[size_t(i)], pixelSize_), 0)
                << lastCall_ << " at " << i % kWidth << ", " << i / kWidth << " clip " << clip.left
                << " " << clip.top << " " << clip.right << " " << clip.bottom;
    }

private:
    uint8_t *pixel(int i) const
    {
        return bytes_ + size_t(i / kWidth) * lineLength_ + size_t(i % kWidth) * pixelSize_;
    }
    template <typename Call>
    void both(const char *name, Call call)
    {
        lastCall_ = name;
        call(*canvas_);
        call(reference_);
    }
    void randomState(Random &random);
    void lineCall(Random &random);
    void roundCall(Random &random);
    void areaCall(Random &random);

    std::unique_ptr<ZrAbstractCanvas> canvas_;
    uint8_t *bytes_;
    size_t pixelSize_, lineLength_;
    ReferenceCanvas reference_;
    const char *lastCall_ = "";
};

void Pair::randomState(Random &random)
{
    ZrCanvasState &state = reference_.state;
    state.penWidth = random.oneIn(2) ? 1 : random.in(0, 6);
    state.penColor = random.argb();
    state.brushColor = random.argb();
    state.letterSpacing = random.in(-1, 3);
    state.antialias = random.oneIn(2);
    state.font = {uint8_t(random.in(0, 30)), uint8_t(random.in(0, 15))};
    const int left = random.in(-10, kWidth), top = random.in(-10, kHeight);
    state.clip = {left, top, left + random.in(-2, kWidth), top + random.in(-2, kHeight)};
    if (random.oneIn(3))
        state.clip = {0, 0, kWidth - 1, kHeight - 1};
}

void Pair::lineCall(Random &random)
{
    const float x1 = random.coordinate(), y1 = random.coordinate();
    const bool straight = random.oneIn(4);
    const float x2 = straight && random.oneIn(2) ? x1 : random.coordinate();
    const float y2 = straight ? y1 : random.coordinate();
    const uint32_t colour = reference_.state.penColor;
    switch (random.in(0, 2)) {
    case 0:
        return both("drawLine", [&](auto &c) { c.drawLine(x1, y1, x2, y2, colour); });
    case 1:
        return both("drawSmoothLine", [&](auto &c) { c.drawSmoothLine(x1, y1, x2, y2, colour); });
    default:
        return both("drawDotLine", [&](auto &c) { c.drawDotLine(x1, y1, x2, y2, colour); });
    }
}

void Pair::roundCall(Random &random)
{
    const int x = random.in(-20, kWidth), y = random.in(-20, kHeight);
    const int a = random.in(0, 50), b = random.in(0, 40);
    const int start = random.in(-400, 400), span = random.in(-400, 400);
    switch (random.in(0, 3)) {
    case 0:
        return both("drawEllipse", [&](auto &c) { c.drawEllipse(x, y, a, b); });
    case 1:
        return both("fillCircle", [&](auto &c) { c.fillCircle(x, y, a); });
    case 2:
        return both("fillEllipse", [&](auto &c) { c.fillEllipse(x, y, a, b); });
    default:
        return both("fillArc", [&](auto &c) { c.fillArc(x, y, 2 * a, 2 * b, start, span); });
    }
}

void Pair::areaCall(Random &random)
{
    const ZrRect rect(random.in(-10, kWidth), random.in(-10, kHeight), random.in(0, kWidth),
                      random.in(0, kHeight));
    switch (random.in(0, 3)) {
    case 0:
        return both("fillRect", [&](auto &c) { c.fillRect(rect); });
    case 1: {
        const ZrRegion region = ZrRegion(rect) + ZrRegion(10, 10, 15, 9) - ZrRegion(20, 5, 9, 30);
        const ZrColor colour = ZrColor::fromArgb(random.argb());
        return both("fillRegion", [&](auto &c) { c.fillRegion(region, colour); });
    }
    case 2: {
        const ZrImage image = randomImage(random);
        const int sx = random.in(0, image.width() - 1), sy = random.in(0, image.height() - 1);
        const int sw = random.in(1, image.width() + 3), sh = random.in(1, image.height() + 3);
        const bool copy = random.oneIn(2);
        const int w = copy ? sw : random.in(1, 120), h = copy ? sh : random.in(1, 90);
        const int x = random.in(-30, kWidth - 1), y = random.in(-30, kHeight - 1);
        return both("drawImage", [&](auto &c) { c.drawImage(x, y, w, h, image, sx, sy, sw, sh); });
    }
    default: {
        const Glyphs glyphs(random);
        const int x = random.in(-20, kWidth), y = random.in(0, kHeight + 20);
        return both("drawGlyphs", [&](auto &c) { c.drawGlyphs(x, y, glyphs.list); });
    }
    }
}

void Pair::randomCall(Random &random)
{
    randomState(random);
    const int kind = random.in(0, 10);
    return kind < 3 ? lineCall(random) : kind < 7 ? roundCall(random) : areaCall(random);
}

void runRandomCalls(ReferenceCanvas::Format format, int rounds)
{
    Random random(kSeed);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << kSeed << " round " << round);
        Pair pair(format, random);
        for (int call = 0; call < 40; ++call) {
            pair.randomCall(random);
            pair.compare();
            if (testing::Test::HasFatalFailure())
                return;
        }
    }
}

// With every set of kernels that the machine runs: what is drawn must not depend on the processor.
void runEverySet(ReferenceCanvas::Format format, int rounds)
{
    for (const PixelKernels *const *set = allPixelKernels(); *set; ++set) {
        SCOPED_TRACE((*set)->name);
        usePixelKernels(*set);
        runRandomCalls(format, rounds);
        usePixelKernels(nullptr);
    }
}

TEST(Canvas, FramebufferAgreesWithFormulas)
{
    runEverySet(ReferenceCanvas::Format::Framebuffer, 150);
}

TEST(Canvas, ImageAgreesWithFormulas)
{
    runEverySet(ReferenceCanvas::Format::Image, 150);
}

TEST(SlowCanvas, FramebufferAgreesWithFormulas)
{
    runEverySet(ReferenceCanvas::Format::Framebuffer, 1000);
}

TEST(SlowCanvas, ImageAgreesWithFormulas)
{
    runEverySet(ReferenceCanvas::Format::Image, 1000);
}

} // namespace
