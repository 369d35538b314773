#include "ui/controls/choicepage.h"

#include "ui/scale.h"

#include <algorithm>
#include <zrradiobutton>

namespace
{

constexpr float InsetUnits = 24;
constexpr float RowUnits = 42;
constexpr float NarrowestUnits = 320;

} // namespace

void ChoicePage::addChoice(int value, const ZrString &text)
{
    auto *button = new ZrRadioButton(text, this);
    group_.addButton(button, value);
    if (group_.count() == 1)
        button->setChecked(true);
    layoutForScale();
}

void ChoicePage::setValue(int value)
{
    if (ZrAbstractButton *button = group_.button(value))
        button->setChecked(true);
}

ZrRadioButton *ChoicePage::choice(int value) const
{
    return static_cast<ZrRadioButton *>(group_.button(value));
}

void ChoicePage::layoutForScale()
{
    const int x = unitsX(InsetUnits);
    for (int i = 0; i < group_.count(); ++i)
        group_.buttonAt(i)->setGeometry(ZrRect(x, unitsY(InsetUnits) + i * unitsY(RowUnits),
                                               std::max(1, width() - 2 * x), unitsY(RowUnits)));
}

ZrSize ChoicePage::preferredSize() const
{
    int widest = unitsX(NarrowestUnits);
    for (int i = 0; i < group_.count(); ++i)
        widest = std::max(widest, group_.buttonAt(i)->sizeHint().width());
    return ZrSize(widest + 2 * unitsX(InsetUnits),
                  group_.count() * unitsY(RowUnits) + 2 * unitsY(InsetUnits));
}
