#include "live/zrvideoscreenlayoutmanager.h"

#include "live/splitmodes.h"
#include "ui/text_ids.h"

#include <zrtranslation>

ZrVideoScreenLayoutManager *ZrVideoScreenLayoutManager::instance()
{
    static ZrVideoScreenLayoutManager manager;
    return &manager;
}

ZrVideoScreenLayoutManager::ZrVideoScreenLayoutManager()
{
    for (const live::SplitMode &mode : live::SplitModes) {
        auto *layout = new ZrVideoScreenLayout(mode.rows, mode.columns, this);
        for (const live::SplitMerge &merge : mode.merges) {
            if (merge.span > 0)
                layout->merge(merge.row, merge.column, merge.span);
        }
        layouts_.append(layout);
        modeIds_.append(mode.id);
        names_.append(ZrString(mode.name));
        splitCounts_.append(mode.splitCount);
    }
}

ZrVideoScreenLayout *ZrVideoScreenLayoutManager::layoutAt(int index) const
{
    return index >= 0 && index < layouts_.size() ? layouts_.at(index) : layouts_.first();
}

int ZrVideoScreenLayoutManager::indexOfLayout(const ZrVideoScreenLayout *layout) const
{
    return layouts_.indexOf(const_cast<ZrVideoScreenLayout *>(layout));
}

int ZrVideoScreenLayoutManager::splitCountAt(int index) const
{
    return index >= 0 && index < splitCounts_.size() ? splitCounts_.at(index) : 1;
}

int ZrVideoScreenLayoutManager::indexOfMode(int id) const
{
    const int index = modeIds_.indexOf(id);
    return index < 0 ? 0 : index;
}

ZrVideoScreenLayout *ZrVideoScreenLayoutManager::layoutOfMode(int id) const
{
    return layouts_.at(indexOfMode(id));
}

int ZrVideoScreenLayoutManager::cellCountOfMode(int id) const
{
    return layoutOfMode(id)->cellCount();
}

int ZrVideoScreenLayoutManager::modeAt(int index) const
{
    return index >= 0 && index < modeIds_.size() ? modeIds_.at(index) : modeIds_.first();
}

ZrString ZrVideoScreenLayoutManager::nameOfMode(int id) const
{
    const int index = modeIds_.indexOf(id);
    return index < 0 ? ZrString() : tr(Text::SplitMode).arg(names_.at(index), 0, ' ');
}

int ZrVideoScreenLayoutManager::bestModeFor(int count, Merged merged) const
{
    for (int i = 0; i < layouts_.size(); ++i) {
        const ZrVideoScreenLayout *layout = layouts_.at(i);
        if (layout->cellCount() >= count && (merged == Merged::Allowed || !layout->isMerged()))
            return modeIds_.at(i);
    }
    return 0;
}
