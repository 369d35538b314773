// The gallery's one window: a menu of pages at the leading edge, and the page that is chosen.
#pragma once

#include "gallerypage.h"

#include <zrcombobox>
#include <zrlistwidget>

class GalleryWindow : public ZrWidget
{
    ZR_OBJECT(GalleryWindow, ZrWidget)
public:
    GalleryWindow();

    void showPage(int index);
    GalleryPage *page() const { return page_; }

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    void rowChosen();
    void retranslate();
    void makeMenu();
    void languageChosen();

    ZrListWidget *menu_ = nullptr;
    ZrComboBox *languages_ = nullptr;
    GalleryPage *page_ = nullptr;
    int current_ = -1;
    ZrColor bar_;
    ZrColor line_;
    ZrColor text_;
};
