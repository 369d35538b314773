// Windows that are there when the language changes.
#include "language/translatorapp.h"
#include "link/deviceparams.h"
#include "live/layoutmenus.h"
#include "live/zrvideoscreenlayoutmanager.h"
#include "support/virtualscreen.h"
#include "ui/controls/iconbutton.h"
#include "ui/dialogs/msgbox.h"
#include "ui/text_ids.h"
#include "widgets/zrinstallwidgets.h"

#include <filesystem>
#include <functional>
#include <unistd.h>
#include <zrgraphics>
#include <zrpushbutton>
#include <zrtranslation>

namespace
{

constexpr std::uint32_t English = 4;
constexpr std::size_t ChannelCountOffset = 72;

} // namespace

TEST(LanguageOfWindows, IsChangedWhileTheyAreOpen)
{
    ASSERT_EQ(chdir(ZR_BINARY_DIR "/data"), 0);
    DeviceParamBlock block;
    block.bytes[ChannelCountOffset] = 16;
    setDeviceParamBlock(block);
    zrInstallGraphics();
    zrInstallWidgets();
    ZrApplication::parts().makePointer = nullptr;
    zrtest::VirtualScreen screen(1280, 720);
    TranslatorApp app(testing::TempDir() + "zrwindows" + std::to_string(getpid()));
    app.configure(English, 0, 0);
    ZrObject parent;
    ZrTranslation::createTranslation(&parent);
    // Another test of this process may have had an English of its own.
    ZrTranslation::instance()->setLanguage(ZrTranslation::NoLanguage);
    ZrTranslation::instance()->setLanguage(English);

    ScreanLayoutMenu menu;
    menu.setAttribute(ZrWidget::DeleteOnClose, false);
    const std::unique_ptr<MoreLayoutMenu> more(MoreLayoutMenu::instance());
    MsgBox::Request request;
    request.buttons = MsgBox::Yes | MsgBox::Cancel;
    MsgBox message(request);
    message.setAttribute(ZrWidget::DeleteOnClose, false);
    const auto nameOf = [](const IconButton *button) {
        return ZrVideoScreenLayoutManager::instance()->nameOfMode(button->action());
    };
    const struct {
        const char *what;
        std::function<ZrString()> shown, wanted;
    } rows[] = {
        {"title of the modes", [&] { return menu.toolTip(); }, [] { return tr(Text::SplitModes); }},
        {"a mode", [&] { return menu.buttons().at(1)->toolTip(); },
         [&] { return nameOf(menu.buttons().at(1)); }},
        {"an uneven mode", [&] { return more->buttons().at(1)->toolTip(); },
         [&] { return nameOf(more->buttons().at(1)); }},
        {"yes", [&] { return message.button(MsgBox::Yes)->text(); }, [] { return tr(Text::Yes); }},
        {"cancel", [&] { return message.button(MsgBox::Cancel)->text(); },
         [] { return tr(Text::Cancel); }},
    };
    std::vector<ZrString> before;
    for (const auto &row : rows) {
        EXPECT_FALSE(row.shown().isEmpty()) << row.what;
        EXPECT_TRUE(row.shown() == row.wanted()) << row.what;
        before.push_back(row.shown());
    }
    for (const std::uint32_t language : {7, 12, 21}) { // German, Japanese, Arabic
        ZrTranslation::instance()->setLanguage(language);
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            EXPECT_TRUE(rows[i].shown() == rows[i].wanted()) << language << " " << rows[i].what;
            EXPECT_FALSE(rows[i].shown() == before[i]) << language << " " << rows[i].what;
        }
    }
}
