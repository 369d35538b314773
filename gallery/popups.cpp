#include "popups.h"

#include "ui/keyboard/keyboardlayouts.h"
#include "ui/keyboard/textkeyboard.h"
#include "widgets/zrdesktop.h"

#include <zrabstractbutton>
#include <zrapplication>

const PopupKind Popups[] = {
    {"keyboards", "keyboard-digits", "digits"},
    {"keyboards", "keyboard-address", "address"},
    {"keyboards", "keyboard-text", "text"},
    {"numbers", "calendar", "date"},
    {"lists", "combo", "combo"},
    {"lists", "editable-combo", "editable-combo"},
    {"lists", "menu", "menu"},
};
const int PopupCount = int(sizeof Popups / sizeof *Popups);

namespace
{

void sendKey(ZrWidget *widget, int key, const char *text = "")
{
    ZrKeyEvent event(ZrEvent::KeyPress, key, ZrString(text));
    ZrApplication::notify(widget, &event);
}

// Where letters choose among words, something to choose from.
void spell(ZrWidget *popup)
{
    constexpr const char *Letters[] = {"s", "h", "i"};
    const auto *keyboard = dynamic_cast<TextKeyboard *>(popup);
    if (!keyboard || !keyboardLayouts()[std::size_t(keyboard->layout())].pinyin)
        return;
    for (const char *letter : Letters)
        sendKey(popup, 0, letter);
}

} // namespace

bool openPopup(const GalleryPage &page, const PopupKind &kind)
{
    ZrWidget *control = page.named(kind.control);
    if (!control)
        return false;
    if (auto *button = dynamic_cast<ZrAbstractButton *>(control))
        button->click();
    else
        sendKey(control, Zr::Key_Enter);
    ZrWidget *popup = ZrDesktop::activePopup();
    if (popup)
        spell(popup);
    return popup != nullptr;
}

void closePopup()
{
    if (ZrWidget *popup = ZrDesktop::activePopup())
        sendKey(popup, Zr::Key_Escape);
}
