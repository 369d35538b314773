#include <zrcharacterset>

#include "widgets/controls/codepoints.h"

#include <algorithm>

namespace
{

bool isControl(std::uint32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

} // namespace

ZrCharacterSet::ZrCharacterSet(const ZrString &pattern) : excluded_(false)
{
    int at = 0;
    while (at < pattern.size()) {
        const std::uint32_t first = nextCodePoint(pattern.constData(), pattern.size(), at);
        std::uint32_t last = first;
        if (at + 1 < pattern.size() && pattern.at(at) == '-') {
            ++at;
            last = nextCodePoint(pattern.constData(), pattern.size(), at);
        }
        ranges_.push_back({first, last});
    }
}

ZrCharacterSet ZrCharacterSet::allBut(const ZrString &pattern)
{
    ZrCharacterSet set(pattern);
    set.excluded_ = true;
    return set;
}

ZrCharacterSet ZrCharacterSet::ascii()
{
    return ZrCharacterSet(ZrString(" -~"));
}

bool ZrCharacterSet::contains(std::uint32_t character) const
{
    const bool listed = std::any_of(ranges_.begin(), ranges_.end(), [character](Range range) {
        return character >= range.first && character <= range.last;
    });
    return excluded_ ? !listed && !isControl(character) : listed;
}
