#include "gfx/reference_canvas.h"

#include "gfx/pixelkernels.h"

#include <zrcanvas>
#include <zrfbcanvas>
#include <zrimage>

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

ReferenceImage randomImage(Random &random)
{
    ReferenceImage image{random.in(1, 40), random.in(1, 40), {}};
    const int kind = random.in(0, 2);
    for (int i = 0; i < image.width * image.height; ++i) {
        const uint32_t alpha = kind == 0 ? 255 : kind == 1 ? (i / 19 % 3 ? 0 : 255) : random.word();
        image.pixels.push_back((random.word() & 0xffffff) | alpha << 24);
    }
    return image;
}

ZrImage asImage(const ReferenceImage &from)
{
    ZrImage image(from.width, from.height);
    std::memcpy(image.bits(), from.pixels.data(), from.pixels.size() * 4);
    return image;
}

struct Glyphs {
    std::vector<std::unique_ptr<std::vector<uint8_t>>> buffers;
    std::vector<std::unique_ptr<GlyphBitmap>> bitmaps;
    ZrVector<const GlyphBitmap *> list;

    explicit Glyphs(Random &random)
    {
        for (int i = random.in(1, 8); i > 0; --i) {
            auto bitmap = std::make_unique<GlyphBitmap>();
            bitmap->width = uint16_t(random.in(0, 36));
            bitmap->rows = uint16_t(random.in(0, 20));
            bitmap->pitch = uint16_t((bitmap->width + 15) / 16 * 16);
            bitmap->left = int16_t(random.in(-3, 3));
            bitmap->top = int16_t(random.in(0, 20));
            bitmap->descent = int16_t(random.in(0, 5));
            bitmap->advance = int16_t(random.in(0, 20));
            auto buffer = std::make_unique<std::vector<uint8_t>>(
                size_t(bitmap->pitch) * bitmap->rows + 16, uint8_t(0));
            for (int y = 0; y < bitmap->rows; ++y)
                for (int x = 0; x < bitmap->width; ++x)
                    (*buffer)[size_t(y) * bitmap->pitch + size_t(x)] =
                        uint8_t(random.oneIn(3)   ? random.word()
                                : random.oneIn(2) ? 255
                                                  : 0);
            bitmap->buffer = buffer->data();
            list.append(bitmap.get());
            buffers.push_back(std::move(buffer));
            bitmaps.push_back(std::move(bitmap));
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
            fb_ = canvas.get();
            canvas_ = std::move(canvas);
        } else {
            auto canvas = std::make_unique<ZrCanvas>(kWidth, kHeight, ZrColor(), ZrRegion());
            image_ = canvas.get();
            canvas_ = std::move(canvas);
        }
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                set(x, y,
                    reference_.pixels[size_t(y * kWidth + x)] =
                        random.word() & (fb_ ? 0xffff : 0xffffffff));
        canvas_->setState(&reference_.state);
    }

    void randomCall(Random &random);
    void compare(const char *call) const
    {
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                ASSERT_EQ(get(x, y), reference_.pixels[size_t(y * kWidth + x)])
                    << call << " at " << x << ", " << y << " clip " << reference_.state.clip.left
                    << " " << reference_.state.clip.top << " " << reference_.state.clip.right << " "
                    << reference_.state.clip.bottom;
    }
    const char *lastCall = "";

private:
    uint32_t get(int x, int y) const
    {
        if (fb_)
            return fb_->data()[y * int(ZrFbCanvas::lineLength() / 2) + x];
        uint32_t word;
        std::memcpy(&word, image_->data() + 4 * (y * kWidth + x), 4);
        return word;
    }
    void set(int x, int y, uint32_t word)
    {
        if (fb_)
            fb_->data()[y * int(ZrFbCanvas::lineLength() / 2) + x] = uint16_t(word);
        else
            std::memcpy(image_->data() + 4 * (y * kWidth + x), &word, 4);
    }
    void randomState(Random &random);
    void straightCall(Random &random, int kind);
    void roundCall(Random &random, int kind);

