#include "link/linklog.h"

#include <cstdarg>
#include <cstdio>

void linkLog(const char *routine, int line, const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    fprintf(stderr, "[%s] func: [%s], , line: [%d] %s\n", "IPC_UI_QT", routine, line, text);
}
