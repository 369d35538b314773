#include "workbench/workbench.h"

#include <cstdio>
#include <filesystem>

namespace
{

constexpr std::chrono::milliseconds kFrame(50);
constexpr int kServeMs = 10;
constexpr int kPortsTried = 50;
// The framebuffer must not have changed for so many frames: half a second, less than the clock of
// an interface stands still.
constexpr int kQuietFrames = 10;
// Pictures of a screenshot stand as they do at this moment, so that two shots are alike.
constexpr unsigned kStillMoment = 9000;

constexpr char kIndexPage[] = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>Recorder</title>
<style>html, body { margin: 0; height: 100%; background: #081018; color: #98a8b8;
font: 16px sans-serif; overflow: hidden } #screen { height: 100% }
#state { position: fixed; left: 16px; top: 12px }</style></head>
<body><div id="screen"></div><div id="state">Connecting ...</div>
<script type="module">
import RFB from './core/rfb.js';
const state = document.getElementById('state');
function connect() {
    const rfb = new RFB(document.getElementById('screen'), 'ws://127.0.0.1:%PORT%');
    rfb.scaleViewport = true;
    rfb.addEventListener('connect', () => { state.textContent = ''; });
    rfb.addEventListener('disconnect', () => {
        state.textContent = 'The recorder is gone; waiting for it.';
        setTimeout(connect, 2000);
    });
}
connect();
</script></body></html>
)";

} // namespace

Workbench::Workbench(const WorkbenchOptions &options)
    : options_(options),
      board_(options.width, options.height),
      plane_(options.width, options.height),
      compositor_(options.width, options.height)
{
}

bool Workbench::startViews()
{
    const auto onMouse = [this](const VncView::Mouse &mouse) {
        board_.pointer().moveTo(mouse.x, mouse.y, mouse.buttons, mouse.wheel);
    };
    vnc_.setKeyboard([this](const std::string &line) { board_.panel().sendLine(line); });
    if (!vnc_.startNear(&compositor_.picture(), options_.vncPort, kPortsTried, onMouse))
        return false;
    if (!std::filesystem::exists(options_.novnc + "/core/rfb.js"))
        return true;
    std::string page = kIndexPage;
    const std::string place = "%PORT%";
    page.replace(page.find(place), place.size(), std::to_string(vnc_.port()));
    web_.setIndex(page);
    return web_.startNear(options_.novnc, options_.webPort, kPortsTried);
}

void Workbench::sayWhereToLook() const
{
    if (web_.port())
        printf("Browser: http://127.0.0.1:%d/\n", web_.port());
    else
        printf("No browser page: noVNC's files are not there.\n");
    printf("VNC viewer: 127.0.0.1:%d\nCtrl-C ends everything.\n", vnc_.port());
    fflush(stdout);
}

bool Workbench::start()
{
    if (!options_.screenshot.empty()) {
        script_.push_back({"await", {"100", "0"}, 0});
        script_.push_back({"settle", {}, 0});
    }
    if (!options_.script.empty() && !readScript(options_.script, &script_))
        return false;
    if (!options_.screenshot.empty()) {
        script_.push_back({"settle", {}, 0});
        script_.push_back({"screenshot", {options_.screenshot}, 0});
        script_.push_back({"quit", {}, 0});
    }
    if (!board_.create(options_.board))
        return false;
    SimApp::Options app;
    app.socketPath = board_.appSocket();
    app.device.displayWidth = options_.width;
    app.device.displayHeight = options_.height;
    app_ = std::make_unique<SimApp>(app);
    if (!app_->start())
        return false;
    if (options_.screenshot.empty()) {
        if (!startViews())
            return false;
        sayWhereToLook();
    }
    ChildProcess::Command command;
    command.program = options_.program;
    command.folder = options_.data;
    command.output = options_.log;
    command.environment = {{"ZR_ROOT", board_.root()}, {"ZR_FBDEV_NODE", ""}};
    return interface_.start(command);
}

int Workbench::run(const volatile sig_atomic_t *stop)
{
    if (!start())
        return 1;
    while (!*stop) {
        if (!interface_.isRunning()) {
            fprintf(stderr, "The interface ended with status %d.\n", interface_.status());
            return 1;
        }
        const auto now = Clock::now();
        if (now - lastFrame_ >= kFrame) {
            lastFrame_ = now;
            nextFrame();
        }
        board_.pointer().takeCommands();
        board_.pointer().flush();
        board_.panel().poll();
        const int ended = runScript();
        if (ended >= 0)
            return ended;
        if (vnc_.port())
            vnc_.run(kServeMs);
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(kServeMs));
    }
    return 0;
}

std::vector<VideoPlane::Tile> Workbench::wantedTiles() const
{
    const SimDevice device = app_->device();
    std::vector<VideoPlane::Tile> tiles = VideoPlane::decode(shownBody_);
    for (VideoPlane::Tile &tile : tiles)
        tile.hasPicture = int(tile.channel) < device.channelCount() &&
                          device.channel(int(tile.channel)).state == SimChannel::Online;
    return tiles;
}

void Workbench::nextFrame()
{
    std::vector<Area> changed;
    const std::vector<uint8_t> body = app_->pictures();
    const std::vector<uint8_t> states = app_->device().connectStates();
    if (body != shownBody_ || states != shownStates_) {
        shownBody_ = body;
        shownStates_ = states;
        changed = plane_.setTiles(wantedTiles());
    }
    const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(lastFrame_ - started_);
    const unsigned moment = options_.screenshot.empty() ? unsigned(since.count()) : kStillMoment;
    const std::vector<Area> moved = plane_.advance(moment);
    changed.insert(changed.end(), moved.begin(), moved.end());
    const auto composed = compositor_.compose(board_.framebuffer(), plane_.picture(), changed);
    quietFrames_ = compositor_.framebufferChanged() ? 0 : quietFrames_ + 1;
    if (vnc_.port())
        vnc_.markChanged(composed);
}

bool Workbench::isSettled() const
{
    return !shownBody_.empty() && quietFrames_ >= kQuietFrames;
}
