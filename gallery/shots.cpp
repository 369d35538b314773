#include "shots.h"

#include "gallerywindow.h"
#include "pages.h"
#include "platform/framebufferdoor.h"
#include "popups.h"
#include "samples.h"
#include "ui/commonstyle.h"
#include "ui/dialogs/busysign.h"
#include "ui/scale.h"
#include "ui/text_ids.h"
#include "virtualboard.h"
#include "workbench/board/pngfile.h"

#include <filesystem>
#include <memory>
#include <zrapplication>
#include <zrtranslation>

namespace
{

struct Shot {
    std::string folder;
    std::string language;
    const VirtualBoard &board;

    bool take(const std::string &name) const
    {
        ZrApplication::instance()->processPending();
        const std::string file = folder + "/" + name + "-" + language + "-" +
                                 std::to_string(board.width()) + "x" +
                                 std::to_string(board.height()) + ".png";
        return writePng(board.picture(), file);
    }
};

bool takeDialogs(const Shot &shot)
{
    for (int i = 0; i < SampleCount; ++i) {
        const std::unique_ptr<ZrDialog> dialog(Samples[i].make());
        dialog->show();
        if (!shot.take(std::string("dialog-") + Samples[i].name))
            return false;
    }
    showBusySign(tr(Text::PleaseWaitFor).arg(tr(Text::SearchingRecordings)));
    const bool taken = shot.take("dialog-slow");
    hideBusySign();
    return taken;
}

bool takePopups(const Shot &shot, const GalleryPage &page, const std::string &name)
{
    for (int i = 0; i < PopupCount; ++i) {
        if (name != Popups[i].page)
            continue;
        if (!openPopup(page, Popups[i]) || !shot.take(Popups[i].name))
            return false;
        closePopup();
    }
    return true;
}

bool takePages(const Shot &shot, const std::string &onlyPage)
{
    GalleryWindow window;
    window.setAttribute(ZrWidget::DeleteOnClose, false);
    window.show();
    for (int i = 0; i < PageCount; ++i) {
        if (!onlyPage.empty() && onlyPage != Pages[i].name)
            continue;
        window.showPage(i);
        if (!shot.take(Pages[i].name) || !takePopups(shot, *window.page(), Pages[i].name))
            return false;
        if (Pages[i].fill == fillDialogs && !takeDialogs(shot))
            return false;
    }
    return true;
}

// "tran_english.xml" to "english".
std::string shortName(const ZrString &file)
{
    const std::string name = file.toUtf8().constData();
    return name.substr(5, name.size() - 9);
}

bool takeLanguages(const std::string &folder, const ShotChoice &choice, const VirtualBoard &board)
{
    ZrList<ZrString> files;
    ZrTranslation::languageFiles(&files);
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    ZrTranslation::availableLanguages(&low, &high);
    for (int number = 0; number < files.size(); ++number) {
        const bool hasFile = number < 32 ? low >> number & 1 : high >> (number - 32) & 1;
        const std::string language = shortName(files.at(number));
        if (!hasFile || (!choice.language.empty() && choice.language != language))
            continue;
        ZrTranslation::instance()->setLanguage(std::uint32_t(number));
        if (!takePages({folder, language, board}, choice.page))
            return false;
    }
    return true;
}

} // namespace

bool takeShots(const std::string &folder, const ShotChoice &choice)
{
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    VirtualBoard board(1280, 720);
    ZrApplication application(0, nullptr);
    ZrTranslation::createWithLanguage(&application, ZrTranslation::English);
    for (const ZrSize &size : {ZrSize(1280, 720), ZrSize(1920, 1080)}) {
        application.closeDisplay();
        board.resize(size.width(), size.height());
        application.reopenDisplay();
        setScreenScale(size.width(), size.height());
        loadCommonStyle();
        if (!takeLanguages(folder, choice, board))
            return false;
    }
    return true;
}
