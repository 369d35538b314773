// The sign that something takes long, and what. One for the whole screen.
#pragma once

#include <zrstring>

// Shows the sign, and has it on the screen when the call returns. A sign that is shown already
// changes its text.
void showBusySign(const ZrString &text);
void hideBusySign();
// From now on the sign tells of every request to App that is slow to be answered.
void watchSlowRequests();
void stopWatchingSlowRequests();
