#include "live/recordflagbox.h"

#include "link/startup.h"
#include "widgets/style/drawpicture.h"

#include <algorithm>
#include <iterator>
#include <zrimage>
#include <zrpainter>

namespace
{

constexpr int Columns = 3;
constexpr int Rows = 2;

struct Icon {
    RecordFlagBox::Flag flag;
    int column, row;
    const char *file;
};

constexpr Icon Icons[] = {
    {RecordFlagBox::Recording, 0, 0, "images/recording.png"},
    {RecordFlagBox::Motion, 1, 0, "images/motion-alarm.png"},
    {RecordFlagBox::InputAlarm, 2, 0, "images/io-alarm.png"},
    {RecordFlagBox::Pir, 0, 1, "images/pir-alarm.png"},
    {RecordFlagBox::Intelligent, 1, 1, "images/intelligent-alarm.png"},
};

// Loaded by the first box, shared by all.
const ZrImage &image(int icon)
{
    static const ZrList<ZrImage> images = [] {
        ZrList<ZrImage> loaded;
        for (const Icon &row : Icons)
            loaded.append(ZrImage(resolveResourcePath(ZrString(row.file))));
        return loaded;
    }();
    return images.at(icon);
}

} // namespace

RecordFlagBox::RecordFlagBox(ZrWidget *screen) : ZrWidget(screen)
{
    setAttribute(MouseTransparent);
    hide();
}

bool RecordFlagBox::isEmpty() const
{
    return std::none_of(std::begin(flags_), std::end(flags_), [](bool flag) { return flag; });
}

void RecordFlagBox::setChannel(const ZrChannel *channel)
{
    bool flags[FlagCount] = {};
    if (channel) {
        flags[Recording] = channel->isRecording();
        flags[Motion] = channel->motion() != 0;
        flags[InputAlarm] = channel->inputAlarm() != 0;
        flags[Pir] = channel->pir() != 0;
        flags[Intelligent] = channel->hasIntelligentAlarm();
    }
    if (std::equal(std::begin(flags), std::end(flags), std::begin(flags_)))
        return;
    std::copy(std::begin(flags), std::end(flags), std::begin(flags_));
    update();
}

void RecordFlagBox::paintEvent(ZrPaintEvent *)
{
    ZrPainter painter(this);
    for (int i = 0; i < int(std::size(Icons)); ++i) {
        const Icon &icon = Icons[i];
        if (!flags_[icon.flag] || image(i).isNull())
            continue;
        drawPicture(painter,
                    ZrRect(icon.column * width() / Columns, icon.row * height() / Rows,
                           width() / Columns, height() / Rows),
                    image(i));
    }
}
