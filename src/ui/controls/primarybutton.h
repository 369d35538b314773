// The look of the one button on a screen that goes on.
#pragma once

class ZrPushButton;

void makePrimary(ZrPushButton *button);
