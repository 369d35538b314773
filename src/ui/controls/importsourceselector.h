// Where an import takes its files from.
#pragma once

#include "ui/controls/choicepage.h"

class ImportSourceSelector : public ChoicePage
{
    ZR_OBJECT(ImportSourceSelector, ChoicePage)
public:
    enum Source { UsbDrive, NetworkFolder };

    explicit ImportSourceSelector(ZrWidget *parent = nullptr);

    Source source() const { return Source(value()); }
};
