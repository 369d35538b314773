#include "ui/controls/primarybutton.h"

#include "ui/stylefiles.h"

#include <zrpushbutton>

void makePrimary(ZrPushButton *button)
{
    // data: style/commonstyle.ini Common/Primary/{Fore,Back}ground/{Normal,Hover,Focus,Disabled}
    const ZrIniFile &file = commonStyleFile();
    ZrPushButtonOption &option = button->style().pushButtonOption();
    const char *const states[] = {"Normal", "Hover", "Focus", "Disabled"};
    for (int state = 0; state < 4; ++state) {
        const ZrString word(states[state]);
        option.foreground.set(state,
                              file.colorValue(ZrString("Common/Primary/Foreground/") + word));
        option.background.set(state,
                              file.colorValue(ZrString("Common/Primary/Background/") + word));
    }
    option.borderColor.set(zrIndex(ZrVisualState::Focus),
                           ZrSideColors(file.colorValue(ZrString("Common/Primary/Border/Focus"))));
    button->update();
}