    std::unique_ptr<ZrAbstractCanvas> canvas_;
    ZrFbCanvas *fb_ = nullptr;
    ZrCanvas *image_ = nullptr;
    ReferenceCanvas reference_;
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

void Pair::straightCall(Random &random, int kind)
{
    const float x1 = random.coordinate(), y1 = random.coordinate();
    const bool straight = random.oneIn(4);
    const float x2 = straight && random.oneIn(2) ? x1 : random.coordinate();
    const float y2 = straight ? y1 : random.coordinate();
    const uint32_t colour = reference_.state.penColor;
    if (kind == 0) {
        lastCall = "drawLine";
        canvas_->drawLine(x1, y1, x2, y2, colour);
        reference_.line(x1, y1, x2, y2, colour);
    } else if (kind == 1) {
        lastCall = "drawSmoothLine";
        canvas_->drawSmoothLine(x1, y1, x2, y2, colour);
        reference_.smoothLine(x1, y1, x2, y2, colour);
    } else {
        lastCall = "drawDotLine";
        canvas_->drawDotLine(x1, y1, x2, y2, colour);
        reference_.dotLine(x1, y1, x2, y2, colour);
    }
}

void Pair::roundCall(Random &random, int kind)
{
    const int x = random.in(-20, kWidth), y = random.in(-20, kHeight);
    const int a = random.in(0, 50), b = random.in(0, 40);
    const int start = random.in(-400, 400), span = random.in(-400, 400);
    switch (kind) {
    case 0:
        lastCall = "drawCircle";
        canvas_->drawCircle(x, y, a);
        return reference_.circle(x, y, a);
    case 1:
        lastCall = "drawEllipse";
        canvas_->drawEllipse(x, y, a, b);
        return reference_.ellipse(x, y, a, b);
    case 2:
        lastCall = "drawArc";
        canvas_->drawArc(x, y, 2 * a, 2 * b, start, span);
        return reference_.arc(x, y, 2 * a, 2 * b, start, span);
    case 3:
        lastCall = "fillCircle";
        canvas_->fillCircle(x, y, a);
        return reference_.fillEllipse(x, y, a, a);
    case 4:
        lastCall = "fillEllipse";
        canvas_->fillEllipse(x, y, a, b);
        return reference_.fillEllipse(x, y, a, b);
    default:
        lastCall = "fillArc";
        canvas_->fillArc(x, y, 2 * a, 2 * b, start, span);
        return reference_.fillArc(x, y, 2 * a, 2 * b, start, span);
    }
}

void Pair::randomCall(Random &random)
{
    randomState(random);
    const int kind = random.in(0, 12);
    if (kind < 3)
        return straightCall(random, kind);
    if (kind < 9)
        return roundCall(random, kind - 3);
    const ZrRect rect(random.in(-10, kWidth), random.in(-10, kHeight), random.in(0, kWidth),
                      random.in(0, kHeight));
    if (kind == 9) {
        lastCall = "fillRect";
        canvas_->fillRect(rect);
        reference_.fillRect(rect);
    } else if (kind == 10) {
        lastCall = "fillRegion";
        const ZrRegion region = ZrRegion(rect) + ZrRegion(10, 10, 15, 9) - ZrRegion(20, 5, 9, 30);
        const ZrColor colour = ZrColor::fromArgb(random.argb());
        canvas_->fillRegion(region, colour);
        reference_.fillRegion(region, colour);
    } else if (kind == 11) {
        lastCall = "drawImage";
        const ReferenceImage image = randomImage(random);
        const int sx = random.in(0, image.width - 1), sy = random.in(0, image.height - 1);
        const int sw = random.in(1, image.width + 3), sh = random.in(1, image.height + 3);
        const bool copy = random.oneIn(2);
        const int w = copy ? sw : random.in(1, 120), h = copy ? sh : random.in(1, 90);
        const int x = random.in(-30, kWidth - 1), y = random.in(-30, kHeight - 1);
        canvas_->drawImage(x, y, w, h, asImage(image), sx, sy, sw, sh);
        reference_.image(x, y, w, h, image, sx, sy, sw, sh);
    } else {
        lastCall = "drawGlyphs";
        const Glyphs glyphs(random);
        const int x = random.in(-20, kWidth), y = random.in(0, kHeight + 20);
        canvas_->drawGlyphs(x, y, glyphs.list);
        reference_.glyphs(x, y, glyphs.list);
    }
}

void runRandomCalls(ReferenceCanvas::Format format, int rounds)
{
    Random random(kSeed);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << kSeed << " round " << round);
        Pair pair(format, random);
        for (int call = 0; call < 40; ++call) {
            pair.randomCall(random);
            pair.compare(pair.lastCall);
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
