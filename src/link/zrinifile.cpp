#include <zrinifile>

#include "platform/boardpath.h"

#include <cstdint>
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

// What a character does to the token it stands in.
enum class Role : uint8_t { Text, Blank, End, Slash };

struct Roles {
    Role of[256] = {};
    constexpr Roles()
    {
        for (unsigned char blank : {' ', '\t'})
            of[blank] = Role::Blank;
        for (unsigned char end : {'\0', '"', '=', ']', '\n', ';'})
            of[end] = Role::End;
        of[static_cast<unsigned char>('\\')] = Role::Slash;
    }
};
constexpr Roles kRoles;

struct Token {
    char *text;
    int length;
};

// Cuts the token out in place: behind it stands a zero.
Token cutToken(char *text)
{
    while (isBlank(*text))
        ++text;
    const bool isQuoted = *text == '"';
    if (isQuoted || *text == '[')
        ++text;
    char *end = text;
    for (;; ++end) {
        const Role role = kRoles.of[uint8_t(*end)];
        if (role == Role::Slash)
            *end = '/';
        else if (role == Role::End || (role == Role::Blank && !isQuoted))
            break;
    }
    // There is always room behind a "]": at least the line's own terminator.
    if (*end == ']')
        *end++ = '/';
    *end = 0;
    return {text, int(end - text)};
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
    std::string section;
    size_t bytes = 0;
    while (fgets(line, sizeof line, file.get())) {
        bytes += strlen(line);
        if (bytes > MostBytes) {
            fprintf(stderr, "ini file too large, the rest is left out: %s\n", path);
            return;
        }
        readLine(line, &section);
    }
}

void ZrIniFile::readLine(char *line, std::string *section)
{
    char *equals = strchr(line, '=');
    if (!equals) {
        if (char *bracket = strchr(line, '['))
            *section = cutToken(bracket).text;
        return;
    }
    // The value first: cutting the key may put its zero over the "=", or behind it.
    const Token value = cutToken(equals + 1);
    const Token key = cutToken(line);
    char name[2 * kLineSize]; // one string for both parts, converted once
    memcpy(name, section->data(), section->size());
    memcpy(name + section->size(), key.text, size_t(key.length));
    values_.insert(ZrString(name, int(section->size()) + key.length),
                   ZrString(value.text, value.length));
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
