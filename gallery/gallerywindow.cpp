#include "gallerywindow.h"

#include "pages.h"
#include "ui/scale.h"
#include "ui/stylefiles.h"
#include "ui/text_ids.h"

#include <zrapplication>
#include <zrpainter>
#include <zrtranslation>

namespace
{

// Units.
constexpr float BarHeight = 52;
constexpr float MenuWidth = 264;
constexpr float MenuRow = 46;
constexpr float TitleFont = 18;
constexpr float Inset = 24;
constexpr float LanguageWidth = 200;
constexpr float FieldHeight = 34;

} // namespace

GalleryWindow::GalleryWindow()
{
    const ZrIniFile &file = commonStyleFile();
    setBackgroundColor(file.colorValue(ZrString("Common/Background/Normal")));
    bar_ = file.colorValue(ZrString("Common/Background/Panel"));
    line_ = file.colorValue(ZrString("Common/Border/Normal"));
    text_ = file.colorValue(ZrString("Common/Foreground/Normal"));
    setGeometry(ZrApplication::instance()->desktopRect());
    makeMenu();
    showPage(0);
    connect(ZrTranslation::instance(), &ZrTranslation::instance()->languageChanged, this,
            zrSlot<&GalleryWindow::retranslate>);
}

void GalleryWindow::makeMenu()
{
    menu_ = new ZrListWidget(this);
    menu_->setRowHeight(unitsY(MenuRow));
    menu_->setGeometry(
        ZrRect(0, unitsY(BarHeight), unitsX(MenuWidth), height() - unitsY(BarHeight)));
    connect(menu_, &menu_->currentRowChanged, this, zrSlot<&GalleryWindow::rowChosen>);

    languages_ = new ZrComboBox(this);
    languages_->setGeometry(ZrRect(width() - unitsX(LanguageWidth + Inset),
                                   unitsY((BarHeight - FieldHeight) / 2), unitsX(LanguageWidth),
                                   unitsY(FieldHeight)));
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    ZrTranslation::availableLanguages(&low, &high);
    for (int number = 0; number < ZrTranslation::LanguageCount; ++number) {
        if (number < 32 ? low >> number & 1 : high >> (number - 32) & 1)
            languages_->addItem(tr(Text::FirstLanguageName + number), number);
        if (std::uint32_t(number) == ZrTranslation::instance()->currentLanguage())
            languages_->setCurrentIndex(languages_->count() - 1);
    }
    connect(languages_, &languages_->activated, this, zrSlot<&GalleryWindow::languageChosen>);
    retranslate();
}

void GalleryWindow::retranslate()
{
    ZrList<ZrListWidgetItem> items;
    for (int i = 0; i < PageCount; ++i)
        items.append(ZrListWidgetItem(tr(Pages[i].title), i));
    const bool blocked = menu_->blockSignals(true);
    menu_->setItems(items);
    menu_->setCurrentRow(current_);
    menu_->blockSignals(blocked);
    if (page_) {
        const int shown = current_;
        current_ = -1;
        showPage(shown);
    }
    update();
}

void GalleryWindow::languageChosen()
{
    ZrTranslation::instance()->setLanguage(
        std::uint32_t(languages_->itemData(languages_->currentIndex())));
}

void GalleryWindow::rowChosen()
{
    if (menu_->currentRow() >= 0)
        showPage(menu_->currentRow());
}

void GalleryWindow::showPage(int index)
{
    if (index == current_)
        return;
    current_ = index;
    if (page_)
        page_->deleteLater();
    if (page_)
        page_->hide();
    page_ = new GalleryPage(this);
    page_->setGeometry(
        ZrRect::fromEdges(unitsX(MenuWidth), unitsY(BarHeight), width() - 1, height() - 1));
    Pages[index].fill(*page_);
    page_->show();
    page_->strikePoses();
    const bool blocked = menu_->blockSignals(true);
    menu_->setCurrentRow(index);
    menu_->blockSignals(blocked);
}

void GalleryWindow::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    const int bar = unitsY(BarHeight);
    const int menu = unitsX(MenuWidth);
    painter.fillRect(ZrRect(0, 0, width(), bar), bar_);
    painter.fillRect(ZrRect(0, bar, menu, height() - bar), bar_);
    painter.fillRect(ZrRect(0, bar - 1, width(), 1), line_);
    painter.setPen(text_);
    painter.setFont(ZrFont(fontUnits(TitleFont)));
    painter.drawText(ZrRect(unitsX(Inset), 0, width() / 2, bar), Zr::AlignLeft | Zr::AlignVCenter,
                     tr(Text::Gallery));
}
