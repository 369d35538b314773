// Tabs, headers of windows and panels, and what scrolls.
#include "pages.h"

#include "ui/controls/iconbutton.h"
#include "ui/controls/scrollarea.h"
#include "ui/controls/tabbar.h"
#include "ui/controls/titlebar.h"
#include "ui/controls/wndtitlebar.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrpushbutton>
#include <zrstackedwidget>
#include <zrtranslation>

namespace
{

constexpr float Wide = 740;
constexpr int Tabs = 4;

// Tabs, and under them the page that belongs to the current one.
class Paged : public ZrWidget
{
    ZR_OBJECT(Paged, ZrWidget)
public:
    Paged() : tabs_(new TabBar(this)), pages_(new ZrStackedWidget(this)) // children
    {
        for (int i = 1; i <= Tabs; ++i) {
            tabs_->addTab(tr(Text::GalleryTab).arg(i));
            auto *label = new ZrLabel(tr(Text::GalleryEntryNumber).arg(i)); // the pages'
            label->setAlignment(Zr::AlignCenter);
            pages_->addWidget(label);
        }
        tabs_->setTabEnabled(Tabs - 1, false);
        connect(tabs_, &tabs_->currentChanged, this, zrSlot<&Paged::turn>);
    }

protected:
    void resizeEvent(ZrResizeEvent *) override
    {
        const int high = tabs_->sizeHint().height();
        tabs_->setGeometry(ZrRect(0, 0, width(), high));
        pages_->setGeometry(ZrRect(0, high, width(), height() - high));
    }

private:
    void turn() { pages_->setCurrentIndex(tabs_->currentIndex()); }

    TabBar *tabs_;
    ZrStackedWidget *pages_;
};

// More buttons than show at once.
ZrWidget *tallPage()
{
    constexpr int Rows = 8;
    constexpr float RowUnits = 48;
    auto *page = new ZrWidget; // the scroll area's
    for (int row = 0; row < Rows; ++row)
        for (int column = 0; column < 2; ++column) {
            auto *button = new ZrPushButton(tr(Text::GalleryEntryNumber).arg(row * 2 + column + 1),
                                            page); // a child
            button->setGeometry(ZrRect(unitsX(12 + float(column) * 220),
                                       unitsY(8 + float(row) * RowUnits), unitsX(200), unitsY(38)));
        }
    page->resize(ZrSize(unitsX(460), unitsY(8 + Rows * RowUnits)));
    return page;
}

} // namespace

void fillTabs(GalleryPage &page)
{
    page.beginRow(Text::GalleryLargeTitle, WndTitleBar::HeightUnits);
    auto *header = page.add(new WndTitleBar(&page), Wide);
    header->setPicture("images/settings.png");
    header->setTitle(tr(Text::Recorder));
    header->setHint(tr(Text::GallerySmallHint));
    page.beginRow(Text::GalleryLargeTitle, TitleBar::HeightUnits);
    page.add(new TitleBar(tr(Text::GalleryLargeTitle), &page), Wide);
    page.beginRow(Text::GalleryTabs, 120);
    page.add(new Paged, Wide);
    page.beginRow(Text::GalleryTabs, 220);
    page.add(new ScrollArea, 472)->setWidget(tallPage());
}
