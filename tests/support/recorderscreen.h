// A virtual screen with the shipped font, style, pictures and English texts, and one window.
// Needs the data folder: its targets are what the test program must depend on.
#pragma once

#include "support/closepopups.h"
#include "support/signallog.h"
#include "support/virtualscreen.h"
#include "ui/commonstyle.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "widgets/zrdesktop.h"
#include "widgets/zrinstallwidgets.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <zrfontmetrics>
#include <zrgraphics>
#include <zrtranslation>
#include <zrwidget>

namespace zrtest
{

class RecorderScreen : public testing::Test
{
public:
    static constexpr int Width = 1280;
    static constexpr int Height = 720;

    explicit RecorderScreen(const ZrSize &size = ZrSize(Width, Height))
        : folder_(std::filesystem::current_path())
    {
        std::filesystem::current_path(ZR_BINARY_DIR "/data");
        zrInstallGraphics();
        zrInstallWidgets();
        ZrApplication::parts().makePointer = nullptr;
        screen = std::make_unique<VirtualScreen>(size.width(), size.height());
        setScreenScale(size.width(), size.height());
        EXPECT_TRUE(ZrFontMetrics::setFontFile("font/yahei_arial_gothic_unicode.ttf", 5 << 20));
        forgetStyleFiles();
        forgetPictures();
        loadCommonStyle();
        ZrTranslation::createWithLanguage(&screen->application(), ZrTranslation::English);
        window = std::make_unique<ZrWidget>();
        window->setAttribute(ZrWidget::DeleteOnClose, false);
        window->setGeometry(ZrRect(ZrPoint(0, 0), size));
        window->show();
        screen->settle();
    }
    ~RecorderScreen() override
    {
        closePopups(*screen);
        window.reset();
        screen.reset();
        ZrStyle::applicationStyle() = ZrStyle();
        std::filesystem::current_path(folder_);
    }

    template <typename Control>
    Control *show(Control *control, const ZrRect &where)
    {
        control->setGeometry(where);
        control->show();
        screen->settle();
        return control;
    }
    // To whoever has the focus and then up its parents; false when nobody took it.
    bool key(int code)
    {
        ZrKeyEvent event(ZrEvent::KeyPress, code);
        for (ZrWidget *widget = ZrDesktop::focusWidget(); widget; widget = widget->parentWidget()) {
            ZrApplication::notify(widget, &event);
            if (event.isAccepted())
                break; // the widget may be gone
        }
        screen->settle();
        return event.isAccepted();
    }
    static std::string utf8(const ZrString &text) { return std::string(text.toUtf8().constData()); }

    std::unique_ptr<VirtualScreen> screen;
    std::unique_ptr<ZrWidget> window;

private:
    std::filesystem::path folder_;
};

} // namespace zrtest
