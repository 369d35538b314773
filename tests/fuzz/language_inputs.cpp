#include "fuzz/language_inputs.h"

#include "widgets/languagefile.h"
#include "widgets/xmlbounds.h"
#include "zrtool/utf8.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <tinyxml.h>

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// What TinyXML made of a document.
class Measure : public TiXmlVisitor
{
public:
    bool VisitEnter(const TiXmlElement &, const TiXmlAttribute *first) override
    {
        ++elements;
        deepest = std::max(deepest, ++depth_);
        int count = 0;
        for (const TiXmlAttribute *attribute = first; attribute; attribute = attribute->Next())
            ++count;
        attributes = std::max(attributes, count);
        return true;
    }
    bool VisitExit(const TiXmlElement &) override
    {
        --depth_;
        return true;
    }
    bool isWithinBounds() const
    {
        // An empty element does not count as a level of its own.
        return deepest <= XmlBounds::Depth + 1 && attributes <= XmlBounds::Attributes;
    }
    int elements = 0;
    int deepest = 0;
    int attributes = 0;

private:
    int depth_ = 0;
};

} // namespace

void tryLanguage(const std::uint8_t *bytes, std::size_t size)
{
    const std::string text(reinterpret_cast<const char *>(bytes), size);
    Texts before;
    before.insert(7, ZrString("kept"));
    Texts texts = before;
    const bool isRead = readLanguage(text.data(), text.size(), &texts);
    if (!isRead)
        require(texts == before);

    const int elements = elementsWithinBounds(text.data(), text.size());
    // Only small documents that are text may be given to TinyXML without the bounds. In broken
    // declarations and numbers of characters it reads on where the bounds refuse.
    constexpr std::size_t small = 4096;
    if (elements < 0 &&
        (size > small || text.find('\0') != std::string::npos ||
         text.find("<?") != std::string::npos || text.find("&#") != std::string::npos ||
         !zrtool::isUtf8(text.data(), text.size())))
        return;
    TiXmlDocument document;
    document.SetTabSize(0);
    document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
    const bool isWhole = !document.Error() && document.RootElement();
    Measure measure;
    document.Accept(&measure);
    if (isRead) {
        require(isWhole && measure.isWithinBounds() && measure.elements == elements);
        Texts again;
        require(readLanguage(text.data(), text.size(), &again) && again == texts);
    } else {
        require(!isWhole || !measure.isWithinBounds());
    }
}
