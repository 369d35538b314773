// Six small icons in the corner of a cell: what records and what raises an alarm.
#pragma once

#include "cameras/zrchannel.h"

#include <zrwidget>

class RecordFlagBox : public ZrWidget
{
    ZR_OBJECT(RecordFlagBox, ZrWidget)
public:
    enum Flag { Recording, Motion, InputAlarm, Pir, Intelligent, FlagCount };

    explicit RecordFlagBox(ZrWidget *screen);

    // Keeps a copy of the flags and repaints only when one changes; null clears all.
    void setChannel(const ZrChannel *channel);
    bool isEmpty() const;

protected:
    void paintEvent(ZrPaintEvent *event) override;

private:
    bool flags_[FlagCount] = {};
};
