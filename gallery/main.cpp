// Every control of the toolkit and of the recorder, page by page, without App.
#include "gallerywindow.h"
#include "link/startup.h"
#include "pages.h"
#include "shots.h"
#include "ui/commonstyle.h"
#include "ui/input/zrkeymanager.h"
#include "ui/scale.h"
#include "widgets/zrinstallwidgets.h"

#include <cstdio>
#include <cstring>
#include <zrapplication>
#include <zrfontmetrics>
#include <zrgraphics>
#include <zrtranslation>

namespace
{

struct Options {
    const char *shots = nullptr;
    ShotChoice choice;
};

int usage()
{
    fputs("usage: zr-gallery [--shots FOLDER] [--page NAME] [--language NAME]\n"
          "  Run in the data folder. Without --shots, on the framebuffer under ZR_ROOT.\n"
          "  Pages:",
          stderr);
    for (int i = 0; i < PageCount; ++i)
        fprintf(stderr, " %s", Pages[i].name);
    fputs("\n", stderr);
    return 2;
}

bool read(int argc, char **argv, Options *options)
{
    for (int i = 1; i < argc; i += 2) {
        const char *value = i + 1 < argc ? argv[i + 1] : nullptr;
        if (value && strcmp(argv[i], "--shots") == 0)
            options->shots = value;
        else if (value && strcmp(argv[i], "--page") == 0)
            options->choice.page = value;
        else if (value && strcmp(argv[i], "--language") == 0)
            options->choice.language = value;
        else
            return false;
    }
    return true;
}

constexpr int FontCacheBytes = 1048576;

void loadFont()
{
    ZrFontMetrics::setFontFile(resolveResourcePath(ZrString("font/yahei_arial_gothic_unicode.ttf")),
                               FontCacheBytes);
}

int runInteractive(int argc, char **argv)
{
    readResourcePath();
    loadFont();
    ZrApplication application(argc, argv);
    const ZrRect &desktop = application.desktopRect();
    setScreenScale(desktop.width(), desktop.height());
    loadCommonStyle();
    ZrTranslation::createWithLanguage(&application, ZrTranslation::English);
    (new ZrKeyManager(&application))->startPanel(); // owned by the application
    GalleryWindow window;
    window.setAttribute(ZrWidget::DeleteOnClose, false);
    window.show();
    return application.exec();
}

} // namespace

int main(int argc, char **argv)
{
    Options options;
    if (!read(argc, argv, &options))
        return usage();
    zrInstallGraphics();
    zrInstallWidgets();
    if (!options.shots)
        return runInteractive(argc, argv);
    loadFont();
    ZrApplication::parts().makePointer = nullptr;
    return takeShots(options.shots, options.choice) ? 0 : 1;
}
