// A virtual screen with the shipped font, a plain style and one window, for tests of what is typed.
#pragma once

#include "support/closepopups.h"
#include "support/virtualscreen.h"
#include "widgets/zrdesktop.h"
#include "widgets/zrinstallwidgets.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <zrfontmetrics>
#include <zrgraphics>
#include <zrstyle>
#include <zrwidget>

namespace zrtest
{

inline std::string utf8(const ZrString &text)
{
    return std::string(text.toUtf8().constData());
}

class EntryScreen : public testing::Test
{
public:
    static constexpr int Width = 640;
    static constexpr int Height = 400;

    EntryScreen()
    {
        zrInstallGraphics();
        zrInstallWidgets();
        ZrApplication::parts().makePointer = nullptr;
        screen = std::make_unique<VirtualScreen>(Width, Height);
        EXPECT_TRUE(ZrFontMetrics::setFontFile(
            ZR_BINARY_DIR "/data/font/yahei_arial_gothic_unicode.ttf", 5 << 20));
        fillStyle();
        window = std::make_unique<ZrWidget>();
        window->setAttribute(ZrWidget::DeleteOnClose, false);
        window->setGeometry(ZrRect(0, 0, Width, Height));
        window->setBackgroundColor(ZrColor(0, 0, 0));
        window->show();
        screen->settle();
    }
    ~EntryScreen() override
    {
        closePopups(*screen);
        window.reset();
        screen.reset();
        ZrStyle::applicationStyle() = ZrStyle();
    }

    template <typename Control>
    Control *show(Control *control, const ZrRect &where)
    {
        control->setGeometry(where);
        control->show();
        control->setFocus(Zr::KeyManagerFocus);
        screen->settle();
        return control;
    }
    // To whoever has the focus; false when nobody took it.
    bool key(int code, const char *text = "")
    {
        ZrKeyEvent event(ZrEvent::KeyPress, code, ZrString(text));
        if (ZrWidget *focus = ZrDesktop::focusWidget())
            ZrApplication::notify(focus, &event);
        screen->settle();
        return event.isAccepted();
    }
    bool type(const char *text) { return key(0, text); }

    std::unique_ptr<VirtualScreen> screen;
    std::unique_ptr<ZrWidget> window;

private:
    static void fillStyle()
    {
        ZrStyle &style = ZrStyle::applicationStyle();
        style.widgetOption().font.set(0, ZrFont(20));
        fillField(style.lineEditOption());
        fillField(style.dateEditOption());
        fillField(style.toolTipOption());
        style.lineEditOption().cursorWidth.set(0, 2);
        style.lineEditOption().selectionBackground.set(0, ZrColor(56, 160, 248));
        style.lineEditOption().selectionForeground.set(0, ZrColor(16, 20, 24));
    }
    static void fillField(ZrFrameOption &option)
    {
        option.foreground.set(0, ZrColor(232, 240, 248));
        option.background.set(0, ZrColor(32, 40, 48));
        option.padding.set(0, ZrSides(0, 10, 0, 10));
        option.align.set(0, Zr::AlignLeft | Zr::AlignVCenter);
    }
};

} // namespace zrtest
