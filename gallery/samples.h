// Dialogs that the gallery shows.
#pragma once

#include "ui/dialogs/windowblocker.h"

#include <memory>
#include <zrdialog>
#include <zrpushbutton>

struct Sample {
    const char *name; // of its picture files
    int title;
    // A dialog that is made but not shown; the caller's.
    ZrDialog *(*make)();
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

// Waits for a while, as for App.
class SlowButton : public ZrPushButton
{
    ZR_OBJECT(SlowButton, ZrPushButton)
public:
    static constexpr int SlowMs = 4000;

    SlowButton();

private:
    void begin();
    void end() { blocker_.reset(); }

    std::unique_ptr<WindowBlocker> blocker_;
    ZrTimer timer_;
};
