// Log lines of the App link on standard error.
#pragma once

// Writes "[IPC_UI_QT] func: [ROUTINE], , line: [LINE] ", the formatted text and a line feed in one
// piece, so that lines of several threads do not mix.
void linkLog(const char *routine, int line, const char *format, ...)
    __attribute__((format(printf, 3, 4)));

#define LINK_LOG(routine, ...) linkLog(routine, __LINE__, __VA_ARGS__)
