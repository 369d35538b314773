#include "ui/controls/combobox.h"

#include "ui/keyboard/textkeyboard.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/text_ids.h"

#include <zrtranslation>

namespace
{

constexpr float RowUnits = 38;
constexpr float HeightUnits = 34;

} // namespace

ComboBox::ComboBox(ZrWidget *parent) : ZrComboBox(parent)
{
    if (ZrTranslation *texts = ZrTranslation::instance())
        connect(texts, &texts->languageChanged, this, zrSlot<&ComboBox::retranslate>);
}

void ComboBox::addText(int textId, int data)
{
    textRows_.append({data, textId});
    addItem(tr(textId), data);
}

// By data: rows may have been put in or taken away since.
void ComboBox::retranslate()
{
    for (const Row &row : textRows_)
        setItemText(findData(row.data), tr(row.textId));
}

ZrSize ComboBox::sizeHint() const
{
    return ZrSize(ZrComboBox::sizeHint().width(), unitsY(HeightUnits));
}

int ComboBox::popupRowHeight() const
{
    return unitsY(RowUnits);
}

// --- text that is typed ---

ZrList<ZrListWidgetItem> ComboBox::extraRows() const
{
    ZrList<ZrListWidgetItem> rows;
    if (!isEditable())
        return rows;
    ZrListWidgetItem keyboard(tr(Text::ScreenKeyboard));
    keyboard.setIcon(picture("images/edit-keyboard.png"));
    rows.append(keyboard);
    return rows;
}

void ComboBox::extraRowChosen(int)
{
    openKeyboard();
}

void ComboBox::openKeyboard()
{
    if (!isServed())
        (new TextKeyboard(this, TextKeyboard::Open))->open(); // deletes itself
}

void ComboBox::mouseReleaseEvent(ZrMouseEvent *event)
{
    const bool inText = isEditable() && textRect().contains(event->position());
    if (event->button() != Zr::LeftButton || !inText)
        return ZrComboBox::mouseReleaseEvent(event);
    event->accept();
    openKeyboard();
}
