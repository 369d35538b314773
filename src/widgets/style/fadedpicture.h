// What a picture looks like on a control that cannot be used.
#pragma once

#include <zrpixmap>

// Half as opaque.
ZrPixmap fadedPicture(const ZrPixmap &picture);
