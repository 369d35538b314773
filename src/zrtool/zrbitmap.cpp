#include <zrbitmap>

#include <algorithm>
#include <cstring>

namespace
{

// Of the file: little-endian, as all in it.
constexpr int fileHeaderSize = 14;
constexpr int coreHeaderSize = 12;
constexpr int infoHeaderSize = 40;
constexpr int longestHeader = 124;
// Compressions.
enum : std::uint32_t { Plain = 0, Runs8 = 1, Runs4 = 2, Masks = 3, AlphaMasks = 6 };

std::uint32_t little16(const std::uint8_t *at)
{
    return at[0] | std::uint32_t(at[1]) << 8;
}

std::uint32_t little32(const std::uint8_t *at)
{
    return little16(at) | little16(at + 2) << 16;
}

bool readAt(std::FILE *file, long position, std::uint8_t *to, std::size_t count)
{
    return std::fseek(file, position, SEEK_SET) == 0 && std::fread(to, 1, count, file) == count;
}

// The bits of a mask, spread over 0 to 255.
std::uint8_t channel(std::uint32_t pixel, std::uint32_t mask)
{
    const int shift = __builtin_ctz(mask);
    const std::uint32_t most = mask >> shift;
    return std::uint8_t(std::uint64_t((pixel & mask) >> shift) * 255 / most);
}

} // namespace

ZrBitmap::ZrBitmap(std::FILE *file) : file_(file)
{
    if (!file_ || (start_ = std::ftell(file_)) < 0 || !readHeaders())
        width_ = height_ = 0;
}

bool ZrBitmap::isKnownFormat() const
{
    switch (compression_) {
    case Plain:
        return bits_ == 1 || bits_ == 4 || bits_ == 8 || bits_ == 16 || bits_ == 24 || bits_ == 32;
    case Runs8:
        return bits_ == 8 && rows_ == Rows::BottomUp;
    case Runs4:
        return bits_ == 4 && rows_ == Rows::BottomUp;
    case Masks:
    case AlphaMasks:
        return bits_ == 16 || bits_ == 32;
    default:
        return false;
    }
}

bool ZrBitmap::readHeaders()
{
    std::uint8_t bytes[fileHeaderSize + longestHeader] = {};
    if (!readAt(file_, start_, bytes, fileHeaderSize + 4) || bytes[0] != 'B' || bytes[1] != 'M')
        return false;
    pixelOffset_ = long(little32(bytes + 10));
    std::uint8_t *const header = bytes + fileHeaderSize;
    const std::uint32_t headerSize = little32(header);
    const bool core = headerSize == coreHeaderSize;
    if ((!core && headerSize < infoHeaderSize) || headerSize > longestHeader ||
        !readAt(file_, start_ + fileHeaderSize, header, headerSize))
        return false;

    const long long width = core ? int(little16(header + 4)) : std::int32_t(little32(header + 4));
    const long long height = core ? int(little16(header + 6)) : std::int32_t(little32(header + 8));
    rows_ = height < 0 ? Rows::TopDown : Rows::BottomUp;
    const long long rows = height < 0 ? -height : height;
    if (width < 1 || width > mostSide || rows < 1 || rows > mostSide || width * rows > mostPixels)
        return false;
    bits_ = int(little16(header + (core ? 10 : 14)));
    compression_ = core ? Plain : little32(header + 16);
    if (!isKnownFormat())
        return false;
    height_ = int(rows);
    width_ = int(width);
    return readColours(int(headerSize), start_ + fileHeaderSize + long(headerSize));
}

// The masks and the colour table, which begins at `at` when there are no masks before it.
bool ZrBitmap::readColours(int headerSize, long at)
{
    const bool masked = compression_ == Masks || compression_ == AlphaMasks;
    if (bits_ > 8) {
        std::uint8_t masks[16] = {};
        const int count = compression_ == AlphaMasks || headerSize > 52 ? 4 : 3;
        // They stand within a longer header and behind the shortest one: at the same place.
        if (masked &&
            !readAt(file_, start_ + fileHeaderSize + infoHeaderSize, masks, std::size_t(count) * 4))
            return false;
        const std::uint32_t plain16[] = {0x7C00, 0x03E0, 0x001F, 0};
        const std::uint32_t plain32[] = {0xFF0000, 0x00FF00, 0x0000FF, 0};
        for (int i = 0; i < 4; i++)
            masks_[i] = masked ? little32(masks + 4 * i) : (bits_ == 16 ? plain16 : plain32)[i];
        return true;
    }
    // As many as a pixel can name; those the file does not have are black.
    const int named = 1 << bits_;
    int stored = named;
    const int entrySize = headerSize == coreHeaderSize ? 3 : 4;
    if (headerSize != coreHeaderSize) {
        std::uint8_t used[4];
        if (!readAt(file_, start_ + fileHeaderSize + 32, used, sizeof used))
            return false;
        if (little32(used) != 0)
            stored = int(std::min<std::uint32_t>(little32(used), std::uint32_t(named)));
    }
    std::uint8_t entries[256 * 4] = {};
    if (!readAt(file_, at, entries, std::size_t(stored) * std::size_t(entrySize)))
        return false;
    colours_.resize(named);
    for (int i = 0; i < named; i++) {
        const std::uint8_t *entry = entries + i * entrySize;
        const bool known = i < stored;
        const std::uint8_t colour[4] = {known ? entry[2] : std::uint8_t(0),
                                        known ? entry[1] : std::uint8_t(0),
                                        known ? entry[0] : std::uint8_t(0), 255};
        std::memcpy(&colours_[i], colour, sizeof colour);
    }
    return true;
}

