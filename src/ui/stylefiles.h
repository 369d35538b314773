// The style files of the recorder's own widgets, each read once.
#pragma once

#include <zrinifile>

// `path` is relative to the resources, such as "style/dialog.ini".
const ZrIniFile &styleFile(const char *path);
// The file that all share.
const ZrIniFile &commonStyleFile();
// Drops what was read, so that the next call reads anew.
void forgetStyleFiles();
