// The pictures of the interface, each read once.
#pragma once

#include <zrpixmap>

// `path` is relative to the resources, such as "images/settings.png". A picture that cannot be read
// is null.
const ZrPixmap &picture(const char *path);
// Pixels that it takes on this screen: the files are drawn for one of 1920 by 1080.
ZrSize pictureSize(const ZrPixmap &picture);
// Drops what was read, so that the next call reads anew.
void forgetPictures();
