// Dialogs that the gallery shows.
#pragma once

#include "ui/dialogs/dialogframe.h"

#include <zrpushbutton>

struct Sample {
    const char *name; // of its picture files
    int title;
    // A dialog that is made but not shown; the caller's.
    DialogFrame *(*make)();
};

extern const Sample Samples[];
extern const int SampleCount;

// Opens a sample and waits for its answer.
class SampleButton : public ZrPushButton
{
    ZR_OBJECT(SampleButton, ZrPushButton)
public:
    explicit SampleButton(const Sample &sample);

private:
    void open();
    const Sample &sample_;
};
