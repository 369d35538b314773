// Lists, drop boxes and menus.
#include "pages.h"

#include "link/startup.h"
#include "ui/controls/checklist.h"
#include "ui/controls/combobox.h"
#include "ui/controls/menu.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrlistwidget>
#include <zrpushbutton>
#include <zrtranslation>

namespace
{

constexpr float FieldWidth = 164;
constexpr Pose Poses[] = {Pose::AsItIs, Pose::Hovered, Pose::Focused, Pose::Disabled};

ZrString entry(int number)
{
    return tr(Text::GalleryEntryNumber).arg(number);
}

// Drops a menu with a row of every kind.
class MenuButton : public ZrPushButton
{
    ZR_OBJECT(MenuButton, ZrPushButton)
public:
    MenuButton() : ZrPushButton(tr(Text::More))
    {
        connect(this, &clicked, this, zrSlot<&MenuButton::drop>);
    }

private:
    void drop()
    {
        auto *menu = new Menu; // deletes itself
        menu->setItemUnits(240, 44);
        menu->addItem(1, tr(Text::GalleryPlain));
        MenuItem *pictured = menu->addItem(2, tr(Text::GalleryPictureButton));
        pictured->picture = image("images/settings.png");
        pictured->hoverPicture = image("images/settings-hover.png");
        menu->addItem(3, tr(Text::GallerySwitchedOn))->checked = true;
        menu->addSeparator();
        menu->addItem(4, tr(Text::Disabled))->enabled = false;
        menu->addItem(5, tr(Text::Close));
        menu->popup(mapToGlobal(ZrPoint(0, height() + unitsY(4))));
    }
    static ZrPixmap image(const char *path)
    {
        return ZrPixmap(resolveResourcePath(ZrString(path)));
    }
};

} // namespace

void fillLists(GalleryPage &page)
{
    page.beginRow(Text::GalleryLists, 36);
    auto *first = page.add(new ComboBox, FieldWidth, "combo");
    for (const Pose pose : Poses) {
        auto *box = pose == Pose::AsItIs ? first : page.add(new ComboBox, FieldWidth, pose);
        for (int i = 1; i <= 64; ++i)
            box->addItem(entry(i));
        box->setCurrentIndex(2);
    }
    page.beginRow(Text::GalleryLists, 36);
    auto *edit = page.add(new ComboBox, FieldWidth, "editable-combo");
    edit->addItem(entry(1));
    edit->addItem(entry(2));
    edit->setEditable(true);
    page.add(new MenuButton, FieldWidth, "menu");
    page.beginRow(Text::GalleryLists, 240);
    for (const Pose pose : {Pose::AsItIs, Pose::Focused, Pose::Disabled}) {
        auto *list = page.add(new ZrListWidget, 220, pose);
        for (int i = 1; i <= 20; ++i)
            list->addItem(entry(i));
        list->setCurrentRow(1);
    }
    page.beginRow(Text::Filter, 200);
    ZrStringList texts;
    ZrBitArray checked(12);
    for (int i = 1; i <= 12; ++i) {
        texts.append(entry(i));
        checked.setBit(i - 1, i % 3 == 0);
    }
    for (const Pose pose : {Pose::AsItIs, Pose::Focused, Pose::Disabled})
        page.add(new CheckList, 220, pose)->setRows(texts, checked);
}
