#include "ui/controls/importsourceselector.h"

#include "ui/text_ids.h"

#include <zrtranslation>

ImportSourceSelector::ImportSourceSelector(ZrWidget *parent) : ChoicePage(parent)
{
    addChoice(UsbDrive, tr(Text::UsbDrive));
    addChoice(NetworkFolder, tr(Text::NetworkFolder));
}
