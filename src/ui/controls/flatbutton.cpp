#include "ui/controls/flatbutton.h"

#include "ui/stylefiles.h"

#include <zrpushbutton>

void makeFlat(ZrPushButton *button)
{
    const ZrIniFile &file = commonStyleFile();
    ZrPushButtonOption &option = button->style().pushButtonOption();
    const struct {
        ZrVisualState state;
        ZrColor ground;
    } grounds[] = {
        {ZrVisualState::Normal, ZrColor()},
        {ZrVisualState::Hover, file.colorValue(ZrString("Common/Background/Hover"))},
        {ZrVisualState::Focus, file.colorValue(ZrString("Common/Background/Current"))},
        {ZrVisualState::Disabled, ZrColor()},
        {ZrVisualState::On, file.colorValue(ZrString("Common/Background/Current"))},
    };
    for (const auto &row : grounds) {
        option.background.set(zrIndex(row.state), row.ground);
        option.borderWidth.set(zrIndex(row.state), ZrSides());
    }
    for (const ZrVisualState state : {ZrVisualState::HoverOn, ZrVisualState::FocusOn})
        option.borderWidth.set(zrIndex(state), ZrSides());
    option.padding.set(zrIndex(ZrVisualState::Normal), ZrSides());
    button->update();
}
