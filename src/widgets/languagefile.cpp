#include "widgets/languagefile.h"

#include "platform/filedescriptor.h"
#include "widgets/xmlbounds.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <tinyxml.h>
#include <unistd.h>

namespace
{

int number(const char *text, int otherwise)
{
    char *end = nullptr;
    const long value = std::strtol(text, &end, 10);
    return end == text ? otherwise : int(value);
}

class ZrXmlVisitor : public TiXmlVisitor
{
public:
    explicit ZrXmlVisitor(Texts *texts) : texts_(texts) {}
    bool VisitEnter(const TiXmlElement &element, const TiXmlAttribute *first) override
    {
        if (element.ValueStr() != "tr")
            return true;
        constexpr int NoId = -1;
        int id = NoId;
        const std::string *text = nullptr;
        for (const TiXmlAttribute *attribute = first; attribute; attribute = attribute->Next()) {
            if (attribute->NameTStr() == "id")
                id = number(attribute->ValueStr().c_str(), NoId);
            else if (attribute->NameTStr() == "text")
                text = &attribute->ValueStr();
        }
        if (id != NoId)
            texts_->insert(std::uint32_t(id), text ? ZrString(text->c_str()) : ZrString());
        return true;
    }

private:
    Texts *texts_;
};

// Empty, which is no document either, when it cannot be read or is too long.
std::string readWhole(const char *path)
{
    // Not blocking: what has the name of a language may be a pipe.
    const FileDescriptor file(open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status;
    if (!file.isOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > XmlBounds::Size)
        return {};
    std::string bytes(std::size_t(status.st_size), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = read(file.get(), &bytes[filled], bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return {};
        filled += std::size_t(count);
    }
    return bytes;
}

// "\r\n" and "\r" end a line as "\n" does.
void joinLineEnds(std::string *text)
{
    if (text->find('\r') == std::string::npos)
        return;
    std::size_t to = 0;
    for (std::size_t from = 0; from < text->size(); ++from) {
        const char character = (*text)[from];
        if (character == '\r' && from + 1 < text->size() && (*text)[from + 1] == '\n')
            continue;
        (*text)[to++] = character == '\r' ? '\n' : character;
    }
    text->resize(to);
}

} // namespace

bool readLanguageFile(const char *path, Texts *texts)
{
    std::string document = readWhole(path);
    joinLineEnds(&document);
    return readLanguage(document.data(), document.size(), texts);
}

bool readLanguage(const char *text, std::size_t size, Texts *texts)
{
    const int elements = elementsWithinBounds(text, size);
    if (elements <= 0)
        return false;
    TiXmlDocument document;
    document.SetTabSize(0); // nobody asks for the rows and columns of its errors
    document.Parse(text, nullptr, TIXML_ENCODING_UTF8);
    // One that ends before its first element says that the rest of the file is lost.
    if (document.Error() || !document.RootElement())
        return false;
    // Emptied first: the new texts then take the memory of the old ones.
    texts->clear();
    texts->reserve(2 * elements);
    ZrXmlVisitor visitor(texts);
    document.Accept(&visitor);
    return true;
}
