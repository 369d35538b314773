#include "ui/stringtable.h"

#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/wirewriter.h"

#include <iterator>
#include <zrtranslation>

namespace
{

// In the order that App knows. The last two places are App's own reserve; they go out empty.
constexpr int TextIds[] = {
    115503, 107009, 107010, 107011, 107012, 107013, 107014, 107015, 107016, 107017, 107018, 107019,
    107020, 107021, 107024, 107025, 122509, 122510, 122511, 107030, 118502, 106507, 118511, 118507,
    120003, 120006, 125442, 107031, 125435, 107035, 107036, 107037, 107038, 107039, 107040, 118502,
    103002, 120000, 111507, 122535, 122537, 122538, 122539, 122540, 102603, 102610, 119146, 100000,
    119078, 113518, 119077, 120004, 114545, 102590, 114553, 114554, 114555, 114556, 114557, 114558,
    63,     135,    166,    209,    210,    211,    107041, 107042, 107043, -1,     -1};
static_assert(std::size(TextIds) == StringTableEntries);

} // namespace

std::vector<unsigned char> encodeStringTable(const ZrList<ZrString> &texts)
{
    WireWriter offsets(StringTableEntries * sizeof(std::uint32_t));
    std::vector<unsigned char> area;
    for (int i = 0; i < StringTableEntries; ++i) {
        offsets.u32(std::size_t(i) * sizeof(std::uint32_t), std::uint32_t(area.size()));
        const ZrByteArray text = i < texts.size() ? texts.at(i).toUtf8() : ZrByteArray();
        area.insert(area.end(), text.constData(), text.constData() + text.size());
        area.push_back(0);
    }
    std::vector<unsigned char> body(offsets.data(), offsets.data() + offsets.size());
    body.insert(body.end(), area.begin(), area.end());
    return body;
}

void sendStringTable()
{
    ZrList<ZrString> texts;
    for (const int id : TextIds)
        texts.append(tr(id));
    const std::vector<unsigned char> body = encodeStringTable(texts);
    appSend(AppMain::parameters, AppParameter::stringTable, body.data(),
            std::uint32_t(body.size()));
}