bool ZrBitmap::decode(ZrVector<std::uint8_t> &buffer) const
{
    buffer.clear();
    if (!isValid() || std::fseek(file_, start_ + pixelOffset_, SEEK_SET) != 0)
        return false;
    // Nothing is allocated for a picture whose rows are not there.
    const bool runs = compression_ == Runs8 || compression_ == Runs4;
    if (!runs) {
        const long long rowBytes = ((long long)(width_)*bits_ + 31) / 32 * 4;
        const long here = std::ftell(file_);
        if (std::fseek(file_, 0, SEEK_END) != 0 || std::ftell(file_) - here < rowBytes * height_ ||
            std::fseek(file_, here, SEEK_SET) != 0)
            return false;
    }
    buffer.reserve(width_ * height_ * 4);
    buffer.resize(width_ * height_ * 4);
    if (runs ? decodeRuns(buffer.data()) : decodeRows(buffer.data()))
        return true;
    buffer.clear();
    return false;
}

std::uint8_t *ZrBitmap::rowOf(std::uint8_t *pixels, int fileRow) const
{
    const int y = rows_ == Rows::TopDown ? fileRow : height_ - 1 - fileRow;
    return pixels + std::ptrdiff_t(y) * width_ * 4;
}

bool ZrBitmap::decodeRows(std::uint8_t *pixels) const
{
    ZrVector<std::uint8_t> row((width_ * bits_ + 31) / 32 * 4);
    for (int y = 0; y < height_; y++) {
        if (std::fread(row.data(), 1, std::size_t(row.size()), file_) != std::size_t(row.size()))
            return false;
        decodePacked(row, rowOf(pixels, y));
    }
    return true;
}

// One row of pixels of any width.
void ZrBitmap::decodePacked(const ZrVector<std::uint8_t> &row, std::uint8_t *to) const
{
    const std::uint8_t *from = row.constData();
    for (int x = 0; x < width_; x++, to += 4) {
        if (bits_ <= 8) {
            const int bit = x * bits_;
            const int index = from[bit / 8] >> (8 - bits_ - bit % 8) & ((1 << bits_) - 1);
            std::memcpy(to, &colours_.at(index), 4);
        } else if (bits_ == 24) {
            to[0] = from[3 * x + 2];
            to[1] = from[3 * x + 1];
            to[2] = from[3 * x];
            to[3] = 255;
        } else {
            const std::uint32_t pixel =
                bits_ == 16 ? little16(from + 2 * x) : little32(from + 4 * x);
            for (int i = 0; i < 4; i++)
                to[i] = masks_[i] ? channel(pixel, masks_[i]) : std::uint8_t(i == 3 ? 255 : 0);
        }
    }
}

// Run-length codes: pairs of a count and pixels, or 0 and an escape.
bool ZrBitmap::decodeRuns(std::uint8_t *pixels) const
{
    enum Escape { EndOfLine = 0, EndOfPicture = 1, Delta = 2 };
    for (int i = 0; i < width_ * height_; i++)
        std::memcpy(pixels + 4 * i, &colours_.at(0), 4);
    const bool nibbles = bits_ == 4;
    int x = 0, y = 0;
    const auto put = [&](int byte, int position) {
        const int index = !nibbles ? byte : position % 2 ? byte & 15 : byte >> 4;
        if (x < width_ && y < height_)
            std::memcpy(rowOf(pixels, y) + 4 * x, &colours_.at(index), 4);
        x++;
    };
    while (y < height_) {
        const int count = std::getc(file_), second = std::getc(file_);
        if (second == EOF)
            return false;
        if (count > 0) {
            for (int i = 0; i < count; i++)
                put(second, i);
        } else if (second == EndOfLine) {
            x = 0;
            y++;
        } else if (second == EndOfPicture) {
            return true;
        } else if (second == Delta) {
            const int right = std::getc(file_), down = std::getc(file_);
            if (down == EOF)
                return false;
            x += right;
            y += down;
        } else { // pixels one by one, in whole words
            const int bytes = nibbles ? (second + 1) / 2 : second;
            for (int i = 0, byte = 0; i < second; i++) {
                if (!nibbles || i % 2 == 0)
                    byte = std::getc(file_);
                if (byte == EOF)
                    return false;
                put(byte, i);
            }
            if (bytes % 2)
                std::getc(file_);
        }
    }
    return true;
}
