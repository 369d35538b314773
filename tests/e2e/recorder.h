// A whole recorder for a test: virtual board, simulated App in this process, and the real zrui as a
// child. Every wait has a deadline.
#pragma once

#include "live/live_records.h"
#include "support/deadline.h"
#include "workbench/board/board.h"
#include "workbench/simapp/simapp.h"

#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>
#include <zrregion>

namespace zrtest
{

class Recorder
{
public:
    explicit Recorder(DeviceOptions device = {});
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    SimApp &app() { return *app_; }
    PointerPort &pointer() { return board_.pointer(); }
    const FramebufferFile &screen() { return board_.framebuffer(); }
    const std::string &root() const { return board_.root(); }

    // Starts App and the interface.
    void start();
    // And waits until the live view is on the screen.
    bool startLive();
    bool isRunning();
    // The exit status, -1 when it did not end in time.
    int waitExit();
    void kill();
    std::string output() const;

    live::PreviewRecord pictures() const;
    // The rectangle of a picture of the last set, in screen pixels.
    ZrRect cell(int index) const;

    void moveTo(int x, int y, int buttons = 0);
    void click(int x, int y);
    void doubleClick(int x, int y);

    std::uint16_t pixel(int x, int y) { return screen().line(y)[x]; }
    bool isOpaque(int x, int y) { return pixel(x, y) & 0x8000; }
    // Of an area, line by line.
    std::vector<std::uint16_t> pixels(const ZrRect &area);
    int opaquePixels(const ZrRect &area);
    // A writable mapping of the pixels, for marks that a repaint would wipe out.
    void mark(int x, int y, std::uint16_t value);

private:
    DeviceOptions device_;
    Board board_;
    std::unique_ptr<SimApp> app_;
    pid_t child_ = -1;
};

} // namespace zrtest
