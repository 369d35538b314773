#include "e2e/recorder.h"

#include "platform/framebufferdoor.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zrtest
{
namespace
{

// In the child: the interface with the board as its root, in the data directory, its lines in a
// file.
[[noreturn]] void runInterface(const std::string &root)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setenv("ZR_ROOT", root.c_str(), 1);
    unsetenv("ZR_FBDEV_NODE");
    const int log = open((root + "/output").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    if (chdir(ZR_BINARY_DIR "/data") == 0)
        execl(ZR_BINARY_DIR "/bin/zrui", "zrui", static_cast<char *>(nullptr));
    _exit(127);
}

} // namespace

Recorder::Recorder(DeviceOptions device)
    : device_(device), board_(device.displayWidth, device.displayHeight)
{
    if (!board_.create())
        std::abort();
    SimApp::Options options;
    options.socketPath = board_.appSocket();
    options.device = device;
    app_ = std::make_unique<SimApp>(options);
}

Recorder::~Recorder()
{
    kill();
    app_->stop();
}

void Recorder::start()
{
    if (!app_->start())
        std::abort();
    child_ = fork();
    if (child_ == 0)
        runInterface(board_.root());
}

bool Recorder::startLive()
{
    start();
    if (!app_->waitMessage(AppMain::liveView, AppLiveView::setPictures))
        return false;
    // The last thing of the first flush is the hole: a border stands, and beside it the video
    // shows.
    return eventually([this] {
        const ZrRect first = cell(0);
        const ZrRect last = cell(int(pictures().count) - 1);
        return isOpaque(first.left(), first.top()) && isOpaque(last.right(), last.bottom());
    });
}

bool Recorder::isRunning()
{
    return child_ > 0 && waitpid(child_, nullptr, WNOHANG) == 0;
}

int Recorder::waitExit()
{
    int status = 0;
    if (!eventually([&] { return waitpid(child_, &status, WNOHANG) == child_; }))
        return -1;
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void Recorder::kill()
{
    if (child_ <= 0)
        return;
    ::kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
    child_ = -1;
}

std::string Recorder::output() const
{
    std::ifstream file(board_.root() + "/output");
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

live::PreviewRecord Recorder::pictures() const
{
    const std::vector<std::uint8_t> body = app_->pictures();
    return live::PreviewRecord::decode(WireReader(body.data(), body.size()));
}

ZrRect Recorder::cell(int index) const
{
    return pictures().pictures[index].rect.toRect();
}

void Recorder::moveTo(int x, int y, int buttons)
{
    eventually([this] { return pointer().takeCommands() || pointer().isRead(); });
    pointer().moveTo(x, y, buttons);
    eventually([this] {
        pointer().flush();
        return pointer().isEmpty();
    });
}

void Recorder::click(int x, int y)
{
    moveTo(x, y);
    moveTo(x, y, 1);
    moveTo(x, y);
}

void Recorder::doubleClick(int x, int y)
{
    click(x, y);
    click(x, y);
}

std::vector<std::uint16_t> Recorder::pixels(const ZrRect &area)
{
    std::vector<std::uint16_t> all;
    for (int y = area.top(); y <= area.bottom(); ++y)
        all.insert(all.end(), screen().line(y) + area.left(), screen().line(y) + area.right() + 1);
    return all;
}

int Recorder::opaquePixels(const ZrRect &area)
{
    const std::vector<std::uint16_t> all = pixels(area);
    return int(
        std::count_if(all.begin(), all.end(), [](std::uint16_t pixel) { return pixel & 0x8000; }));
}

void Recorder::mark(int x, int y, std::uint16_t value)
{
    FramebufferDoor door;
    if (door.open((board_.root() + "/dev/fb0").c_str()) != FramebufferDoor::Result::Ok)
        std::abort();
    std::uint8_t *at = door.base() + std::size_t(y) * door.lineLength() + std::size_t(x) * 2;
    at[0] = std::uint8_t(value);
    at[1] = std::uint8_t(value >> 8);
}

} // namespace zrtest
