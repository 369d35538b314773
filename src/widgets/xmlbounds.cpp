#include "widgets/xmlbounds.h"

#include "zrtool/utf8.h"

#include <cstring>
#include <strings.h>

namespace
{

// Follows TinyXML's grammar, which is looser than XML's: where it differs from XML, TinyXML is
// right. Every step stops at the zero behind the text.
class Scan
{
public:
    explicit Scan(const char *text) : at_(text) {}
    bool document();
    int elements() const { return elements_; }

private:
    bool node();
    bool openElement();
    bool closeElement();
    bool attribute();
    bool declaration();
    bool name();
    bool skipText(char end);
    void skipSpace();
    void skipPast(const char *end);
    void skipBetween(const char *start, const char *end);
    bool startsWith(const char *start) const
    {
        return std::strncmp(at_, start, std::strlen(start)) == 0;
    }
    bool startsWithAnyCase(const char *start) const
    {
        return strncasecmp(at_, start, std::strlen(start)) == 0;
    }

    const char *at_;
    int depth_ = 0;
    int nodes_ = 0;
    int elements_ = 0;
};

bool isSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool isNameStart(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    const unsigned char lower = byte | 0x20;
    return byte >= 127 || byte == '_' || (lower >= 'a' && lower <= 'z');
}

bool isNamePart(char character)
{
    return isNameStart(character) || (character >= '0' && character <= '9') || character == '-' ||
           character == '.' || character == ':';
}

bool Scan::document()
{
    for (skipSpace(); *at_; skipSpace()) {
        if (*at_ == '<') {
            if (!node())
                return false;
        } else if (depth_ > 0) {
            ++nodes_;
            if (!skipText('<'))
                return false;
        } else {
            return true; // TinyXML reads no further either
        }
        if (nodes_ > XmlBounds::Nodes || depth_ > XmlBounds::Depth)
            return false;
    }
    return depth_ == 0;
}

bool Scan::node()
{
    if (depth_ > 0 && at_[1] == '/')
        return closeElement();
    ++nodes_;
    if (isNameStart(at_[1]))
        return openElement();
    if (startsWithAnyCase("<?xml"))
        return declaration();
    if (startsWith("<!--"))
        skipBetween("<!--", "-->"); // which share no sign: "<!-->" is not yet the end
    else if (startsWith("<![CDATA["))
        skipBetween("<![CDATA[", "]]>");
    else
        skipPast(">");
    return true;
}

bool Scan::openElement()
{
    ++elements_;
    ++at_;
    skipSpace(); // a byte order mark counts as the start of a name and as space
    if (!name())
        return false;
    for (int attributes = 0;; ++attributes) {
        skipSpace();
        if (*at_ == '>') {
            ++at_;
            ++depth_;
            return true;
        }
        if (*at_ == '/') {
            const bool isEmpty = at_[1] == '>';
            at_ += isEmpty ? 2 : 0;
            return isEmpty;
        }
        if (attributes == XmlBounds::Attributes || !attribute())
            return false;
    }
}

// TinyXML compares the name; one that differs ends its reading.
bool Scan::closeElement()
{
    --depth_;
    skipPast(">");
    return true;
}

bool Scan::attribute()
{
    if (!name())
        return false;
    skipSpace();
    if (*at_ != '=')
        return false;
    ++at_;
    skipSpace();
    if (*at_ == '"' || *at_ == '\'') {
        const char quote = *at_++;
        if (!skipText(quote))
            return false;
        ++at_;
        return *at_ != 0;
    }
    while (*at_ && !isSpace(*at_) && *at_ != '/' && *at_ != '>') {
        if (*at_ == '"' || *at_ == '\'')
            return false;
        ++at_;
    }
    return *at_ != 0;
}

bool Scan::declaration()
{
    at_ += std::strlen("<?xml");
    for (int words = 0; words <= XmlBounds::Attributes; ++words) {
        skipSpace();
        if (*at_ == '>') {
            ++at_;
            return true;
        }
        if (startsWithAnyCase("version") || startsWithAnyCase("encoding") ||
            startsWithAnyCase("standalone")) {
            if (!attribute())
                return false;
            continue;
        }
        while (*at_ && *at_ != '>' && !isSpace(*at_))
            ++at_;
        if (!*at_)
            return false;
    }
    return false;
}

bool Scan::name()
{
    if (!isNameStart(*at_))
        return false;
    while (isNamePart(*at_))
        ++at_;
    return *at_ != 0;
}

// To the sign that ends the text. TinyXML takes "&#" and all up to the next ";" for one character,
// the end of the text included, so that this has to be a number.
bool Scan::skipText(char end)
{
    while (*at_ && *at_ != end) {
        if (at_[0] != '&' || at_[1] != '#') {
            ++at_;
            continue;
        }
        at_ += 2;
        const bool isHex = *at_ == 'x';
        at_ += isHex ? 1 : 0;
        at_ += std::strspn(at_, isHex ? "0123456789abcdefABCDEF" : "0123456789");
        if (*at_ != ';')
            return false;
    }
    return *at_ == end;
}

// The byte order mark and the two codes that are no characters are space to TinyXML.
void Scan::skipSpace()
{
    while (true) {
        if (isSpace(*at_))
            ++at_;
        else if (*at_ == '\xEF' && (startsWith("\xEF\xBB\xBF") || startsWith("\xEF\xBF\xBE") ||
                                    startsWith("\xEF\xBF\xBF")))
            at_ += 3;
        else
            return;
    }
}

// To the end of the text when it does not come.
void Scan::skipPast(const char *end)
{
    const char *found = std::strstr(at_, end);
    at_ = found ? found + std::strlen(end) : at_ + std::strlen(at_);
}

void Scan::skipBetween(const char *start, const char *end)
{
    at_ += std::strlen(start);
    skipPast(end);
}

} // namespace

int elementsWithinBounds(const char *text, std::size_t size)
{
    if (size > XmlBounds::Size || std::memchr(text, 0, size) || !zrtool::isUtf8(text, size))
        return -1;
    Scan scan(text);
    return scan.document() ? scan.elements() : -1;
}
