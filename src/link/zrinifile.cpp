#include <zrinifile>

#include "platform/boardpath.h"

#include <cstdio>
#include <cstring>
#include <memory>

namespace
{

constexpr int kLineSize = 512; // with its terminator

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

// Cuts the token out in place: its text begins at the result and is zero-terminated.
char *cutToken(char *text)
{
    while (isBlank(*text))
        ++text;
    const bool isQuoted = *text == '"';
    if (isQuoted || *text == '[')
        ++text;
    char *end = text;
    for (; *end && !strchr("\"=]\n;", *end) && (isQuoted || !isBlank(*end)); ++end) {
        if (*end == '\\')
            *end = '/';
    }
    // There is always room behind a "]": at least the line's own terminator.
    if (*end == ']')
        *end++ = '/';
    *end = 0;
    return text;
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Up to four numbers, each behind at least one character that is no digit; how many there were.
int readNumbers(const char *text, int (&numbers)[4])
{
    int count = 0;
    for (; count < 4; ++count) {
        const char *begin = text;
        while (*text && !isDigit(*text))
            ++text;
        if (text == begin || !*text)
            break;
        unsigned number = 0; // a long one wraps; only its low byte counts
        for (; isDigit(*text); ++text)
            number = number * 10 + unsigned(*text - '0');
        numbers[count] = int(number & 0xFF);
    }
    return count;
}

struct CloseFile {
    void operator()(FILE *file) const { fclose(file); }
};

} // namespace

ZrIniFile::ZrIniFile(const ZrString &path, Mode mode) : ZrIniFile(path.toUtf8().constData(), mode)
{
}

ZrIniFile::ZrIniFile(const char *path, Mode mode)
{
    if (!path)
        return;
    std::unique_ptr<FILE, CloseFile> file(fopen(boardPath(path).c_str(), "re"));
    if (!file) {
        perror("open ini file failed");
        return;
    }
    if (mode == Mode::ProbeOnly)
        return;
    char line[kLineSize];
    ZrString section;
    while (fgets(line, sizeof line, file.get()))
        readLine(line, &section);
}

void ZrIniFile::readLine(char *line, ZrString *section)
{
    char *equals = strchr(line, '=');
    if (!equals) {
        if (char *bracket = strchr(line, '['))
            *section = ZrString(cutToken(bracket));
        return;
    }
    // The value first: cutting the key may put its zero over the "=", or behind it.
    const ZrString text(cutToken(equals + 1));
    ZrString key = *section;
    key.append(ZrString(cutToken(line)));
    values_.insert(key, text);
}

ZrColor ZrIniFile::colorValue(const ZrString &key) const
{
    if (isEmpty())
        return ZrColor();
    const ZrByteArray text = value(key).toUtf8();
    int numbers[4] = {0, 0, 0, 255};
    if (readNumbers(text.constData(), numbers) == 0)
        numbers[3] = 0;
    return ZrColor(numbers[0], numbers[1], numbers[2], numbers[3]);
}
