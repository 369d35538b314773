// The gallery on a virtual screen, worked by keys.
#pragma once

#include "gallery/gallerywindow.h"
#include "support/recorderscreen.h"
#include "ui/input/keynavigation.h"

class GalleryScreen : public zrtest::RecorderScreen
{
public:
    explicit GalleryScreen(const ZrSize &size = ZrSize(Width, Height))
        : zrtest::RecorderScreen(size)
    {
        window->hide();
        gallery = std::make_unique<GalleryWindow>();
        gallery->setAttribute(ZrWidget::DeleteOnClose, false);
        gallery->show();
        screen->settle();
    }
    ~GalleryScreen() override
    {
        gallery.reset();
        screen->settle();
    }

    KeyNavigation navigation;
    std::unique_ptr<GalleryWindow> gallery;
};
