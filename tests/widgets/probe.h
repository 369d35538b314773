// A widget that writes down what it gets, and a screen for it.
#pragma once

#include "support/virtualscreen.h"
#include "widgets/zrdesktop.h"
#include "widgets/zrinstallwidgets.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <zrgraphics>
#include <zrpainter>
#include <zrscreen>
#include <zrwidget>

class Probe : public ZrWidget
{
public:
    Probe(const char *name, std::string *log, const ZrRect &geometry, ZrWidget *parent = nullptr)
        : Probe(name, log, parent)
    {
        setGeometry(geometry);
    }
    Probe(const char *name, std::string *log, ZrWidget *parent = nullptr)
        : ZrWidget(parent), name_(name), log_(log)
    {
        setAttribute(DeleteOnClose, false);
    }

    ZrSize sizeHint() const override { return hint; }
    bool event(ZrEvent *event) override
    {
        if (const auto run = on.find(event->type()); run != on.end()) {
            note("!");
            run->second(); // may delete this
            return true;
        }
        return ZrWidget::event(event);
    }

    ZrColor color{40, 80, 120};
    bool takesMouse = true;
    ZrSize hint{-1, -1};
    ZrRegion painted;
    std::map<int, std::function<void()>> on; // instead of the handler, by type of event

protected:
    void paintEvent(ZrPaintEvent *event) override
    {
        painted = event->region();
        ZrPainter(this).fillRect(rect(), color);
    }
    void mousePressEvent(ZrMouseEvent *event) override { noteMouse("press", event); }
    void mouseReleaseEvent(ZrMouseEvent *event) override { noteMouse("release", event); }
    void mouseDoubleClickEvent(ZrMouseEvent *event) override { noteMouse("double", event); }
    void mouseMoveEvent(ZrMouseEvent *event) override { noteMouse("move", event); }
    void wheelEvent(ZrWheelEvent *event) override
    {
        note("wheel" + std::to_string(event->delta()));
        event->setAccepted(takesMouse);
    }
    void enterEvent(ZrEvent *) override { note("enter"); }
    void leaveEvent(ZrEvent *) override { note("leave"); }
    void hoverEnterEvent(ZrHoverEvent *event) override
    {
        ZrWidget::hoverEnterEvent(event);
        note("hover" + at(event->position()));
    }
    void hoverLeaveEvent(ZrHoverEvent *event) override
    {
        ZrWidget::hoverLeaveEvent(event);
        note("unhover");
    }
    void showEvent(ZrShowEvent *) override { note("show"); }
    void hideEvent(ZrHideEvent *) override { note("hide"); }
    void resizeEvent(ZrResizeEvent *event) override
    {
        note("resize" + std::to_string(event->size().width()) + "x" +
             std::to_string(event->size().height()));
    }
    void focusInEvent(ZrFocusEvent *event) override
    {
        ZrWidget::focusInEvent(event);
        note("focus" + std::to_string(event->reason()));
    }
    void focusOutEvent(ZrFocusEvent *event) override
    {
        ZrWidget::focusOutEvent(event);
        note("blur" + std::to_string(event->reason()));
    }

private:
    static std::string at(const ZrPoint &point)
    {
        return std::to_string(point.x()) + "," + std::to_string(point.y());
    }
    void noteMouse(const char *what, ZrMouseEvent *event)
    {
        note(what + at(event->position()));
        event->setAccepted(takesMouse);
    }
    void note(const std::string &what) { *log_ += name_ + ":" + what + " "; }

    std::string name_;
    std::string *log_;
};

class WidgetTest : public testing::Test
{
protected:
    static constexpr int Width = 320;
    static constexpr int Height = 200;

    WidgetTest()
    {
        zrInstallGraphics();
        zrInstallWidgets();
        // The pointer's thread has no business here: the tests post what it would.
        ZrApplication::parts().makePointer = nullptr;
        screen = std::make_unique<zrtest::VirtualScreen>(Width, Height);
    }
    std::string take()
    {
        std::string taken;
        taken.swap(log);
        return taken;
    }

    std::unique_ptr<zrtest::VirtualScreen> screen;
    std::string log;
};
