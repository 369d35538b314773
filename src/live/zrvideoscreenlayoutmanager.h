// The split modes by index and by id, built once from the catalogue. Widget thread only.
#pragma once

#include "live/zrvideoscreenlayout.h"

#include <zrlist>
#include <zrstring>

class ZrVideoScreenLayoutManager : public ZrObject
{
    ZR_OBJECT(ZrVideoScreenLayoutManager, ZrObject)
public:
    static ZrVideoScreenLayoutManager *instance();

    int count() const { return layouts_.size(); }
    // An index outside the list gives the first layout; an absent layout gives -1.
    ZrVideoScreenLayout *layoutAt(int index) const;
    int indexOfLayout(const ZrVideoScreenLayout *layout) const;
    // A bad index gives 1.
    int splitCountAt(int index) const;
    // An unknown id gives the first layout.
    int indexOfMode(int id) const;
    ZrVideoScreenLayout *layoutOfMode(int id) const;
    int cellCountOfMode(int id) const;
    int modeAt(int index) const;
    // The translated label of a mode; empty for an unknown id.
    ZrString nameOfMode(int id) const;
    // The first mode with at least `count` cells; 0 when there is none.
    enum class Merged { Allowed, Refused };
    int bestModeFor(int count, Merged merged) const;

private:
    ZrVideoScreenLayoutManager();

    ZrList<ZrVideoScreenLayout *> layouts_; // the objects are children
    ZrList<int> modeIds_;
    ZrList<ZrString> names_;
    ZrList<int> splitCounts_;
};
