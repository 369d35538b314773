#include "ui/controls/daysselector.h"

#include "ui/controls/pressedbutton.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrtranslation>

namespace
{

constexpr float DayUnits = 56;
constexpr float HeightUnits = 34;
constexpr float GapUnits = 4;

} // namespace

DaysSelector::DaysSelector(ZrWidget *parent) : ZrWidget(parent)
{
    for (PressedButton *&button : buttons_) {
        button = new PressedButton(ZrString(), this);
        connect(button, &button->clicked, this, zrSlot<&DaysSelector::dayClicked>);
    }
    retranslate();
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&DaysSelector::retranslate>);
}

void DaysSelector::retranslate()
{
    for (int day = 0; day < Days; ++day)
        buttons_[day]->setText(tr(Text::ShortMonday + day));
}

void DaysSelector::dayClicked()
{
    emit(this, &daysChanged);
}

int DaysSelector::days() const
{
    int mask = 0;
    for (int day = 0; day < Days; ++day)
        mask |= buttons_[day]->isChecked() ? 1 << day : 0;
    return mask;
}

void DaysSelector::setDays(int mask)
{
    for (int day = 0; day < Days; ++day)
        buttons_[day]->setChecked(mask >> day & 1);
}

ZrSize DaysSelector::sizeHint() const
{
    return ZrSize(Days * unitsX(DayUnits) + (Days - 1) * unitsX(GapUnits), unitsY(HeightUnits));
}

void DaysSelector::resizeEvent(ZrResizeEvent *)
{
    const int gap = unitsX(GapUnits);
    const int room = width() - (Days - 1) * gap;
    for (int day = 0; day < Days; ++day) {
        const int left = room * day / Days;
        buttons_[day]->setGeometry(
            ZrRect(left + day * gap, 0, room * (day + 1) / Days - left, height()));
    }
}
