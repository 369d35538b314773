// A full-size screen with the shipped font and style, and one window, for rows that measure from an
// event to the framebuffer.
#pragma once

#include <memory>
#include <string>
#include <zrapplication>
#include <zrwidget>

constexpr int BenchWidth = 1920;
constexpr int BenchHeight = 1080;

class WidgetScreen
{
public:
    WidgetScreen();
    ~WidgetScreen();
    WidgetScreen(const WidgetScreen &) = delete;
    WidgetScreen &operator=(const WidgetScreen &) = delete;

    // Handles what is queued, flushes included.
    void settle() { application_->processPending(); }
    ZrWidget *window() { return window_.get(); }

private:
    std::string root_;
    std::unique_ptr<ZrApplication> application_;
    std::unique_ptr<ZrWidget> window_;
};
