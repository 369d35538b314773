#include <zrimage>

#include "gfx/imagereader.h"
#include "gfx/imagescaler.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <vector>
#include <zratomic>
#include <zrcanvas>
#include <zrstring>

struct ZrImage::Shared {
    ZrCanvas *canvas; // owned
    ZrAtomicInt ref;
};

namespace
{

// No picture within the pixel limit is larger, however badly it is packed.
constexpr size_t kMostFileBytes = size_t(ZrImage::maxPixels) * 8;
constexpr size_t kReadStep = 1 << 16;

std::vector<uint8_t> readAll(std::FILE *file)
{
    std::vector<uint8_t> bytes;
    struct stat status;
    const bool isFile = fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode);
    size_t room =
        isFile && size_t(status.st_size) < kMostFileBytes ? size_t(status.st_size) + 1 : kReadStep;
    for (;;) {
        const size_t had = bytes.size();
        bytes.resize(had + room);
        const size_t got = std::fread(bytes.data() + had, 1, room, file);
        bytes.resize(had + got);
        if (got < room)
            return bytes;
        if (bytes.size() > kMostFileBytes)
            return {};
        room = kReadStep;
    }
}

} // namespace

ZrImage::ZrImage(const char *path)
{
    std::FILE *file = path ? std::fopen(path, "rb") : nullptr;
    if (!file) {
        std::printf("ZrImage(): file(%s) open failed, %s !!!\n", path ? path : "",
                    std::strerror(path ? errno : ENOENT));
        return;
    }
    const std::vector<uint8_t> bytes = readAll(file);
    std::fclose(file);
    take(readImage({bytes.data(), bytes.size()}).release());
}

ZrImage::ZrImage(const ZrString &path) : ZrImage(path.toUtf8().constData()) {}

ZrImage::ZrImage(const void *buffer, int length)
{
    if (!buffer || length <= 0) {
        std::printf("ZrImage(): buffer(%p, length=%d) open failed, %s !!!\n", buffer, length,
                    std::strerror(EINVAL));
        return;
    }
    take(readImage({static_cast<const uint8_t *>(buffer), size_t(length)}).release());
}

ZrImage::ZrImage(int width, int height, const ZrColor &colour)
{
    if (width > 0 && height > 0 && isAllowedSize(uint64_t(width), uint64_t(height)))
        take(new ZrCanvas(width, height, colour, ZrRegion())); // owned by the shared block
}

ZrImage::ZrImage(const ZrImage &other)
    : ZrPaintDevice(), width_(other.width_), height_(other.height_), shared_(other.shared_)
{
    if (shared_)
        shared_->ref.ref();
}

ZrImage::~ZrImage()
{
    release();
}

ZrImage &ZrImage::operator=(const ZrImage &other)
{
    ZrImage(other).swap(*this);
    return *this;
}

void ZrImage::swap(ZrImage &other) noexcept
{
    std::swap(width_, other.width_);
    std::swap(height_, other.height_);
    std::swap(shared_, other.shared_);
}

void ZrImage::take(ZrCanvas *canvas)
{
    if (!canvas || !canvas->data()) {
        delete canvas;
        return;
    }
    shared_ = new Shared{canvas, 1}; // owned by its references
    width_ = canvas->width();
    height_ = canvas->height();
}

void ZrImage::release()
{
    if (shared_ && !shared_->ref.deref()) {
        delete shared_->canvas;
        delete shared_;
    }
    shared_ = nullptr;
}

void ZrImage::detach()
{
    if (!shared_ || !shared_->ref.isShared())
        return;
    ZrCanvas *copy = new ZrCanvas(*shared_->canvas);
    release();
    width_ = height_ = 0;
    take(copy);
}

const uint8_t *ZrImage::bits() const
{
    return shared_ ? shared_->canvas->data() : nullptr;
}

uint8_t *ZrImage::bits()
{
    detach();
    if (!shared_)
        return nullptr;
    shared_->canvas->contentsChanged();
    return shared_->canvas->data();
}

ZrImage ZrImage::scaled(int width, int height) const
{
    ZrImage result(isNull() ? 0 : width, height);
    if (result.isNull())
        return result;
    ImageScaler scaler({reinterpret_cast<const uint32_t *>(bits()), width_, height_, width_},
                       ScaleAxis(0, width_, width, width_), ScaleAxis(0, height_, height, height_));
    scaler.sample({reinterpret_cast<uint32_t *>(result.bits()), width, height, width});
    return result;
}

const ZrCanvas *ZrImage::canvas() const
{
    return shared_ ? shared_->canvas : nullptr;
}

bool ZrImage::beginPaint(ZrPaintSetup &setup)
{
    detach();
    return shared_ && shared_->canvas->beginPaint(setup);
}
