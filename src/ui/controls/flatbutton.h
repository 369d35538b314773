// The look of a button that stands on a bar: no ground of its own until it matters.
#pragma once

class ZrPushButton;

void makeFlat(ZrPushButton *button);
