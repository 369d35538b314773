// The virtual board: a folder in which the interface finds the devices of a recorder.
#pragma once

#include "workbench/board/framebufferfile.h"
#include "workbench/board/panelport.h"
#include "workbench/board/pointerport.h"

#include <memory>
#include <string>

// Makes dev/fb0, dev/psaux and dev/panel under its folder, and leaves dev/IPC_UI to App. Removes
// the folder when it goes, if it made it.
class Board
{
public:
    Board(int width, int height) : pointer_(width, height), width_(width), height_(height) {}
    ~Board();
    Board(const Board &) = delete;
    Board &operator=(const Board &) = delete;

    // In the given folder, which is made, or, when empty, in a fresh one for temporary files.
    // False, with a line on standard error.
    bool create(const std::string &folder = std::string());

    // What ZR_ROOT has to be; absolute.
    const std::string &root() const { return root_; }
    std::string appSocket() const { return root_ + "/dev/IPC_UI"; }

    FramebufferFile &framebuffer() { return framebuffer_; }
    PointerPort &pointer() { return pointer_; }
    PanelPort &panel() { return panel_; }

private:
    bool makeFolders(const std::string &folder);

    std::string root_;
    bool isOurs_ = false;
    FramebufferFile framebuffer_;
    PointerPort pointer_;
    PanelPort panel_;
    int width_;
    int height_;
};
