#include "ui/controls/formattypeselector.h"

#include "ui/text_ids.h"

#include <zrtranslation>

FormatTypeSelector::FormatTypeSelector(ZrWidget *parent) : ChoicePage(parent)
{
    addChoice(Everything, tr(Text::EraseEverything));
    addChoice(Recordings, tr(Text::EraseRecordings));
    addChoice(AiData, tr(Text::EraseAiData));
}
