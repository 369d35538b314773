// The simulated recorder around a running interface: board, App, monitor and mouse.
#pragma once

#include "workbench/board/board.h"
#include "workbench/board/compositor.h"
#include "workbench/board/videoplane.h"
#include "workbench/childprocess.h"
#include "workbench/options.h"
#include "workbench/script.h"
#include "workbench/simapp/simapp.h"
#include "workbench/vncview.h"
#include "workbench/webserver.h"

#include <chrono>
#include <csignal>
#include <vector>

class Workbench
{
public:
    explicit Workbench(const WorkbenchOptions &options);

    // Runs until the script or the interface ends or `stop` is set. The exit status of the program;
    // whatever went wrong has been said in one line.
    int run(const volatile sig_atomic_t *stop);

private:
    using Clock = std::chrono::steady_clock;
    enum class Step { Done, Waiting, Failed, Quit };

    bool start();
    bool startViews();
    void sayWhereToLook() const;

    void nextFrame();
    bool isSettled() const;
    std::vector<VideoPlane::Tile> wantedTiles() const;

    int runScript();
    Step runCommand(const ScriptCommand &command);
    Step runWaiting(const ScriptCommand &command);
    bool runPointer(const ScriptCommand &command);
    bool runDevice(const ScriptCommand &command);
    bool runPeer(const ScriptCommand &command);
    const char *whatIsMissing(const ScriptCommand &command) const;

    const WorkbenchOptions options_;
    Board board_;
    std::unique_ptr<SimApp> app_;
    VideoPlane plane_;
    Compositor compositor_;
    VncView vnc_;
    WebServer web_;
    ChildProcess interface_; // ends first

    std::vector<ScriptCommand> script_;
    size_t next_ = 0;
    Clock::time_point commandBegan_ = Clock::now();
    Clock::time_point started_ = Clock::now();
    Clock::time_point lastFrame_;
    std::vector<uint8_t> shownBody_;
    std::vector<uint8_t> shownStates_;
    int quietFrames_ = 0;
    int buttons_ = 0;
};
