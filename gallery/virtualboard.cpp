#include "virtualboard.h"

#include <cstdlib>
#include <filesystem>

VirtualBoard::VirtualBoard(int width, int height)
    : root_(std::filesystem::temp_directory_path() / "zr-gallery-XXXXXX")
{
    if (!mkdtemp(root_.data()))
        std::abort();
    std::filesystem::create_directories(root_ + "/dev");
    setenv("ZR_ROOT", root_.c_str(), 1);
    resize(width, height);
}

VirtualBoard::~VirtualBoard()
{
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

void VirtualBoard::resize(int width, int height)
{
    pixels_ = std::make_unique<FramebufferFile>();
    if (!pixels_->create(root_ + "/dev/fb0", width, height))
        std::abort();
}

Picture VirtualBoard::picture() const
{
    // The upper bits of a channel fill its lower ones, so that full stays full.
    const auto channel = [](unsigned five) { return five << 3 | five >> 2; };
    Picture picture(width(), height());
    for (int y = 0; y < height(); ++y) {
        const std::uint16_t *from = pixels_->line(y);
        std::uint32_t *to = picture.line(y);
        for (int x = 0; x < width(); ++x) {
            const unsigned pixel = from[x] & 0x8000 ? from[x] : 0;
            to[x] = channel(pixel >> 10 & 31) << 16 | channel(pixel >> 5 & 31) << 8 |
                    channel(pixel & 31);
        }
    }
    return picture;
}
