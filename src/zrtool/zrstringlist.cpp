#include <zrstringlist>

#include <algorithm>

bool ZrStringList::contains(const ZrString &text, Zr::CaseSensitivity sensitivity) const
{
    return std::any_of(begin(), end(), [&](const ZrString &one) {
        return one.size() == text.size() && one.compare(text, sensitivity) == 0;
    });
}

void ZrStringList::sort()
{
    std::sort(begin(), end());
}

ZrString ZrStringList::join(const ZrString &separator) const
{
    ZrString joined;
    for (int i = 0; i < size(); i++) {
        if (i > 0)
            joined.append(separator);
        joined.append(at(i));
    }
    return joined;
}
