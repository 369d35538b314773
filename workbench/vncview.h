// Shows a picture over VNC, on this machine only, and passes on the viewer's mouse.
#pragma once

#include "workbench/board/picture.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class VncView
{
public:
    VncView();
    ~VncView();

    struct Mouse {
        int x, y;
        int buttons; // 1 left, 2 right, 4 middle
        int wheel;   // notches, positive towards the user
    };

    // What the viewer's keyboard does, as lines of the panel: "key 28", "text A".
    using KeyLine = std::function<void(const std::string &line)>;
    void setKeyboard(const KeyLine &onKey) { onKey_ = onKey; }

    // Listens on 127.0.0.1; also takes the WebSockets of a browser on the same port. The picture
    // must outlive the view. False when the port cannot be had.
    bool start(Picture *picture, int port, const std::function<void(const Mouse &)> &onMouse);
    // The same on the first free port from the given one on. False, with a line on standard error,
    // when none is free.
    bool startNear(Picture *picture, int port, int tries,
                   const std::function<void(const Mouse &)> &onMouse);
    void stop();
    // 0 while it does not run.
    int port() const;

    // Tells the viewers what has changed.
    void markChanged(const std::vector<Area> &areas);
    // Serves the viewers for at most so long.
    void run(int milliseconds);

private:
    struct Screen;
    std::unique_ptr<Screen> screen_;
    KeyLine onKey_;
};
