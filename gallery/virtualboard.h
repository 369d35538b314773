// A board root of the gallery's own, with nothing on it but a framebuffer file, for as long as it
// lives. One a process, and before the application.
#pragma once

#include "workbench/board/framebufferfile.h"
#include "workbench/board/picture.h"

#include <memory>
#include <string>

class VirtualBoard
{
public:
    VirtualBoard(int width, int height);
    ~VirtualBoard();
    VirtualBoard(const VirtualBoard &) = delete;
    VirtualBoard &operator=(const VirtualBoard &) = delete;

    // While nobody has the framebuffer open.
    void resize(int width, int height);
    int width() const { return pixels_->width(); }
    int height() const { return pixels_->height(); }
    // What the framebuffer shows; clear pixels are black.
    Picture picture() const;

private:
    std::string root_;
    std::unique_ptr<FramebufferFile> pixels_;
};
