#include "widget_screen.h"

#include "platform/framebufferdoor.h"
#include "ui/commonstyle.h"
#include "ui/scale.h"
#include "widgets/zrinstallwidgets.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <unistd.h>
#include <zrfontmetrics>
#include <zrgraphics>

namespace
{

constexpr int FontCacheBytes = 1 << 20;

void makeFramebuffer(const std::string &path)
{
    using namespace VirtualFramebuffer;
    std::string file(kHeaderSize, '\0');
    std::memcpy(&file[0], kMagic, 4);
    const std::uint32_t fields[] = {
        kVersion,   BenchWidth, BenchHeight, BenchWidth * 2, BenchWidth * BenchHeight * 2,
        kHeaderSize};
    std::memcpy(&file[kOffsetVersion], fields, sizeof fields);
    file.append(std::size_t(BenchWidth) * BenchHeight * 2, '\0');
    std::ofstream(path, std::ios::binary) << file;
}

} // namespace

WidgetScreen::WidgetScreen() : root_("/dev/shm/zr_bench_" + std::to_string(getpid()))
{
    std::filesystem::create_directories(root_ + "/dev");
    makeFramebuffer(root_ + "/dev/fb0");
    setenv("ZR_ROOT", root_.c_str(), 1);
    std::filesystem::current_path(ZR_BINARY_DIR "/data");
    zrInstallGraphics();
    zrInstallWidgets();
    ZrApplication::parts().makePointer = nullptr;
    application_ = std::make_unique<ZrApplication>(0, nullptr);
    setScreenScale(BenchWidth, BenchHeight);
    ZrFontMetrics::setFontFile("font/yahei_arial_gothic_unicode.ttf", FontCacheBytes);
    loadCommonStyle();
    window_ = std::make_unique<ZrWidget>();
    window_->setAttribute(ZrWidget::DeleteOnClose, false);
    window_->setGeometry(ZrRect(0, 0, BenchWidth, BenchHeight));
    window_->setBackgroundColor(ZrColor(8, 16, 24));
    window_->show();
    settle();
}

WidgetScreen::~WidgetScreen()
{
    window_.reset();
    application_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}
